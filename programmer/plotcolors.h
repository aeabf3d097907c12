// The two plot colours of the module: voltage blue, current red.
#pragma once

#include <QColor>

namespace tarn2::specific::orvo5000::programmer {

inline QColor voltageColor()
{
    return QColor(0x00, 0x00, 0xff);
}

inline QColor currentColor()
{
    return QColor(0xff, 0x00, 0x00);
}

} // namespace tarn2::specific::orvo5000::programmer
