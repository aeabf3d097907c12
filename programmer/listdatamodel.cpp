// The editable List step table: display texts, edits and the row operations of the dialog.
#include "listdatamodel.h"

#include "stepcells.h"

#include <limits>

namespace tarn2::specific::orvo5000::programmer {

ListDataModel::ListDataModel(QList<ListData> &data, QObject *parent)
    : QAbstractTableModel(parent)
    , m_data(data)
    , m_headers({tr("No."), tr("Voltage(V)"), tr("Current(A)"), tr("Time(s)")})
{}

ListDataModel::~ListDataModel() = default;

int ListDataModel::rowCount(const QModelIndex &) const
{
    return m_data.size();
}

int ListDataModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QModelIndex ListDataModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // The non-const access detaches the list first, so the pointer never refers to storage that
    // another list (a preview the steps were copied from) still shares.
    return createIndex(row, column, &m_data[row]);
}

QVariant ListDataModel::data(const QModelIndex &index, int role) const
{
    if (!isInRange(index))
        return {};
    return stepcells::listCell(m_data.at(index.row()), index.row(), index.column(), role);
}

bool ListDataModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !isInRange(index))
        return false;
    ListData &step = m_data[index.row()];
    switch (index.column()) {
    case ColumnVoltage:
        step.voltage = value.toDouble();
        break;
    case ColumnCurrent:
        step.current = value.toDouble();
        break;
    case ColumnTime:
        step.time = value.toDouble();
        break;
    }
    // The step number cannot be edited, yet an edit of it is acknowledged like any other.
    emit dataChanged(index, index, {});
    return true;
}

QVariant ListDataModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return stepcells::header(m_headers, section, orientation, role);
}

Qt::ItemFlags ListDataModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    return index.column() == ColumnNo ? base & ~Qt::ItemIsEditable : base | Qt::ItemIsEditable;
}

bool ListDataModel::insertRows(int row, int count, const QModelIndex &parent)
{
    const int size = m_data.size();
    if (parent.isValid() || count <= 0 || row < 0 || row > size
        || count > std::numeric_limits<int>::max() - size)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        m_data.insert(row + i, ListData(0.0, 0.0, 0.0));
    endInsertRows();
    return true;
}

bool ListDataModel::removeRows(int row, int count, const QModelIndex &parent)
{
    // The dialog's Clear and Delete treat "nothing to remove" as done, so this never reports
    // failure; the range it signals is clipped to rows that exist.
    if (parent.isValid() || count <= 0)
        return true;
    const int first = qMax(row, 0);
    const int last = static_cast<int>(
        qMin(static_cast<qint64>(row) + count - 1, static_cast<qint64>(m_data.size()) - 1));
    if (first > last)
        return true;
    beginRemoveRows(parent, first, last);
    m_data.erase(m_data.begin() + first, m_data.begin() + last + 1);
    endRemoveRows();
    return true;
}

void ListDataModel::setSourceData(QList<ListData> &data)
{
    beginResetModel();
    if (!m_data.isSharedWith(data))
        m_data = data;
    endResetModel();
}

void ListDataModel::appendRow(const ListData &step)
{
    // A copy first: `step` may be an element of the very list that is about to grow.
    const ListData added = step; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n);
    m_data.append(added);
    endInsertRows();
}

void ListDataModel::appendRows(const QList<ListData> &steps)
{
    if (steps.isEmpty())
        return;
    // A shallow copy keeps the steps readable even when `steps` is the model's own list.
    const QList<ListData> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n + added.size() - 1);
    m_data.append(added);
    endInsertRows();
}

void ListDataModel::insertRows(int row, const QList<ListData> &steps)
{
    if (row < 0 || row >= m_data.size()) {
        appendRows(steps);
        return;
    }
    if (steps.isEmpty())
        return;
    const QList<ListData> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    beginInsertRows(QModelIndex(), row, row + added.size() - 1);
    for (auto it = added.crbegin(); it != added.crend(); ++it)
        m_data.insert(row, *it);
    endInsertRows();
}

bool ListDataModel::isInRange(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < m_data.size()
           && index.column() < ColumnCount;
}

} // namespace tarn2::specific::orvo5000::programmer
