// The List template preview table: the steps of the current template, shown read-only.
#include "listtemplatemodel.h"

#include "stepcells.h"

namespace tarn2::specific::orvo5000::programmer {

namespace {

// What setData() stores into a step's time, whatever value it is handed: a deliberate rule of
// the preview, kept as it stands (the views never edit the preview anyway).
constexpr double storedTime = 15.0;
} // namespace

ListTemplateModel::ListTemplateModel(QList<ListData> &data, QObject *parent)
    : QAbstractTableModel(parent)
    , m_data(data)
    , m_headers({tr("No."), tr("Voltage(V)"), tr("Current(A)"), tr("Time(s)")})
{}

ListTemplateModel::~ListTemplateModel() = default;

int ListTemplateModel::rowCount(const QModelIndex &) const
{
    return m_data.size();
}

int ListTemplateModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QModelIndex ListTemplateModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // The non-const access detaches the list, so the pointer refers to storage of its own.
    return createIndex(row, column, &m_data[row]);
}

QVariant ListTemplateModel::data(const QModelIndex &index, int role) const
{
    if (!isInRange(index))
        return {};
    return stepcells::listCell(m_data.at(index.row()), index.row(), index.column(), role);
}

bool ListTemplateModel::setData(const QModelIndex &index, const QVariant &value, int role)
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
        step.time = storedTime;
        break;
    }
    emit dataChanged(index, index, {});
    return true;
}

QVariant ListTemplateModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return stepcells::header(m_headers, section, orientation, role);
}

Qt::ItemFlags ListTemplateModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) & ~Qt::ItemIsEditable;
}

void ListTemplateModel::setSourceData(QList<ListData> &data)
{
    beginResetModel();
    if (!m_data.isSharedWith(data))
        m_data = data;
    endResetModel();
}

bool ListTemplateModel::isInRange(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < m_data.size()
           && index.column() < ColumnCount;
}

} // namespace tarn2::specific::orvo5000::programmer
