// The bench instrument.

#include "common.h"

#include "helper.h"

using namespace tarn2::specific::orvo5000::programmer;

namespace figures {

Option benchOption()
{
    Option option{
        QStringLiteral("Bench Figures"), 3, 0.001, 99999, 3, 3, {}, 1000000, true, true, true};
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    return option;
}

void useBenchOption()
{
    Helper::getInstance().option = benchOption();
    Helper::getInstance().currentChannel = 0;
}

} // namespace figures
