// The in-process simulated supply behind the link interface.
#include "simlink.h"

#include <commandinterpreter.h>
#include <supplyengine.h>

#include <QTimer>

namespace tarn::host {

SimLink::SimLink(const sim::InstrumentDescription &description, double speed, QObject *parent)
    : InstrumentLink(parent)
    , m_engine(std::make_unique<sim::SupplyEngine>(description))
    , m_interpreter(std::make_unique<sim::CommandInterpreter>(m_engine.get()))
    , m_speed(speed)
{
    m_engine->setSpeed(speed);
}

SimLink::~SimLink() = default;

void SimLink::open()
{
    beginOpen();
    m_open = true;
    QTimer::singleShot(0, this, [this] {
        if (m_open)
            emit opened();
    });
}

void SimLink::close()
{
    m_open = false;
    m_lines.clear();
}

void SimLink::write(const QByteArray &line)
{
    if (!m_open)
        return;
    m_lines.enqueue(line);
    if (!m_answering) {
        m_answering = true;
        QTimer::singleShot(0, this, &SimLink::answer);
    }
}

void SimLink::answer()
{
    m_answering = false;
    // Everything written so far is answered in one go, as a fast instrument would.
    QByteArray replies;
    while (m_open && !m_lines.isEmpty()) {
        if (const std::optional<QByteArray> reply = m_interpreter->execute(m_lines.dequeue()))
            replies += *reply + '\n';
    }
    if (!replies.isEmpty())
        receive(replies);
}

QString SimLink::address() const
{
    return m_speed == 1.0 ? QStringLiteral("sim:") : QStringLiteral("sim:?speed=%1").arg(m_speed);
}

} // namespace tarn::host
