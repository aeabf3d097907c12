// The Delayer template preview table: the On/Off steps of the current template, shown read-only.
#include "delayertemplatemodel.h"

#include "helper.h"
#include "stepcells.h"

namespace tarn2::specific::orvo5000::programmer {

DelayerTemplateModel::DelayerTemplateModel(QList<DelayerData> &data, QObject *parent)
    : StepTableModel(data, {tr("No."), tr("State"), tr("Time(s)")}, parent)
{}

DelayerTemplateModel::~DelayerTemplateModel() = default;

QVariant DelayerTemplateModel::data(const QModelIndex &index, int role) const
{
    if (!isInRange(index))
        return {};
    const int row = index.row();
    const DelayerData &step = m_data.at(row);
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case ColumnNo:
            return row;
        case ColumnState:
            // The instrument's own words for the output state; they are not translated.
            return step.state ? QStringLiteral("ON") : QStringLiteral("OFF");
        case ColumnTime:
            return stepcells::number(step.time, Helper::getInstance().option.timeDecimals);
        }
        break;
    case Qt::EditRole:
        switch (index.column()) {
        case ColumnNo:
            return row;
        case ColumnState:
            return step.state;
        case ColumnTime:
            return step.time;
        }
        break;
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignCenter);
    }
    return {};
}

bool DelayerTemplateModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !isInRange(index))
        return false;
    DelayerData &step = m_data[index.row()];
    switch (index.column()) {
    case ColumnState:
        // The state editor hands in its item index: 0 is Off, 1 is On.
        step.state = value.toBool();
        break;
    case ColumnTime:
        step.time = value.toDouble();
        break;
    }
    emit dataChanged(index, index, {});
    return true;
}

Qt::ItemFlags DelayerTemplateModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) & ~Qt::ItemIsEditable;
}

} // namespace tarn2::specific::orvo5000::programmer
