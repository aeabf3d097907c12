// Writing locally first, forwarding to the shared server, keeping the file bounded.
#include "history.h"

#include <QSettings>
#include <QSysInfo>

namespace tarn::history {

History::History(const HistoryLocation &location)
    : m_location(location)
    , m_sizeLimit(HistoryLocation::sizeLimitFromSettings())
{
    const QString station = QSettings(QStringLiteral("Tarn"), QStringLiteral("Bench Host"))
                                .value(QStringLiteral("history/station"))
                                .toString();
    m_station = station.isEmpty() ? QSysInfo::machineHostName() : station;
}

History::~History() = default;

bool History::open()
{
    if (!m_local.openFile(m_location.file)) {
        m_error = m_local.error();
        return false;
    }
    if (!m_local.notice().isEmpty())
        m_notices << m_local.notice();
    if (m_location.server)
        forward();
    return true;
}

QStringList History::takeNotices()
{
    QStringList notices;
    notices.swap(m_notices);
    return notices;
}

bool History::connectServer()
{
    if (m_server && m_server->isOpen())
        return true;
    m_server = std::make_unique<HistoryStore>();
    if (m_server->openServer(m_location))
        return true;
    m_error = m_server->error();
    m_server.reset();
    return false;
}

HistoryStore *History::reader()
{
    if (!m_location.server)
        return &m_local;
    return connectServer() ? m_server.get() : nullptr;
}

int History::forward()
{
    if (!m_location.server)
        return 0;
    const QList<qint64> waiting = m_local.unsent();
    if (waiting.isEmpty())
        return 0;
    int left = waiting.size();
    if (connectServer()) {
        for (const qint64 id : waiting) {
            std::optional<HistoryRecord> record = m_local.record(id, true);
            if (!record)
                break;
            // A record sent before its mark was written is not sent twice.
            if (!m_server->contains(record->uid) && !m_server->add(&*record)) {
                m_error = tr("the history server %1 stopped answering: %2")
                              .arg(m_location.display(), m_server->error());
                m_server.reset();
                break;
            }
            m_local.markSent(id);
            --left;
        }
    }
    if (left > 0) {
        m_notices << tr("%n record(s) wait in %1 until the history server is back", nullptr, left)
                         .arg(m_location.file);
        m_serverWasAway = true;
    } else if (m_serverWasAway) {
        m_notices << tr("the history server has every waiting record now");
        m_serverWasAway = false;
    }
    return left;
}

int History::recordFinished()
{
    const int left = forward();
    m_local.trim(m_sizeLimit, m_location.server);
    return left;
}

} // namespace tarn::history
