// Reply line assembly and failure reporting shared by every link.
#include "instrumentlink.h"

#include <QPointer>

namespace tarn::host {

InstrumentLink::InstrumentLink(QObject *parent)
    : QObject(parent)
{}

InstrumentLink::~InstrumentLink() = default;

void InstrumentLink::beginOpen()
{
    m_lines = sim::LineBuffer(m_bound);
    m_failed = false;
}

void InstrumentLink::receive(const QByteArray &bytes)
{
    // A handler may close or delete the link while lines are handed out.
    QPointer<InstrumentLink> alive(this);
    QList<QByteArray> lines;
    bool overrun = false;
    m_lines.feed(
        bytes.constData(),
        bytes.size(),
        [&lines](const QByteArray &line) { lines.append(line); },
        [&overrun] { overrun = true; });
    for (const QByteArray &line : qAsConst(lines)) {
        if (!alive)
            return;
        emit lineReceived(line);
    }
    if (overrun && alive)
        fail(tr("The instrument sent a reply longer than %1 bytes").arg(m_bound));
    else if (alive && m_lines.pending() > 0)
        emit replyGrew();
}

void InstrumentLink::fail(const QString &reason)
{
    if (m_failed)
        return;
    m_failed = true;
    close();
    emit failed(reason);
}

} // namespace tarn::host
