// The instrument most tests hand the dialog, built by name so that a test that needs another one
// says which field it changes.
#pragma once

#include <records.h>

#include <QString>

namespace tarn2::specific::orvo5000::programmer::test {

// A channel regulating 0..maxVolts V and 0..maxAmps A.
inline Channel channel(const QString &name, double maxVolts, double maxAmps)
{
    Channel made;
    made.name = name;
    made.ranges = {{0.0, maxVolts}, {0.0, maxAmps}};
    return made;
}

// Millisecond times from 0.001 s to 99999 s, three decimals for volts and amps, room for 2048
// steps, every permission given, and four channels: CH1..CH3 of 32 V / 3.2 A and a smaller CH4 of
// 10 V / 1 A.
inline Option benchOption()
{
    Option option;
    option.name = QStringLiteral("Bench Supply");
    option.timeDecimals = 3;
    option.timeMin = 0.001;
    option.timeMax = 99999;
    option.voltageDecimals = 3;
    option.currentDecimals = 3;
    option.maxCount = 2048;
    option.saveEnabled = true;
    option.loadEnabled = true;
    option.uploadEnabled = true;
    for (int i = 1; i <= 3; ++i)
        option.channels.append(channel(QStringLiteral("CH%1").arg(i), 32.0, 3.2));
    option.channels.append(channel(QStringLiteral("CH4"), 10.0, 1.0));
    return option;
}

} // namespace tarn2::specific::orvo5000::programmer::test
