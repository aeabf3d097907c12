// One history database, a local SQLite file or a PostgreSQL server, through Qt SQL.
#pragma once

#include "historyrecord.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

class QSqlDatabase;
class QSqlQuery;

namespace tarn::history {

struct HistoryLocation;

// HistoryStore writes and reads records in one database. Every write is one transaction, so a
// process killed at any moment leaves every record it finished and a run's samples up to its last
// write; a SQLite file runs in write-ahead-log mode and waits for another writer's transaction
// rather than failing, so the window and the command line can write at once. Every value reaches
// a query as a bound parameter. Opening a file that is not a history, or a damaged one, sets it
// aside under a new name and starts a fresh one (notice() says so); opening one of an older
// schema migrates it.
class HistoryStore final
{
    Q_DECLARE_TR_FUNCTIONS(HistoryStore)
    Q_DISABLE_COPY(HistoryStore)

public:
    HistoryStore();
    ~HistoryStore();

    bool openFile(const QString &path);
    bool openServer(const HistoryLocation &location);
    bool isOpen() const;
    bool isServer() const { return m_server; }
    QString error() const { return m_error; }
    // What opening did that the user should hear of, such as a file set aside; empty otherwise.
    QString notice() const { return m_notice; }
    int schemaVersion();

    // Writes a whole record, its samples too; sets its id (and its uid when it has none).
    bool add(HistoryRecord *record);
    bool appendSamples(qint64 id, const QVector<host::RunSample> &samples);
    bool finish(qint64 id, const QString &outcome, const QString &message, const QDateTime &ended);
    bool contains(const QString &uid);

    // Finished records not yet on the shared server, oldest first.
    QList<qint64> unsent();
    bool markSent(qint64 id);

    // Newest first, without steps and samples.
    QList<HistoryRecord> list(const HistoryFilter &filter);
    // By id; steps and samples too when `full`.
    std::optional<HistoryRecord> record(qint64 id, bool full);

    // A file's pages in use, in bytes; and removing the oldest runs (then the oldest uploads)
    // until they fit in `limit`, never one a server still waits for when `keepUnsent`. Returns
    // how many records were removed.
    qint64 usedBytes();
    int trim(qint64 limit, bool keepUnsent = false);

    // This writer's name in the records: host and process.
    static QString writer();

private:
    bool openSqlite(const QString &path);
    enum class Found { Ours, Empty, Foreign, Damaged, Newer, Busy };
    Found inspect();
    void setAside(const QString &path, const QString &why);
    bool prepare();
    bool begin();
    bool commit();
    bool fail(const QSqlQuery &query);
    int closeAbandoned();
    QSqlDatabase database() const;

    QString m_connection;
    bool m_server = false;
    QString m_error;
    QString m_notice;
};

} // namespace tarn::history
