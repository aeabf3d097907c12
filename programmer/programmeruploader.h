// The common walk of an upload: hands out the steps of a sequence one at a time under a watchdog.
#pragma once

#include "records.h"
#include "tarn2_specific_export.h"

#include <QObject>
#include <QString>

namespace tarn2::util::gadget {
class StopWatch;
}

namespace tarn2::specific::orvo5000::programmer {

// ProgrammerUploader walks a step list for whoever talks to the instrument. start() announces the
// number of steps, every next() hands out one step through nextData() and gives the handler 500 ms
// to ask for the following one before error() reports a time-out. After the last step next()
// answers with finished() until stop() ends the run: ending a run is always the caller's decision,
// so neither finished() nor error() leaves the running state. Derived kinds supply the list.
class TARN2_SPECIFIC_EXPORT ProgrammerUploader : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ProgrammerUploader)

public:
    ~ProgrammerUploader() override;

    virtual void start();
    virtual void next();
    virtual void stop();
    // The number of steps a run hands out, read afresh on every call.
    virtual int getDataCount() const = 0;

    bool isRunning() const { return running; }

signals:
    // The step types are spelled out in full so that the meta-object can resolve them by name.
    void started(int dataCount);
    void nextData(int dataIndex, const tarn2::specific::orvo5000::programmer::ProgrammerData &data);
    void finished();
    void error(const QString &e);
    void stoped();

protected:
    explicit ProgrammerUploader(QObject *parent);

    // Emits nextData() for the step at currentIndex(), or nothing when the list no longer holds it.
    virtual void processNextData() = 0;

    int currentIndex() const { return index; }
    // The smaller of the list's size and the current option's maxCount; a negative maxCount counts
    // as no room at all.
    static int boundedCount(int listSize);

private:
    bool running = false;
    tarn2::util::gadget::StopWatch *stopWatch = nullptr; // owned; no parent, deleted with us
    int index = 0;
};

} // namespace tarn2::specific::orvo5000::programmer
