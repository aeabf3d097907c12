// The limits of a channel as the description and the instrument give them.
#include "channellimits.h"

#include <QObject>

namespace tarn::host {

StepLimits stepLimitsFor(const sim::InstrumentDescription &description,
                         int channel,
                         const std::optional<InstrumentLimits> &instrument)
{
    StepLimits limits;
    if (channel >= 0 && channel < description.channels.size()) {
        const sim::ChannelDescription &c = description.channels.at(channel);
        limits.channelName = c.name;
        limits.voltage = c.voltage;
        limits.current = c.current;
    } else {
        limits.channelName = QObject::tr("channel %1").arg(channel + 1);
        // Nothing fits a channel that is not there.
        limits.voltage = {1.0, -1.0};
        limits.current = {1.0, -1.0};
    }
    if (instrument) {
        limits.voltage = instrument->voltage;
        limits.current = instrument->current;
        limits.overVoltage = instrument->overVoltage;
        limits.overCurrent = instrument->overCurrent;
    }
    limits.timeMin = description.timeMin;
    limits.timeMax = description.timeMax;
    limits.maxCount = description.maxCount;
    return limits;
}

} // namespace tarn::host
