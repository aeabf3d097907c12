// The process-wide current option and channel, and the channel range look-ups that read them.
#pragma once

#include "records.h"

namespace tarn2::specific::orvo5000::programmer {

// Helper holds the option of the most recently constructed dialog. Models, editors, uploaders and
// generators read the option from here, never from a dialog, so a second dialog changes what the
// first one shows.
class TARN2_SPECIFIC_EXPORT Helper final
{
public:
    static Helper &getInstance();

    int currentChannel = 0; // 0-based, set by the List tab's channel choice
    Option option;

private:
    Helper() = default;
    Q_DISABLE_COPY(Helper)
};

// The ranges of the current option's channel at 0-based index `channel`. The references stay valid
// until the next dialog is constructed. An index outside the channels, or a channel with too few
// ranges, yields a shared (0, 0) range instead of reading past the end.
TARN2_SPECIFIC_EXPORT const QVector<QPair<double, double>> &getChannelRange(int channel);
TARN2_SPECIFIC_EXPORT const QPair<double, double> &getVRangeOfChannel(int channel);
TARN2_SPECIFIC_EXPORT const QPair<double, double> &getCRangeOfChannel(int channel);

// True when the current option has a channel at `channel` with both a voltage and a current range.
TARN2_SPECIFIC_EXPORT bool hasChannelRanges(int channel);

} // namespace tarn2::specific::orvo5000::programmer
