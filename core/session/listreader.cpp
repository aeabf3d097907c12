// Reading a List back as one line of steps or as three arrays in pieces.
#include "listreader.h"

#include "commandchannel.h"
#include "replyparser.h"

namespace tarn::host {

using tarn2::specific::orvo5000::programmer::ListData;

ListReader::ListReader(CommandChannel *channel,
                       const sim::InstrumentDescription &description,
                       const CommandSet &commands,
                       QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_description(description)
    , m_commands(commands)
{}

ListReader::~ListReader() = default;

void ListReader::read(Handler handler)
{
    m_handler = std::move(handler);
    const quint64 reading = ++m_reading;
    const int bound = m_description.maxCount;
    if (!m_description.listArrays.used()) {
        m_channel->query(
            m_commands.line("listData"), this, [this, bound, reading](const QByteArray &line) {
                if (reading == m_reading)
                    finish(reply::parseListData(line, bound));
            });
        return;
    }
    m_channel->query(
        m_commands.line("listCount"), this, [this, bound, reading](const QByteArray &line) {
            if (reading != m_reading)
                return;
            const auto count = reply::parseCount(line, bound);
            if (count)
                readArrays(*count, reading);
            else
                finish(std::nullopt);
        });
}

void ListReader::readArrays(int count, quint64 reading)
{
    const sim::ListArrays &words = m_description.listArrays;
    m_count = count;
    m_broken = false;
    m_piecesLeft = 0;
    for (QVector<double> &values : m_values)
        values.clear();
    if (count == 0) {
        finish(Steps());
        return;
    }
    const QString *read[3] = {&words.readVoltage, &words.readCurrent, &words.readTime};
    for (int first = 0; first < count; first += words.maxValues) {
        const int size = qMin(words.maxValues, count - first);
        for (int quantity = 0; quantity < 3; ++quantity) {
            ++m_piecesLeft;
            const QByteArray line = read[quantity]->arg(first + 1).arg(size).toUtf8();
            m_channel->query(line, this, [this, quantity, size, reading](const QByteArray &reply) {
                if (reading != m_reading)
                    return;
                const auto values = reply::parseValues(reply, size);
                if (values)
                    m_values[quantity] += *values;
                else
                    m_broken = true;
                if (--m_piecesLeft == 0) {
                    if (m_broken) {
                        finish(std::nullopt);
                        return;
                    }
                    Steps steps;
                    steps.reserve(m_count);
                    for (int i = 0; i < m_count; ++i)
                        steps.append(
                            ListData(m_values[0].at(i), m_values[1].at(i), m_values[2].at(i)));
                    finish(steps);
                }
            });
        }
    }
}

void ListReader::finish(const std::optional<Steps> &steps)
{
    ++m_reading;
    const Handler handler = m_handler;
    if (handler)
        handler(steps);
}

} // namespace tarn::host
