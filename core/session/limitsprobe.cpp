// The connect-time questions about each channel's limits.
#include "limitsprobe.h"

#include "commandchannel.h"
#include "replyparser.h"

#include <algorithm>

namespace tarn::host {

namespace {
// The selected channel, four range bounds, two protection levels and the closing *OPC?.
constexpr int replyFields = 8;
} // namespace

LimitsProbe::LimitsProbe(CommandChannel *channel, const CommandSet &commands, QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_commands(commands)
{}

LimitsProbe::~LimitsProbe() = default;

QByteArray LimitsProbe::line(int channel) const
{
    // The selected channel comes back first: a selection the instrument refused would otherwise
    // pass off another channel's limits as this one's.
    return QByteArrayList{m_commands.line("selectChannel", {QByteArray::number(channel)}),
                          m_commands.line("selectedChannel"),
                          m_commands.line("voltageLimit", {QByteArray("MIN")}),
                          m_commands.line("voltageLimit", {QByteArray("MAX")}),
                          m_commands.line("currentLimit", {QByteArray("MIN")}),
                          m_commands.line("currentLimit", {QByteArray("MAX")}),
                          m_commands.line("voltageProtection"),
                          m_commands.line("currentProtection"),
                          m_commands.line("complete")}
        .join(';');
}

std::optional<InstrumentLimits> LimitsProbe::read(const QByteArray &reply, int channel)
{
    const QList<QByteArray> fields = reply.split(';');
    if (fields.size() != replyFields || fields.constLast().trimmed() != "1")
        return std::nullopt;
    bool ok = false;
    if (fields.at(0).trimmed().toInt(&ok) != channel || !ok)
        return std::nullopt;
    double values[replyFields - 2];
    for (int i = 0; i < replyFields - 2; ++i) {
        const auto value = reply::parseValue(fields.at(i + 1));
        if (!value || *value < 0.0)
            return std::nullopt;
        values[i] = *value;
    }
    if (values[0] >= values[1] || values[2] >= values[3])
        return std::nullopt;
    return InstrumentLimits{{values[0], values[1]}, {values[2], values[3]}, values[4], values[5]};
}

void LimitsProbe::start(int count)
{
    clear();
    m_limits.resize(count);
    m_waiting = count;
    if (count == 0) {
        end();
        return;
    }
    const int generation = m_generation;
    for (int channel = 1; channel <= count; ++channel) {
        m_channel->query(line(channel), this, [this, channel, generation](const QByteArray &reply) {
            if (generation != m_generation)
                return;
            m_limits[channel - 1] = read(reply, channel);
            if (--m_waiting == 0)
                end();
        });
    }
}

void LimitsProbe::clear()
{
    ++m_generation;
    m_waiting = 0;
    m_limits.clear();
}

void LimitsProbe::replyTimedOut()
{
    if (!isActive())
        return;
    ++m_generation;
    m_waiting = 0;
    end();
}

void LimitsProbe::end()
{
    // Every query the instrument did not know left an error in its queue; they are the host's
    // doing, not the user's, and would otherwise be shown as errors waiting.
    if (!std::all_of(
            m_limits.cbegin(), m_limits.cend(), [](const auto &l) { return l.has_value(); }))
        m_channel->send(m_commands.line("clearStatus"));
    emit finished();
}

std::optional<InstrumentLimits> LimitsProbe::limits(int channel) const
{
    return channel >= 1 && channel <= m_limits.size() ? m_limits.at(channel - 1) : std::nullopt;
}

bool LimitsProbe::answeredAny() const
{
    return std::any_of(
        m_limits.cbegin(), m_limits.cend(), [](const auto &l) { return l.has_value(); });
}

} // namespace tarn::host
