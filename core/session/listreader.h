// Reading back the List a channel holds, in whichever form the instrument takes Lists.
#pragma once

#include "commandset.h"

#include <instrumentdescription.h>
#include <records.h>

#include <QObject>

#include <functional>
#include <optional>

namespace tarn::host {

class CommandChannel;

// ListReader asks for the selected channel's List: in one reply (LIST:DATA?) from an instrument
// that takes steps one by one, or, from one that takes arrays, its count and then each quantity in
// pieces of the description's size, all queries written at once. The answer comes once, through
// the handler, and only if the reader still lives; nothing when a reply could not be read.
class ListReader final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ListReader)

public:
    using Steps = QList<tarn2::specific::orvo5000::programmer::ListData>;
    using Handler = std::function<void(const std::optional<Steps> &)>;

    ListReader(CommandChannel *channel,
               const sim::InstrumentDescription &description,
               const CommandSet &commands,
               QObject *parent = nullptr);
    ~ListReader() override;

    void read(Handler handler);

private:
    void readArrays(int count, quint64 reading);
    void finish(const std::optional<Steps> &steps);

    CommandChannel *m_channel;
    sim::InstrumentDescription m_description;
    CommandSet m_commands;
    Handler m_handler;
    quint64 m_reading = 0; // replies to an earlier read are ignored
    QVector<double> m_values[3];
    int m_count = 0;
    int m_piecesLeft = 0;
    bool m_broken = false;
};

} // namespace tarn::host
