// The editable List step table: display texts, edits and the row operations of the dialog.
#include "listdatamodel.h"

#include "stepcells.h"

namespace tarn2::specific::orvo5000::programmer {

ListDataModel::ListDataModel(QList<ListData> &data, QObject *parent)
    : StepTableModel(data, {tr("No."), tr("Voltage(V)"), tr("Current(A)"), tr("Time(s)")}, parent)
{}

ListDataModel::~ListDataModel() = default;

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

Qt::ItemFlags ListDataModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    return index.column() == ColumnNo ? base & ~Qt::ItemIsEditable : base | Qt::ItemIsEditable;
}

bool ListDataModel::insertRows(int row, int count, const QModelIndex &parent)
{
    return insertFilledRows(row, count, parent, ListData(0.0, 0.0, 0.0));
}

bool ListDataModel::removeRows(int row, int count, const QModelIndex &parent)
{
    return removeExistingRows(row, count, parent);
}

void ListDataModel::appendRow(const ListData &step)
{
    appendStep(step);
}

void ListDataModel::appendRows(const QList<ListData> &steps)
{
    appendSteps(steps);
}

void ListDataModel::insertRows(int row, const QList<ListData> &steps)
{
    insertSteps(row, steps);
}

} // namespace tarn2::specific::orvo5000::programmer
