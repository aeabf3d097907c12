// Opening, checking, migrating, writing and searching one history database.
#include "historystore.h"

#include "historylocation.h"
#include "historyschema.h"
#include "historytext.h"

#include <QAtomicInt>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSysInfo>
#include <QUuid>
#include <QVariant>

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace tarn::history {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

QAtomicInt connections;

QString stamp(const QDateTime &time)
{
    return time.isValid() ? time.toUTC().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzzZ"))
                          : QString();
}

QDateTime readStamp(const QVariant &value)
{
    if (value.isNull())
        return {};
    QDateTime time = QDateTime::fromString(value.toString(), Qt::ISODateWithMs);
    time.setTimeSpec(Qt::UTC);
    return time;
}

// The columns are NOT NULL: an empty text goes in as empty, not as NULL.
QVariant text(const QString &value)
{
    return value.isNull() ? QVariant(QString(QLatin1String(""))) : QVariant(value);
}

// Text for LIKE, its wildcards taken literally.
QString pattern(const QString &text)
{
    QString escaped = text.toLower();
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    escaped.replace(QLatin1Char('%'), QLatin1String("\\%"));
    escaped.replace(QLatin1Char('_'), QLatin1String("\\_"));
    return QLatin1Char('%') + escaped + QLatin1Char('%');
}

const char *const summaryColumns
    = "id, uid, kind, station, started, ended, identity, address, dialect, channel, channel_name, "
      "mode, cycles, end_state, step_count, outcome, message, failed_step, upload_uid, "
      "sample_count";

HistoryRecord summary(const QSqlQuery &q)
{
    HistoryRecord r;
    r.id = q.value(0).toLongLong();
    r.uid = q.value(1).toString();
    r.kind = q.value(2).toString() == QLatin1String("run") ? HistoryRecord::Kind::Run
                                                           : HistoryRecord::Kind::Upload;
    r.station = q.value(3).toString();
    r.started = readStamp(q.value(4));
    r.ended = readStamp(q.value(5));
    r.identity = q.value(6).toString();
    r.address = q.value(7).toString();
    r.dialect = q.value(8).toString();
    r.channel = q.value(9).toInt();
    r.channelName = q.value(10).toString();
    r.sequence.mode = q.value(11).toString() == QLatin1String("delayer") ? Delayer : List;
    r.sequence.cycles = q.value(12).toInt();
    r.sequence.endState = q.value(13).toString();
    r.stepCount = q.value(14).toInt();
    r.outcome = q.value(15).toString();
    r.message = q.value(16).toString();
    r.failedStep = q.value(17).toInt();
    r.uploadUid = q.value(18).toString();
    r.sampleCount = q.value(19).toInt();
    return r;
}

} // namespace

QString HistoryRecord::name() const
{
    return (kind == Kind::Run ? QLatin1Char('R') : QLatin1Char('U')) + QString::number(id);
}

HistoryStore::HistoryStore()
    : m_connection(QStringLiteral("tarn_history_%1").arg(connections.fetchAndAddRelaxed(1)))
{}

HistoryStore::~HistoryStore()
{
    if (QSqlDatabase::contains(m_connection)) {
        database().close();
        QSqlDatabase::removeDatabase(m_connection);
    }
}

QSqlDatabase HistoryStore::database() const
{
    return QSqlDatabase::database(m_connection, false);
}

bool HistoryStore::isOpen() const
{
    return QSqlDatabase::contains(m_connection) && database().isOpen();
}

QString HistoryStore::writer()
{
    return QStringLiteral("%1:%2").arg(QSysInfo::machineHostName()).arg(::getpid());
}

bool HistoryStore::fail(const QSqlQuery &query)
{
    m_error = query.lastError().text();
    if (query.isActive() || database().isOpen())
        database().rollback();
    return false;
}

bool HistoryStore::begin()
{
    if (m_server)
        return database().transaction();
    // Taking the write lock at once: a deferred transaction that later needs it fails at once
    // instead of waiting when another process writes.
    QSqlQuery q(database());
    if (!q.exec(QStringLiteral("BEGIN IMMEDIATE"))) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

bool HistoryStore::commit()
{
    if (database().commit())
        return true;
    m_error = database().lastError().text();
    database().rollback();
    return false;
}

bool HistoryStore::openSqlite(const QString &path)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    db.setDatabaseName(path);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=10000"));
    if (!db.open()) {
        m_error = db.lastError().text();
        return false;
    }
    return true;
}

