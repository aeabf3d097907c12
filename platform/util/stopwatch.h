// A one-shot watchdog: armed with a time in milliseconds, it reports once when that time runs out.
#pragma once

#include "tarn2_util_export.h"

#include <QElapsedTimer>
#include <QObject>

namespace tarn2::util::gadget {

// StopWatch counts down from the time it was armed with and emits off() once with the milliseconds
// that actually elapsed. Arming again restarts the count; disarming cancels it silently. It lives
// in the thread that created it and needs that thread's event loop.
class TARN2_UTIL_EXPORT StopWatch : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(StopWatch)

public:
    explicit StopWatch(QObject *parent = nullptr);
    ~StopWatch() override;

    virtual void start(int msec);
    virtual void stop();

    bool isActive() const;

signals:
    void off(qint64 elapsed);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    int m_timerId = 0;
    QElapsedTimer m_elapsed;
};

} // namespace tarn2::util::gadget
