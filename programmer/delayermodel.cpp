// The editable Delayer step table: editable state and time, and the row operations of the dialog.
#include "delayermodel.h"

#include <limits>

namespace tarn2::specific::orvo5000::programmer {

DelayerModel::DelayerModel(QList<DelayerData> &data, QObject *parent)
    : DelayerTemplateModel(data, parent)
{}

DelayerModel::~DelayerModel() = default;

Qt::ItemFlags DelayerModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = DelayerTemplateModel::flags(index);
    if (!isInRange(index))
        return base;
    return index.column() == ColumnNo ? base & ~Qt::ItemIsEditable : base | Qt::ItemIsEditable;
}

bool DelayerModel::insertRows(int row, int count, const QModelIndex &parent)
{
    const int size = m_data.size();
    if (parent.isValid() || count <= 0 || row < 0 || row > size
        || count > std::numeric_limits<int>::max() - size)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        m_data.insert(row + i, DelayerData(true, 0.0));
    endInsertRows();
    return true;
}

bool DelayerModel::removeRows(int row, int count, const QModelIndex &parent)
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

void DelayerModel::appendRow(const DelayerData &step)
{
    // A copy first: `step` may be an element of the very list that is about to grow.
    const DelayerData added = step; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n);
    m_data.append(added);
    endInsertRows();
}

void DelayerModel::appendRows(const QList<DelayerData> &steps)
{
    if (steps.isEmpty())
        return;
    // A shallow copy keeps the steps readable even when `steps` is the model's own list.
    const QList<DelayerData> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n + added.size() - 1);
    m_data.append(added);
    endInsertRows();
}

void DelayerModel::insertRows(int row, const QList<DelayerData> &steps)
{
    if (row < 0 || row >= m_data.size()) {
        appendRows(steps);
        return;
    }
    if (steps.isEmpty())
        return;
    const QList<DelayerData> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    beginInsertRows(QModelIndex(), row, row + added.size() - 1);
    for (auto it = added.crbegin(); it != added.crend(); ++it)
        m_data.insert(row, *it);
    endInsertRows();
}

} // namespace tarn2::specific::orvo5000::programmer