HistoryStore::Found HistoryStore::inspect()
{
    // Cheap enough for every start of the command line however long the history: the header,
    // the schema and the tables' roots are read, not every page. A page damaged deeper down
    // fails the one record that lives on it, not the whole history.
    QSqlQuery q(database());
    const auto failed = [&q] {
        // Another process holding the file for longer than the busy timeout is not damage.
        const QString code = q.lastError().nativeErrorCode();
        return code == QLatin1String("5") || code == QLatin1String("6") ? Found::Busy
                                                                        : Found::Damaged;
    };
    if (!q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")) || !q.next())
        return failed();
    if (q.value(0).toInt() == 0)
        return Found::Empty;
    if (!q.exec(QStringLiteral("PRAGMA application_id")) || !q.next())
        return failed();
    if (q.value(0).toInt() != schema::applicationId)
        return Found::Foreign;
    if (!q.exec(QStringLiteral("SELECT value FROM history_meta WHERE name = 'schema'"))
        || !q.next())
        return failed();
    const int version = q.value(0).toInt();
    if (!q.exec(QStringLiteral("SELECT max(id) FROM records")) || !q.next())
        return failed();
    return version > schema::current ? Found::Newer : Found::Ours;
}

void HistoryStore::setAside(const QString &path, const QString &why)
{
    const QString when
        = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString aside = QStringLiteral("%1.set-aside-%2").arg(path, when);
    for (int n = 2; QFile::exists(aside); ++n)
        aside = QStringLiteral("%1.set-aside-%2-%3").arg(path, when).arg(n);
    QFile::rename(path, aside);
    // A log of the file set aside belongs to it, never to the fresh one.
    for (const char *suffix : {"-wal", "-shm"}) {
        const QString part = path + QLatin1String(suffix);
        if (QFile::exists(part))
            QFile::rename(part, aside + QLatin1String(suffix));
    }
    m_notice = tr("%1 is not a readable history (%2): it was set aside as %3 and a new history "
                  "was started")
                   .arg(path, why, aside);
}

bool HistoryStore::openFile(const QString &path)
{
    m_server = false;
    m_notice.clear();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.exists() && file.size() > 0) {
        if (!file.open(QIODevice::ReadOnly)) {
            m_error = tr("%1 cannot be read: %2").arg(path, file.errorString());
            return false;
        }
        const bool sqlite = file.read(16) == QByteArray("SQLite format 3", 16);
        file.close();
        if (!sqlite)
            setAside(path, tr("it is not a database"));
    }
    if (!openSqlite(path))
        return false;
    const Found found = inspect();
    if (found == Found::Busy) {
        m_error = tr("%1 is held by another program for too long; nothing was changed").arg(path);
        database().close();
        return false;
    }
    if (found == Found::Newer) {
        m_error = tr("%1 was written by a newer version of the bench tools; it is left as it is")
                      .arg(path);
        database().close();
        return false;
    }
    if (found == Found::Foreign || found == Found::Damaged) {
        database().close();
        setAside(path,
                 found == Found::Foreign ? tr("it is another program's database")
                                         : tr("it is damaged"));
        if (!database().open()) {
            m_error = database().lastError().text();
            return false;
        }
    }
    QSqlQuery q(database());
    // Survives a killed process at every commit; only a power cut may lose the last ones.
    q.exec(QStringLiteral("PRAGMA journal_mode = WAL"));
    q.exec(QStringLiteral("PRAGMA synchronous = NORMAL"));
    if (!prepare())
        return false;
    closeAbandoned();
    return true;
}

bool HistoryStore::openServer(const HistoryLocation &location)
{
    m_server = true;
    m_notice.clear();
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_connection);
    if (!db.isValid()) {
        m_error = tr("this machine has no PostgreSQL driver for Qt (libqt5sql5-psql)");
        return false;
    }
    db.setHostName(location.host);
    db.setPort(location.port);
    db.setUserName(location.user);
    db.setDatabaseName(location.database);
    // No password here: the server's password file or service file gives it.
    db.setConnectOptions(QStringLiteral("connect_timeout=3;application_name=tarn_bench"));
    if (!db.open()) {
        m_error = tr("the history server %1 cannot be reached: %2")
                      .arg(location.display(), db.lastError().text().trimmed());
        return false;
    }
    return prepare();
}

