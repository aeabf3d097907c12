// Writing a sequence ahead of its confirmations, and reading it back.
#include "uploadsession.h"

#include "commandchannel.h"
#include "listreader.h"
#include "replyparser.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

// The values go out in full, as the shortest text that reads back as the same double: the
// instrument, not the host, decides what it accepts and how it rounds.
QByteArray shortest(double value)
{
    char text[32];
    const auto result = std::to_chars(std::begin(text), std::end(text), value);
    return QByteArray(text, static_cast<int>(result.ptr - text));
}

qint64 stored(double value, int decimals)
{
    return std::llround(value * std::pow(10.0, decimals));
}

} // namespace

UploadSession::UploadSession(CommandChannel *channel,
                             const sim::InstrumentDescription &description,
                             const CommandSet &commands,
                             QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_description(description)
    , m_commands(commands)
    , m_reader(new ListReader(channel, description, commands, this))
{
    qRegisterMetaType<tarn::host::UploadOutcome>();
}

UploadSession::~UploadSession() = default;

const char *UploadSession::key(const char *list, const char *delayer) const
{
    return m_list ? list : delayer;
}

QString UploadSession::number(double value, int decimals) const
{
    // Rounded as the instrument stores it; -0.000 and 0.000 are the same stored value.
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(value * scale) / scale;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', decimals);
}

QString UploadSession::describe(const ListData &step) const
{
    return tr("%1 V, %2 A, %3 s")
        .arg(number(step.voltage, m_description.voltageDecimals),
             number(step.current, m_description.currentDecimals),
             number(step.time, m_description.timeDecimals));
}

QString UploadSession::describe(const DelayerData &step) const
{
    return tr("%1 for %2 s")
        .arg(step.state ? tr("On") : tr("Off"), number(step.time, m_description.timeDecimals));
}

void UploadSession::begin(const UploadParam &param)
{
    m_param = param;
    m_began = QDateTime::currentDateTimeUtc();
    m_channelName.clear();
    m_list = param.mode == UploadMode::List;
    m_total = param.maxCount;
    m_sent = 0;
    m_confirmed = 0;
    m_pieceStart = 0;
    m_waitingForWindow = false;
    m_listSent.clear();
    m_delayerSent.clear();
    m_clock.start();
    m_phase = Phase::Sending;

    if (!m_channel->link()) {
        end({false, tr("Not connected to an instrument: connect first, then upload"), -1, -1},
            UploadEnd::NotConnected);
        return;
    }
    if (param.channel < 1 || param.channel > m_description.channels.size()) {
        end({false, tr("This instrument has no channel %1").arg(param.channel), -1, -1},
            UploadEnd::BadRequest);
        return;
    }
    m_channelName = m_description.channels.at(param.channel - 1).name;
    m_channel->send(m_commands.line("clearStatus"));
    m_channel->send(m_commands.line("selectChannel", {QString::number(param.channel)}));
    m_channel->send(m_commands.line(key("listClear", "delayerClear")));
    m_channel->send(
        m_commands.line(key("listRepeat", "delayerRepeat"), {QString::number(param.cycles)}));
    m_channel->send(m_commands.line(key("listEnd", "delayerEnd"), {param.endState}));
    // Settings the instrument refuses are named as such, not blamed on the first step.
    m_channel->query(m_commands.line("nextError"), this, [this](const QByteArray &line) {
        if (m_phase != Phase::Sending && m_phase != Phase::Verifying)
            return;
        const auto error = reply::parseError(line);
        if (!error || error->code != 0)
            end({false,
                 tr("The instrument refused the upload's settings: %1")
                     .arg(error ? QStringLiteral("%1, %2").arg(error->code).arg(error->text)
                                : QString::fromUtf8(line.left(200))),
                 -1,
                 -1},
                UploadEnd::Refused);
    });
    emit nextWanted();
}

void UploadSession::step(int index, const ProgrammerData &data)
{
    if (m_phase != Phase::Sending)
        return;
    const int pieceSize = m_description.listArrays.maxValues;
    if (m_list && pieceSize > 0) {
        m_listSent.append(static_cast<const ListData &>(data));
        m_sent = index + 1;
        if (m_sent - m_pieceStart >= pieceSize || m_sent >= m_total)
            sendPiece();
        if (m_sent >= m_total || m_sent - m_confirmed < windowSize())
            emit nextWanted();
        else
            m_waitingForWindow = true;
        return;
    }
    if (m_list) {
        const auto &s = static_cast<const ListData &>(data);
        m_listSent.append(s);
        m_channel->send(m_commands.line("listStep",
                                        {QByteArray::number(index + 1),
                                         shortest(s.voltage),
                                         shortest(s.current),
                                         shortest(s.time)}));
    } else {
        const auto &s = static_cast<const DelayerData &>(data);
        m_delayerSent.append(s);
        m_channel->send(m_commands.line(
            "delayerStep",
            {QByteArray::number(index + 1), QByteArray(s.state ? "ON" : "OFF"), shortest(s.time)}));
    }
    m_sent = index + 1;
    if (m_sent % syncEvery == 0 || m_sent >= m_total)
        sync(m_sent);
    if (m_sent >= m_total || m_sent - m_confirmed < window)
        emit nextWanted();
    else
        m_waitingForWindow = true;
}

int UploadSession::windowSize() const
{
    // A piece goes only once it is whole, so the window must hold more than one.
    return qMax(window, 2 * m_description.listArrays.maxValues);
}

void UploadSession::sendPiece()
{
    const sim::ListArrays &words = m_description.listArrays;
    const bool first = m_pieceStart == 0;
    QByteArray values[3];
    for (int i = m_pieceStart; i < m_sent; ++i) {
        const ListData &step = m_listSent.at(i);
        const char *separator = i == m_pieceStart ? "" : ",";
        values[0] += separator + shortest(step.voltage);
        values[1] += separator + shortest(step.current);
        values[2] += separator + shortest(step.time);
    }
    const QString *write[3] = {first ? &words.writeVoltage : &words.appendVoltage,
                               first ? &words.writeCurrent : &words.appendCurrent,
                               first ? &words.writeTime : &words.appendTime};
    for (int quantity = 0; quantity < 3; ++quantity)
        m_channel->send(write[quantity]->arg(QString::fromLatin1(values[quantity])).toUtf8());
    sync(m_sent, m_pieceStart);
    m_pieceStart = m_sent;
}

void UploadSession::sync(int upTo, int from)
{
    m_channel->query(
        m_commands.line("nextError"), this, [this, upTo, from](const QByteArray &line) {
            if (m_phase != Phase::Sending && m_phase != Phase::Verifying)
                return;
            const auto error = reply::parseError(line);
            if (!error) {
                end({false,
                     tr("The instrument's error reply could not be read: %1")
                         .arg(QString::fromUtf8(line.left(200))),
                     -1,
                     -1},
                    UploadEnd::Unreadable);
                return;
            }
            if (error->code != 0) {
                refused(QStringLiteral("%1, %2").arg(error->code).arg(error->text), from, upTo);
                return;
            }
            m_confirmed = qMax(m_confirmed, upTo);
            const qint64 elapsed = m_clock.elapsed();
            const qint64 left
                = m_confirmed > 0 ? elapsed * (m_total - m_confirmed) / m_confirmed : -1;
            emit progressed(m_confirmed, m_total, left);
            if (m_waitingForWindow && m_sent - m_confirmed < windowSize()) {
                m_waitingForWindow = false;
                emit nextWanted();
            }
        });
}

void UploadSession::refused(const QString &error, int from, int upTo)
{
    m_phase = Phase::Ending;
    m_channel->forget();
    // Steps are appended in order, so the instrument's count tells which one it refused.
    m_channel->query(
        m_commands.line(key("listCount", "delayerCount")),
        this,
        [this, error, from, upTo](const QByteArray &line) {
            const auto held = reply::parseCount(line, m_description.maxCount);
            m_channel->send(m_commands.line("clearStatus"));
            if (!held) {
                end({false, tr("The instrument refused a step: %1").arg(error), -1, -1},
                    UploadEnd::Refused);
                return;
            }
            // A piece of arrays is taken or refused whole: name it, not the step the count
            // points at.
            if (from >= 0) {
                end({false,
                     tr("Steps %1 to %2 were refused by the instrument: %3 (it holds %4 of %5 "
                        "steps)")
                         .arg(from + 1)
                         .arg(upTo)
                         .arg(error)
                         .arg(*held)
                         .arg(m_total),
                     from,
                     *held},
                    UploadEnd::Refused);
                return;
            }
            end({false,
                 // The row's number, as the table shows it; the instrument's own words, which
                 // count from 1, are quoted as its own.
                 tr("Step No. %1 was refused (the instrument holds %2 of %3 steps); the "
                    "instrument says: “%4”")
                     .arg(*held)
                     .arg(*held)
                     .arg(m_total)
                     .arg(error),
                 *held,
                 *held},
                UploadEnd::Refused);
        });
    emit stopWanted();
}

void UploadSession::finish()
{
    if (m_phase != Phase::Sending)
        return;
    if (m_list && m_description.listArrays.used() && m_pieceStart < m_sent)
        sendPiece();
    m_phase = Phase::Verifying;
    if (m_list) {
        m_reader->read([this](const std::optional<QList<ListData>> &held) { verifyList(held); });
        return;
    }
    m_channel->query(
        m_commands.line("delayerData"), this, [this](const QByteArray &line) { verify(line); });
}

void UploadSession::verifyList(const std::optional<QList<ListData>> &held)
{
    if (m_phase != Phase::Verifying)
        return;
    if (held)
        compare(*held);
    else
        end({false, tr("The instrument's read-back could not be read"), -1, -1},
            UploadEnd::Mismatch);
}

QString UploadSession::stepText(int index) const
{
    return m_list ? describe(m_listSent.at(index)) : describe(m_delayerSent.at(index));
}

bool UploadSession::sameAsStored(int index, const ListData &held) const
{
    const ListData &sent = m_listSent.at(index);
    const sim::InstrumentDescription &d = m_description;
    return stored(sent.voltage, d.voltageDecimals) == stored(held.voltage, d.voltageDecimals)
           && stored(sent.current, d.currentDecimals) == stored(held.current, d.currentDecimals)
           && stored(sent.time, d.timeDecimals) == stored(held.time, d.timeDecimals);
}

bool UploadSession::sameAsStored(int index, const DelayerData &held) const
{
    const DelayerData &sent = m_delayerSent.at(index);
    return sent.state == held.state
           && stored(sent.time, m_description.timeDecimals)
                  == stored(held.time, m_description.timeDecimals);
}

void UploadSession::verify(const QByteArray &line)
{
    if (m_phase != Phase::Verifying)
        return;
    const auto steps = reply::parseDelayerData(line, m_description.maxCount);
    if (steps)
        compare(*steps);
    else
        end({false, tr("The instrument's read-back could not be read"), -1, -1},
            UploadEnd::Mismatch);
}

// tr() is qualified here because lupdate reads the template parameter as the class that
// translates.
template<class Step> void UploadSession::compare(const QList<Step> &held)
{
    const int count = static_cast<int>(held.size());
    for (int i = 0; i < qMin(count, m_sent); ++i) {
        if (!sameAsStored(i, held.at(i))) {
            end({false,
                 UploadSession::tr("Step No. %1 differs: sent %2, the instrument holds %3")
                     .arg(i)
                     .arg(stepText(i), describe(held.at(i))),
                 i,
                 count},
                UploadEnd::Mismatch);
            return;
        }
    }
    if (count != m_sent) {
        end({false,
             UploadSession::tr("The instrument holds %1 steps, %2 were sent")
                 .arg(count)
                 .arg(m_sent),
             qMin(count, m_sent),
             count},
            UploadEnd::Mismatch);
        return;
    }
    emit progressed(m_sent, m_total, 0);
    UploadedSequence sequence;
    sequence.list = m_list;
    sequence.channel = m_param.channel;
    sequence.channelName = m_channelName;
    sequence.cycles = m_param.cycles;
    sequence.endState = m_param.endState;
    sequence.listSteps = m_listSent;
    sequence.delayerSteps = m_delayerSent;
    emit verified(sequence);
    end({true,
         UploadSession::tr("Verified %1 steps on %2").arg(m_sent).arg(m_channelName),
         -1,
         m_sent},
        UploadEnd::Verified);
}

void UploadSession::dialogError(const QString &error)
{
    // After the last step the dialog's watchdog still runs out while the read-back goes on; the
    // session's own reply limit guards that phase.
    if (m_phase != Phase::Sending)
        return;
    end({false,
         tr("%1: %2 of %3 steps were sent, %4 confirmed by the instrument")
             .arg(error)
             .arg(m_sent)
             .arg(m_total)
             .arg(m_confirmed),
         -1,
         -1},
        UploadEnd::TimedOut);
}

void UploadSession::cancel()
{
    if (m_phase == Phase::Idle || m_phase == Phase::Ending)
        return;
    m_phase = Phase::Ending;
    m_channel->forget();
    emit stopWanted();
    if (!m_channel->link()) {
        end({false, tr("Upload cancelled"), -1, -1}, UploadEnd::Cancelled);
        return;
    }
    m_channel->query(
        m_commands.line(key("listCount", "delayerCount")), this, [this](const QByteArray &line) {
            const auto held = reply::parseCount(line, m_description.maxCount);
            end({false,
                 held ? tr("Upload cancelled: the instrument holds %1 of %2 steps")
                            .arg(*held)
                            .arg(m_total)
                      : tr("Upload cancelled"),
                 -1,
                 held.value_or(-1)},
                UploadEnd::Cancelled);
        });
}

void UploadSession::linkLost(const QString &reason)
{
    if (m_phase == Phase::Idle)
        return;
    end({false,
         tr("The connection was lost during the upload (%1): %2 of %3 steps were confirmed")
             .arg(reason)
             .arg(m_confirmed)
             .arg(m_total),
         -1,
         -1},
        UploadEnd::LinkLost);
}

void UploadSession::replyTimedOut(const QByteArray &command)
{
    if (m_phase == Phase::Idle)
        return;
    end({false,
         tr("The instrument did not answer %1 within %2 ms: %3 of %4 steps were confirmed")
             .arg(QString::fromUtf8(command))
             .arg(m_channel->replyTimeout())
             .arg(m_confirmed)
             .arg(m_total),
         -1,
         -1},
        UploadEnd::TimedOut);
}

void UploadSession::end(UploadOutcome outcome, UploadEnd ending)
{
    const bool wasEnding = m_phase == Phase::Ending;
    m_phase = Phase::Idle;
    m_channel->forget();
    if (!wasEnding)
        emit stopWanted();
    outcome.ending = ending;
    emit ended(outcome);
}

} // namespace tarn::host
