// From description to Option.
#include "instrumentoption.h"

#include <instrumentdescription.h>

namespace tarn::host {

tarn2::specific::orvo5000::programmer::Option
optionFor(const sim::InstrumentDescription &description)
{
    tarn2::specific::orvo5000::programmer::Option option;
    option.name = description.model;
    option.timeDecimals = description.timeDecimals;
    option.timeMin = description.timeMin;
    option.timeMax = description.timeMax;
    option.voltageDecimals = description.voltageDecimals;
    option.currentDecimals = description.currentDecimals;
    for (const sim::ChannelDescription &channel : description.channels) {
        option.channels.append({channel.name,
                                {{channel.voltage.min, channel.voltage.max},
                                 {channel.current.min, channel.current.max}}});
    }
    option.maxCount = description.maxCount;
    option.saveEnabled = true;
    option.loadEnabled = true;
    option.uploadEnabled = true;
    return option;
}

} // namespace tarn::host