bool HistoryStore::prepare()
{
    if (!begin())
        return false;
    QSqlQuery q(database());
    // Stations starting at once create the tables once.
    if (m_server && !q.exec(QStringLiteral("SELECT pg_advisory_xact_lock(7461726)")))
        return fail(q);
    const bool exists = m_server ? q.exec(QStringLiteral("SELECT to_regclass('history_meta')"))
                                       && q.next() && !q.value(0).isNull()
                                 : q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master "
                                                         "WHERE name = 'history_meta'"))
                                       && q.next() && q.value(0).toInt() > 0;
    if (!exists) {
        for (const QString &statement : schema::first()) {
            if (!q.exec(schema::adapt(statement, m_server)))
                return fail(q);
        }
        if (!m_server
            && !q.exec(QStringLiteral("PRAGMA application_id = %1").arg(schema::applicationId)))
            return fail(q);
    }
    if (!q.exec(QStringLiteral("SELECT value FROM history_meta WHERE name = 'schema'"))
        || !q.next())
        return fail(q);
    int version = q.value(0).toInt();
    q.finish();
    if (version > schema::current) {
        database().rollback();
        m_error = tr("the history was written by a newer version of the bench tools");
        return false;
    }
    // Each step in a transaction of its own: an interrupted migration leaves the step before it.
    while (version < schema::current) {
        for (const QString &statement : schema::migration(version)) {
            if (!q.exec(schema::adapt(statement, m_server)))
                return fail(q);
        }
        ++version;
        if (!commit() || !begin())
            return false;
    }
    return commit();
}

int HistoryStore::schemaVersion()
{
    QSqlQuery q(database());
    if (!q.exec(QStringLiteral("SELECT value FROM history_meta WHERE name = 'schema'"))
        || !q.next())
        return 0;
    return q.value(0).toInt();
}

bool HistoryStore::add(HistoryRecord *r)
{
    if (r->uid.isEmpty())
        r->uid = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!begin())
        return false;
    QSqlQuery q(database());
    q.prepare(QStringLiteral(
        "INSERT INTO records (uid, kind, station, started, ended, identity, address, dialect, "
        "channel, channel_name, mode, cycles, end_state, step_count, steps, outcome, message, "
        "failed_step, upload_uid, sample_count, writer, sent) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0) RETURNING id"));
    const bool list = r->sequence.mode == List;
    const int steps = r->sequence.size();
    q.addBindValue(text(r->uid));
    q.addBindValue(r->kindName());
    q.addBindValue(text(r->station));
    q.addBindValue(stamp(r->started));
    q.addBindValue(r->ended.isValid() ? QVariant(stamp(r->ended)) : QVariant(QVariant::String));
    q.addBindValue(text(r->identity));
    q.addBindValue(text(r->address));
    q.addBindValue(text(r->dialect));
    q.addBindValue(r->channel);
    q.addBindValue(text(r->channelName));
    q.addBindValue(list ? QStringLiteral("list") : QStringLiteral("delayer"));
    q.addBindValue(r->sequence.cycles);
    q.addBindValue(text(r->sequence.endState));
    q.addBindValue(steps > 0 ? steps : r->stepCount);
    q.addBindValue(QString::fromLatin1(stepsText(r->sequence)));
    q.addBindValue(text(r->outcome));
    q.addBindValue(text(r->message));
    q.addBindValue(r->failedStep);
    q.addBindValue(r->uploadUid.isEmpty() ? QVariant(QVariant::String) : QVariant(r->uploadUid));
    q.addBindValue(r->samples.size());
    q.addBindValue(writer());
    if (!q.exec() || !q.next())
        return fail(q);
    r->id = q.value(0).toLongLong();
    q.finish();
    r->stepCount = steps > 0 ? steps : r->stepCount;
    r->sampleCount = r->samples.size();
    if (!r->samples.isEmpty()) {
        q.prepare(
            QStringLiteral("INSERT INTO trace_chunks (record_id, seq, data) VALUES (?, 0, ?)"));
        q.addBindValue(r->id);
        q.addBindValue(QString::fromLatin1(samplesText(r->samples)));
        if (!q.exec())
            return fail(q);
    }
    return commit();
}

