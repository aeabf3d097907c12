// One-shot watchdog timer on top of QObject's own timers (no QTimer object per watch).
#include "stopwatch.h"

#include <QTimerEvent>

namespace tarn2::util::gadget {

StopWatch::StopWatch(QObject *parent)
    : QObject(parent)
{}

StopWatch::~StopWatch() = default;

void StopWatch::start(int msec)
{
    stop();
    m_elapsed.start();
    m_timerId = startTimer(qMax(0, msec), Qt::PreciseTimer);
}

void StopWatch::stop()
{
    if (m_timerId != 0) {
        killTimer(m_timerId);
        m_timerId = 0;
    }
}

bool StopWatch::isActive() const
{
    return m_timerId != 0;
}

void StopWatch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timerId) {
        QObject::timerEvent(event);
        return;
    }
    // Disarm before emitting: a handler may arm the watch again.
    stop();
    emit off(m_elapsed.elapsed());
}

} // namespace tarn2::util::gadget
