// The upload state machine shared by the List and Delayer uploaders.
#include "programmeruploader.h"

#include "helper.h"

#include <stopwatch.h>

#include <QMetaType>
#include <QPointer>

#include <algorithm>

namespace tarn2::specific::orvo5000::programmer {

namespace {
// How long the handler of a step may take before it counts as stalled.
constexpr int stepTimeoutMsec = 500;
} // namespace

ProgrammerUploader::ProgrammerUploader(QObject *parent)
    : QObject(parent)
    , stopWatch(new tarn2::util::gadget::StopWatch(nullptr))
{
    // Queued connections of nextData() look the step type up under the name with the reference.
    qRegisterMetaType<ProgrammerData>("tarn2::specific::orvo5000::programmer::ProgrammerData");
    qRegisterMetaType<ProgrammerData>("tarn2::specific::orvo5000::programmer::ProgrammerData&");

    // A time-out only reports: whether the run ends is up to the handler.
    connect(stopWatch, &tarn2::util::gadget::StopWatch::off, this, [this](qint64) {
        emit error(tr("The upload timed out"));
    });
}

ProgrammerUploader::~ProgrammerUploader()
{
    delete stopWatch;
}

void ProgrammerUploader::start()
{
    if (running)
        return;
    const int count = getDataCount();
    if (count != 0) {
        running = true;
        index = 0;
    }
    // Also for an empty run, so that the caller learns that there is nothing to send.
    emit started(count);
}

void ProgrammerUploader::next()
{
    if (!running)
        return;
    if (index >= getDataCount()) {
        // The watchdog armed by the last step keeps running: finished() does not end the run.
        emit finished();
        return;
    }

    // A handler may stop or even delete us while the step is out.
    const QPointer<ProgrammerUploader> alive(this);
    processNextData();
    if (!alive)
        return;
    // The index moves only after the step was handed out; a handler that calls next() from
    // within nextData() therefore gets the same step again.
    ++index;
    // A run stopped from within the handler must not report a time-out later.
    if (running)
        stopWatch->start(stepTimeoutMsec);
}

void ProgrammerUploader::stop()
{
    if (!running)
        return;
    running = false;
    stopWatch->stop();
    emit stoped();
}

int ProgrammerUploader::boundedCount(int listSize)
{
    const int maxCount = Helper::getInstance().option.maxCount;
    return std::max(0, std::min(listSize, maxCount));
}

} // namespace tarn2::specific::orvo5000::programmer