bool HistoryStore::appendSamples(qint64 id, const QVector<host::RunSample> &samples)
{
    if (samples.isEmpty())
        return true;
    if (!begin())
        return false;
    QSqlQuery q(database());
    q.prepare(QStringLiteral("SELECT sample_count FROM records WHERE id = ?"));
    q.addBindValue(id);
    if (!q.exec() || !q.next())
        return fail(q);
    const qint64 first = q.value(0).toLongLong();
    q.finish();
    q.prepare(QStringLiteral("INSERT INTO trace_chunks (record_id, seq, data) VALUES (?, ?, ?)"));
    q.addBindValue(id);
    q.addBindValue(first);
    q.addBindValue(QString::fromLatin1(samplesText(samples)));
    if (!q.exec())
        return fail(q);
    q.prepare(QStringLiteral("UPDATE records SET sample_count = ? WHERE id = ?"));
    q.addBindValue(first + samples.size());
    q.addBindValue(id);
    if (!q.exec())
        return fail(q);
    return commit();
}

bool HistoryStore::finish(qint64 id,
                          const QString &outcome,
                          const QString &message,
                          const QDateTime &ended)
{
    if (!begin())
        return false;
    QSqlQuery q(database());
    q.prepare(
        QStringLiteral("UPDATE records SET outcome = ?, message = ?, ended = ? WHERE id = ?"));
    q.addBindValue(text(outcome));
    q.addBindValue(text(message));
    q.addBindValue(ended.isValid() ? QVariant(stamp(ended)) : QVariant(QVariant::String));
    q.addBindValue(id);
    if (!q.exec())
        return fail(q);
    return commit();
}

bool HistoryStore::contains(const QString &uid)
{
    QSqlQuery q(database());
    q.prepare(QStringLiteral("SELECT count(*) FROM records WHERE uid = ?"));
    q.addBindValue(uid);
    return q.exec() && q.next() && q.value(0).toInt() > 0;
}

QList<qint64> HistoryStore::unsent()
{
    QList<qint64> ids;
    QSqlQuery q(database());
    if (!q.exec(QStringLiteral(
            "SELECT id FROM records WHERE sent = 0 AND outcome <> 'running' ORDER BY id")))
        return ids;
    while (q.next())
        ids.append(q.value(0).toLongLong());
    return ids;
}

bool HistoryStore::markSent(qint64 id)
{
    QSqlQuery q(database());
    q.prepare(QStringLiteral("UPDATE records SET sent = 1 WHERE id = ?"));
    q.addBindValue(id);
    if (q.exec())
        return true;
    m_error = q.lastError().text();
    return false;
}

QList<HistoryRecord> HistoryStore::list(const HistoryFilter &filter)
{
    m_error.clear();
    QStringList where;
    QVariantList values;
    if (!filter.instrument.isEmpty()) {
        where << QStringLiteral("(LOWER(identity) LIKE ? ESCAPE '\\' OR LOWER(address) LIKE ? "
                                "ESCAPE '\\')");
        values << pattern(filter.instrument) << pattern(filter.instrument);
    }
    if (filter.channel > 0) {
        where << QStringLiteral("channel = ?");
        values << filter.channel;
    }
    if (!filter.outcome.isEmpty()) {
        where << QStringLiteral("outcome = ?");
        values << filter.outcome;
    }
    if (!filter.kind.isEmpty()) {
        where << QStringLiteral("kind = ?");
        values << filter.kind;
    }
    if (filter.since.isValid()) {
        where << QStringLiteral("started >= ?");
        values << stamp(filter.since);
    }
    if (filter.before.isValid()) {
        where << QStringLiteral("started < ?");
        values << stamp(filter.before);
    }
    if (!filter.text.isEmpty()) {
        where << QStringLiteral(
            "(LOWER(message) LIKE ? ESCAPE '\\' OR LOWER(identity) LIKE ? ESCAPE '\\' OR "
            "LOWER(address) LIKE ? ESCAPE '\\' OR LOWER(station) LIKE ? ESCAPE '\\' OR "
            "LOWER(channel_name) LIKE ? ESCAPE '\\')");
        for (int i = 0; i < 5; ++i)
            values << pattern(filter.text);
    }
    QString sql = QStringLiteral("SELECT %1 FROM records").arg(QLatin1String(summaryColumns));
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    sql += QStringLiteral(" ORDER BY started DESC, id DESC LIMIT ?");
    values << qMax(1, filter.limit);
    QSqlQuery q(database());
    q.setForwardOnly(true);
    q.prepare(sql);
    for (const QVariant &value : qAsConst(values))
        q.addBindValue(value);
    QList<HistoryRecord> found;
    if (!q.exec()) {
        m_error = q.lastError().text();
        return found;
    }
    while (q.next())
        found.append(summary(q));
    return found;
}

