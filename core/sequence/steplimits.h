// What one channel of an instrument accepts as a step, and the words for a step it does not take.
#pragma once

#include "tarn2_specific_export.h"

#include <QString>

#include <limits>

namespace tarn2::specific::orvo5000::programmer {
class ListData;
class DelayerData;
} // namespace tarn2::specific::orvo5000::programmer

namespace tarn::host {

// The lowest and the highest value a quantity may take, in its unit.
struct Range
{
    double min = 0.0;
    double max = 0.0;
};

// StepLimits is the one place that decides whether a step may reach an instrument: loads, pastes
// and the check before an upload all ask it, so a value refused by one is refused by all.
class TARN2_SPECIFIC_EXPORT StepLimits final
{
public:
    // Empty when the step may be sent, else why not, in words ("voltage 99 V is above CH1's 30 V").
    QString problem(const tarn2::specific::orvo5000::programmer::ListData &step) const;
    QString problem(const tarn2::specific::orvo5000::programmer::DelayerData &step) const;

    QString channelName;
    Range voltage;
    Range current;
    // A step above these would trip the output, so the instrument would not play it through.
    double overVoltage = std::numeric_limits<double>::infinity();
    double overCurrent = std::numeric_limits<double>::infinity();
    double timeMin = 0.0;
    double timeMax = 0.0;
    int maxCount = 0;

private:
    QString timeProblem(double time) const;
};

} // namespace tarn::host
