// Version 1 kept the bench's own records; version 2 lets a line of stations share one history.
#include "historyschema.h"

namespace tarn::history::schema {

QStringList first()
{
    return {
        QStringLiteral("CREATE TABLE history_meta (name TEXT PRIMARY KEY, value TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE records ("
                       "id INTEGER PRIMARY KEY AUTOINCREMENT, "
                       "uid TEXT NOT NULL UNIQUE, "
                       "kind TEXT NOT NULL, "
                       "started TEXT NOT NULL, "
                       "ended TEXT, "
                       "identity TEXT NOT NULL, "
                       "address TEXT NOT NULL, "
                       "dialect TEXT NOT NULL, "
                       "channel INTEGER NOT NULL, "
                       "channel_name TEXT NOT NULL, "
                       "mode TEXT NOT NULL, "
                       "cycles INTEGER NOT NULL, "
                       "end_state TEXT NOT NULL, "
                       "step_count INTEGER NOT NULL, "
                       "steps TEXT NOT NULL, "
                       "outcome TEXT NOT NULL, "
                       "message TEXT NOT NULL, "
                       "failed_step INTEGER NOT NULL, "
                       "upload_uid TEXT, "
                       "sample_count INTEGER NOT NULL, "
                       "writer TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE trace_chunks (record_id BIGINT NOT NULL, "
                       "seq INTEGER NOT NULL, data TEXT NOT NULL, "
                       "PRIMARY KEY (record_id, seq))"),
        QStringLiteral("CREATE INDEX records_started ON records (started)"),
        QStringLiteral("INSERT INTO history_meta (name, value) VALUES ('schema', '1')"),
    };
}

QStringList migration(int from)
{
    switch (from) {
    case 1:
        // Each record names the station that made it; `sent` marks a queued record the shared
        // server has.
        return {
            QStringLiteral("ALTER TABLE records ADD COLUMN station TEXT NOT NULL DEFAULT ''"),
            QStringLiteral("ALTER TABLE records ADD COLUMN sent INTEGER NOT NULL DEFAULT 0"),
            QStringLiteral("CREATE INDEX records_sent ON records (sent)"),
            QStringLiteral("UPDATE history_meta SET value = '2' WHERE name = 'schema'"),
        };
    default:
        return {};
    }
}

QString adapt(const QString &statement, bool postgres)
{
    if (!postgres)
        return statement;
    QString text = statement;
    text.replace(QLatin1String("INTEGER PRIMARY KEY AUTOINCREMENT"),
                 QLatin1String("BIGSERIAL PRIMARY KEY"));
    return text;
}

} // namespace tarn::history::schema
