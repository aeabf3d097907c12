// A sequence the host uploaded and verified: what the instrument now holds on one channel.
#pragma once

#include <records.h>

#include <QList>
#include <QString>

namespace tarn::host {

struct UploadedSequence
{
    bool list = true;
    int channel = 0; // from 1
    QString channelName;
    int cycles = 1; // 0 repeats without end
    QString endState;
    QList<tarn2::specific::orvo5000::programmer::ListData> listSteps;
    QList<tarn2::specific::orvo5000::programmer::DelayerData> delayerSteps;
    // Which verification this is, counted by the run session; a trace belongs to one of them.
    quint64 serial = 0;

    int stepCount() const { return list ? listSteps.size() : delayerSteps.size(); }
    double stepTime(int index) const
    {
        return list ? listSteps.at(index).time : delayerSteps.at(index).time;
    }
    double cycleSeconds() const;
    // "List on CH1: 30 steps, 3 cycles" as the run view lists it.
    QString title() const;
};

} // namespace tarn::host
