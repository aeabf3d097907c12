// What one channel of an instrument accepts as a step, and the words for a step it does not take.
#pragma once

#include <instrumentdescription.h>

#include <QString>

#include <limits>
#include <optional>

namespace tarn2::specific::orvo5000::programmer {
class ListData;
class DelayerData;
} // namespace tarn2::specific::orvo5000::programmer

namespace tarn::host {

// What the connected instrument itself says one channel accepts: its ranges and the levels above
// which its output protection trips.
struct InstrumentLimits
{
    sim::Range voltage;
    sim::Range current;
    double overVoltage = 0.0; // V
    double overCurrent = 0.0; // A
};

// StepLimits is the one place that decides whether a step may reach an instrument: loads, pastes
// and the check before an upload all ask it, so a value refused by one is refused by all.
class StepLimits final
{
public:
    // `channel` is 0-based; a channel the description lacks accepts no voltage and no current.
    // What the instrument answered replaces the description's ranges and adds its protection.
    static StepLimits forChannel(const sim::InstrumentDescription &description,
                                 int channel,
                                 const std::optional<InstrumentLimits> &instrument = std::nullopt);

    // Empty when the step may be sent, else why not, in words ("voltage 99 V is above CH1's 30 V").
    QString problem(const tarn2::specific::orvo5000::programmer::ListData &step) const;
    QString problem(const tarn2::specific::orvo5000::programmer::DelayerData &step) const;

    QString channelName;
    sim::Range voltage;
    sim::Range current;
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
