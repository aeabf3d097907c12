// The rows of a step table: structure, index checks and the row operations of the dialog.
#include "steptablemodel.h"

#include "stepcells.h"

#include <limits>

namespace tarn2::specific::orvo5000::programmer {

template<class Step, int Columns>
StepTableModel<Step, Columns>::StepTableModel(QList<Step> &data,
                                              const QStringList &headers,
                                              QObject *parent)
    : QAbstractTableModel(parent)
    , m_data(data)
    , m_headers(headers)
{}

template<class Step, int Columns> StepTableModel<Step, Columns>::~StepTableModel() = default;

template<class Step, int Columns>
int StepTableModel<Step, Columns>::rowCount(const QModelIndex &) const
{
    return m_data.size();
}

template<class Step, int Columns>
int StepTableModel<Step, Columns>::columnCount(const QModelIndex &) const
{
    return Columns;
}

template<class Step, int Columns>
QModelIndex
StepTableModel<Step, Columns>::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // The non-const access detaches the list first, so the pointer never refers to storage that
    // another list (a preview the steps were copied from) still shares.
    return createIndex(row, column, &m_data[row]);
}

template<class Step, int Columns>
QVariant
StepTableModel<Step, Columns>::headerData(int section, Qt::Orientation orientation, int role) const
{
    return stepcells::header(m_headers, section, orientation, role);
}

template<class Step, int Columns>
void StepTableModel<Step, Columns>::setSourceData(QList<Step> &data)
{
    beginResetModel();
    if (!m_data.isSharedWith(data))
        m_data = data;
    endResetModel();
}

template<class Step, int Columns>
bool StepTableModel<Step, Columns>::isInRange(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < m_data.size()
           && index.column() < Columns;
}

template<class Step, int Columns>
bool StepTableModel<Step, Columns>::insertFilledRows(int row,
                                                     int count,
                                                     const QModelIndex &parent,
                                                     const Step &fill)
{
    const int size = m_data.size();
    if (parent.isValid() || count <= 0 || row < 0 || row > size
        || count > std::numeric_limits<int>::max() - size)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        m_data.insert(row + i, fill);
    endInsertRows();
    return true;
}

template<class Step, int Columns>
bool StepTableModel<Step, Columns>::removeExistingRows(int row,
                                                       int count,
                                                       const QModelIndex &parent)
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

template<class Step, int Columns> void StepTableModel<Step, Columns>::appendStep(const Step &step)
{
    // A copy first: `step` may be an element of the very list that is about to grow.
    const Step added = step; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n);
    m_data.append(added);
    endInsertRows();
}

template<class Step, int Columns>
void StepTableModel<Step, Columns>::appendSteps(const QList<Step> &steps)
{
    if (steps.isEmpty())
        return;
    // A shallow copy keeps the steps readable even when `steps` is the model's own list.
    const QList<Step> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    const int n = m_data.size();
    beginInsertRows(QModelIndex(), n, n + added.size() - 1);
    m_data.append(added);
    endInsertRows();
}

template<class Step, int Columns>
void StepTableModel<Step, Columns>::insertSteps(int row, const QList<Step> &steps)
{
    if (row < 0 || row >= m_data.size()) {
        appendSteps(steps);
        return;
    }
    if (steps.isEmpty())
        return;
    const QList<Step> added = steps; // NOLINT(performance-unnecessary-copy-initialization)
    beginInsertRows(QModelIndex(), row, row + added.size() - 1);
    for (auto it = added.crbegin(); it != added.crend(); ++it)
        m_data.insert(row, *it);
    endInsertRows();
}

template class StepTableModel<ListData, 4>;
template class StepTableModel<DelayerData, 3>;

} // namespace tarn2::specific::orvo5000::programmer
