// The error queue: bounded, oldest first, overflow reported in place of the newest entry.
#include "errorqueue.h"

#include "statusregisters.h"

namespace tarn::sim {

void ErrorQueue::push(ScpiError error, const QString &detail)
{
    m_raised |= StatusRegisters::eventBitOf(error);
    if (m_entries.size() < capacity) {
        m_entries.append({error, detail});
        return;
    }
    m_entries.last() = {ScpiError::QueueOverflow, {}};
}

ErrorQueue::Entry ErrorQueue::pop()
{
    if (m_entries.isEmpty())
        return {};
    return m_entries.takeFirst();
}

quint8 ErrorQueue::takeRaisedEvents()
{
    const quint8 bits = m_raised;
    m_raised = 0;
    return bits;
}

void ErrorQueue::clear()
{
    m_entries.clear();
}

QString ErrorQueue::format(const Entry &entry)
{
    QString text = scpiErrorText(entry.error);
    if (!entry.detail.isEmpty())
        text += QLatin1Char(';') + entry.detail;
    text.replace(QLatin1Char('"'), QLatin1Char('\''));
    return QStringLiteral("%1,\"%2\"").arg(static_cast<int>(entry.error)).arg(text);
}

} // namespace tarn::sim
