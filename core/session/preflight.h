// The check of a whole sequence against the instrument before any of its steps is sent.
#pragma once

#include <QList>
#include <QString>

namespace tarn2::specific::orvo5000::programmer {
class ListData;
class DelayerData;
} // namespace tarn2::specific::orvo5000::programmer

namespace tarn::host {

class StepLimits;

// Preflight counts the steps the channel would refuse and names the first of them; an upload
// goes ahead only when there are none.
class Preflight final
{
public:
    static Preflight check(const QList<tarn2::specific::orvo5000::programmer::ListData> &steps,
                           const StepLimits &limits);
    static Preflight check(const QList<tarn2::specific::orvo5000::programmer::DelayerData> &steps,
                           const StepLimits &limits);

    bool passed() const { return badCount == 0; }
    // "Not uploaded: 3 steps cannot be sent to CH1; the first is step 4: voltage ..."
    QString refusal() const;

    int badCount = 0;
    int firstBad = -1; // 0-based, as the table numbers steps
    QString firstProblem;
    QString channelName;
};

} // namespace tarn::host
