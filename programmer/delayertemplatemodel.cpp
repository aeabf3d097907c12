// The Delayer template preview table: the On/Off steps of the current template, shown read-only.
#include "delayertemplatemodel.h"

#include "helper.h"
#include "stepcells.h"

namespace tarn2::specific::orvo5000::programmer {

DelayerTemplateModel::DelayerTemplateModel(QList<DelayerData> &data, QObject *parent)
    : QAbstractTableModel(parent)
    , m_data(data)
    , m_headers({tr("No."), tr("State"), tr("Time(s)")})
{}

DelayerTemplateModel::~DelayerTemplateModel() = default;

int DelayerTemplateModel::rowCount(const QModelIndex &) const
{
    return m_data.size();
}

int DelayerTemplateModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QModelIndex DelayerTemplateModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // The non-const access detaches the list, so the pointer refers to storage of its own.
    return createIndex(row, column, &m_data[row]);
}

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

QVariant DelayerTemplateModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return stepcells::header(m_headers, section, orientation, role);
}

Qt::ItemFlags DelayerTemplateModel::flags(const QModelIndex &index) const
{
    if (!isInRange(index))
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) & ~Qt::ItemIsEditable;
}

void DelayerTemplateModel::setSourceData(QList<DelayerData> &data)
{
    beginResetModel();
    if (!m_data.isSharedWith(data))
        m_data = data;
    endResetModel();
}

bool DelayerTemplateModel::isInRange(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < m_data.size()
           && index.column() < ColumnCount;
}

} // namespace tarn2::specific::orvo5000::programmer
