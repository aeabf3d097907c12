// One row per record, in the columns a user searches by.
#include "historymodel.h"

#include <QColor>

namespace tarn::host {

using history::HistoryRecord;

HistoryModel::HistoryModel(QObject *parent)
    : QAbstractTableModel(parent)
{}

HistoryModel::~HistoryModel() = default;

void HistoryModel::setRecords(const QList<HistoryRecord> &records)
{
    beginResetModel();
    m_records = records;
    endResetModel();
}

HistoryRecord HistoryModel::record(int row) const
{
    return row >= 0 && row < m_records.size() ? m_records.at(row) : HistoryRecord();
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_records.size();
}

int HistoryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const HistoryRecord &r = m_records.at(index.row());
    if (role == Qt::ForegroundRole && index.column() == Outcome) {
        const bool good = r.outcome == QLatin1String("verified")
                          || r.outcome == QLatin1String("ended")
                          || r.outcome == QLatin1String("running");
        return good ? QVariant() : QVariant(QColor(QStringLiteral("#ff0000")));
    }
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Record:
        return r.name();
    case Started:
        return r.started.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    case Kind:
        return r.kind == HistoryRecord::Kind::Run ? tr("Run") : tr("Upload");
    case Channel:
        return QStringLiteral("%1 %2").arg(
            r.channelName.isEmpty() ? QStringLiteral("CH%1").arg(r.channel) : r.channelName,
            r.sequence.mode == tarn2::specific::orvo5000::programmer::List ? tr("List")
                                                                           : tr("Delayer"));
    case Steps:
        return r.stepCount;
    case Outcome:
        return r.outcome;
    case Station:
        return r.station;
    case Message:
        return r.message;
    default:
        return {};
    }
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Record:
        return tr("Record");
    case Started:
        return tr("Started");
    case Kind:
        return tr("Kind");
    case Channel:
        return tr("Channel");
    case Steps:
        return tr("Steps");
    case Outcome:
        return tr("Outcome");
    case Station:
        return tr("Station");
    case Message:
        return tr("Message");
    default:
        return {};
    }
}

} // namespace tarn::host
