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
    : StepTableModel(data, {tr("No."), tr("Voltage(V)"), tr("Current(A)"), tr("Time(s)")}, parent)
{}

ListTemplateModel::~ListTemplateModel() = default;

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

Qt::ItemFlags ListTemplateModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) & ~Qt::ItemIsEditable;
}

} // namespace tarn2::specific::orvo5000::programmer
