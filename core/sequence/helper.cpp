// The process-wide current option and the channel range look-ups.
#include "helper.h"

namespace tarn2::specific::orvo5000::programmer {

namespace {
const QVector<QPair<double, double>> &emptyRanges()
{
    static const QVector<QPair<double, double>> none;
    return none;
}
const QPair<double, double> &zeroRange()
{
    static const QPair<double, double> zero(0.0, 0.0);
    return zero;
}
} // namespace

Helper &Helper::getInstance()
{
    static Helper instance;
    return instance;
}

const QVector<QPair<double, double>> &getChannelRange(int channel)
{
    const QVector<Channel> &channels = Helper::getInstance().option.channels;
    if (channel < 0 || channel >= channels.size())
        return emptyRanges();
    return channels.at(channel).ranges;
}

const QPair<double, double> &getVRangeOfChannel(int channel)
{
    const auto &ranges = getChannelRange(channel);
    return ranges.isEmpty() ? zeroRange() : ranges.at(0);
}

const QPair<double, double> &getCRangeOfChannel(int channel)
{
    const auto &ranges = getChannelRange(channel);
    return ranges.size() < 2 ? zeroRange() : ranges.at(1);
}

bool hasChannelRanges(int channel)
{
    return getChannelRange(channel).size() >= 2;
}

} // namespace tarn2::specific::orvo5000::programmer