std::optional<HistoryRecord> HistoryStore::record(qint64 id, bool full)
{
    QSqlQuery q(database());
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT %1, steps FROM records WHERE id = ?")
                  .arg(QLatin1String(summaryColumns)));
    q.addBindValue(id);
    if (!q.exec() || !q.next()) {
        m_error = q.lastError().text();
        return std::nullopt;
    }
    HistoryRecord r = summary(q);
    if (!full)
        return r;
    readSteps(q.value(20).toString().toLatin1(), &r.sequence);
    q.prepare(QStringLiteral("SELECT data FROM trace_chunks WHERE record_id = ? ORDER BY seq"));
    q.addBindValue(id);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return std::nullopt;
    }
    r.samples.reserve(r.sampleCount);
    while (q.next())
        readSamples(q.value(0).toString().toLatin1(), &r.samples);
    return r;
}

qint64 HistoryStore::usedBytes()
{
    QSqlQuery q(database());
    if (m_server
        || !q.exec(QStringLiteral("SELECT (page_count - freelist_count) * page_size "
                                  "FROM pragma_page_count, pragma_freelist_count, "
                                  "pragma_page_size"))
        || !q.next())
        return 0;
    return q.value(0).toLongLong();
}

int HistoryStore::trim(qint64 limit, bool keepUnsent)
{
    int removed = 0;
    // Each round removes at least one record or ends: bounded by the records there are.
    while (usedBytes() > limit) {
        if (!begin())
            return removed;
        QSqlQuery q(database());
        // Runs first, oldest first; a run still being recorded is never removed.
        q.prepare(QStringLiteral(
            "SELECT id FROM records WHERE outcome <> 'running' AND (sent = 1 OR ? = 0) "
            "ORDER BY CASE WHEN kind = 'run' THEN 0 ELSE 1 END, started, id LIMIT 64"));
        q.addBindValue(keepUnsent ? 1 : 0);
        if (!q.exec()) {
            fail(q);
            return removed;
        }
        QList<qint64> ids;
        while (q.next())
            ids.append(q.value(0).toLongLong());
        q.finish();
        bool fits = false;
        for (int i = 0; i < ids.size() && !fits; ++i) {
            for (const char *sql : {"DELETE FROM trace_chunks WHERE record_id = ?",
                                    "DELETE FROM records WHERE id = ?"}) {
                q.prepare(QLatin1String(sql));
                q.addBindValue(ids.at(i));
                if (!q.exec()) {
                    fail(q);
                    return removed;
                }
            }
            ++removed;
            fits = usedBytes() <= limit;
        }
        if (!commit() || ids.isEmpty())
            return removed;
    }
    return removed;
}

int HistoryStore::closeAbandoned()
{
    // A run still "running" whose process on this machine is gone was cut off: killed, or the
    // machine stopped. Its samples up to the last write are kept.
    QSqlQuery q(database());
    if (!q.exec(QStringLiteral("SELECT id, writer FROM records WHERE outcome = 'running'")))
        return 0;
    const QString host = QSysInfo::machineHostName() + QLatin1Char(':');
    QList<qint64> cut;
    while (q.next()) {
        const QString writer = q.value(1).toString();
        if (!writer.startsWith(host))
            continue;
        const pid_t pid = static_cast<pid_t>(writer.mid(host.size()).toLongLong());
        if (pid > 0 && pid != ::getpid() && ::kill(pid, 0) != 0 && errno == ESRCH)
            cut.append(q.value(0).toLongLong());
    }
    q.finish();
    for (const qint64 id : qAsConst(cut))
        finish(id,
               QStringLiteral("cut-off"),
               tr("The recording ended without the run's end: the program stopped abruptly"),
               {});
    return cut.size();
}

} // namespace tarn::history
