// The records a history search found, as the History panel's table shows them.
#pragma once

#include <historyrecord.h>

#include <QAbstractTableModel>
#include <QList>

namespace tarn::host {

// HistoryModel holds one search's records, newest first, a row each; it never reads the database
// itself, so a search that fails leaves the rows as they were.
class HistoryModel final : public QAbstractTableModel
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryModel)

public:
    enum Column { Record, Started, Kind, Channel, Steps, Outcome, Station, Message, ColumnCount };

    explicit HistoryModel(QObject *parent = nullptr);
    ~HistoryModel() override;

    void setRecords(const QList<history::HistoryRecord> &records);
    // The record of `row`; an empty one for a row that is not there.
    history::HistoryRecord record(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<history::HistoryRecord> m_records;
};

} // namespace tarn::host
