// The simulated supply's state: channels, sequence memories, playback and its error queue.
#pragma once

#include "errorqueue.h"
#include "instrumentdescription.h"
#include "statusregisters.h"

#include <QVector>

#include <array>
#include <functional>

namespace tarn::sim {

enum class SequenceMode { List = 0, Delayer = 1 };
enum class EndState { Off, On, Last };
// The two protections of every output: over-voltage and over-current.
enum class Protection { Voltage = 0, Current = 1 };

// Times are held in whole ticks of 10^-timeDecimals s, so that playback sums without drift.
struct ListStep
{
    double voltage = 0.0;
    double current = 0.0;
    qint64 ticks = 0;
};

struct DelayerStep
{
    bool on = true;
    qint64 ticks = 0;
};

// Where a sequence stands: `step` and `cycle` count from 1 while it runs and are 0 otherwise.
struct Playback
{
    bool running = false;
    int step = 0;
    qint64 cycle = 0;
    double elapsed = 0.0; // s of sequence time since the run started
};

// SupplyEngine is a pure state machine: no sockets, no timers. Playback follows from the clock it
// is handed (monotonic nanoseconds) each time it is asked, so a run costs nothing while nobody
// looks and tests can move time by hand. Every refused request leaves the state as it was and
// pushes one error. Step indexes count from 1, channels from 0.
class SupplyEngine
{
public:
    using Clock = std::function<qint64()>;

    explicit SupplyEngine(InstrumentDescription description, Clock clock = {});

    const InstrumentDescription &description() const { return m_description; }
    ErrorQueue &errors() { return m_errors; }
    StatusRegisters &status() { return m_status; }

    // Brings every channel to the present instant (runs that ended, protections that tripped) and
    // refreshes the status conditions, so that their events latch. Call it after each command.
    void update();
    // The status byte as *STB? reports it; `messageAvailable` tells whether a reply waits.
    quint8 statusByte(bool messageAvailable);
    // *CLS: the error queue and every event register emptied.
    void clearStatus();
    // *TST?: 0 when a scratch engine with the same description stores, plays and ends a step as
    // it should, 1 otherwise. This engine is left as it is.
    int selfTest() const;

    // Sequence seconds per real second; set before a run starts.
    void setSpeed(double factor);
    double speed() const { return m_speed; }
    // The resistive load on every output, in ohms.
    void setLoad(double ohms);
    double load() const { return m_load; }
    // Fault injection: every write of this step (1-based; 0 for none) is refused.
    void setRefusedStep(int index) { m_refusedStep = index; }
    // Fault injection: this step (1-based; 0 for none) is stored other than it is written, as a
    // supply with a failing memory would: a List step's current one digit off, a Delayer step's
    // state flipped.
    void setAlteredStep(int index) { m_alteredStep = index; }

    // Outputs off, sequences and set-points cleared, channel 1 selected; the errors stay.
    void reset();

    int channelCount() const { return m_channels.size(); }
    int selectedChannel() const { return m_selected; }
    bool selectChannel(int channel);

    bool setOutput(int channel, bool on);
    bool output(int channel);
    bool setVoltage(int channel, double volts);
    bool setCurrent(int channel, double amperes);
    double voltageSetpoint(int channel) const;
    double currentSetpoint(int channel) const;
    double measuredVoltage(int channel);
    double measuredCurrent(int channel);
    double measuredPower(int channel);

    // A protection trips when the output goes above its level, also while a sequence plays: the
    // output goes off, the run ends without its end state, and error -300 names the channel.
    bool setProtectionLevel(int channel, Protection which, double level);
    double protectionLevel(int channel, Protection which) const;
    bool protectionTripped(int channel, Protection which) const;
    // Clears both trips; the output stays off until it is switched on again.
    bool clearProtection(int channel);

    bool clearSequence(int channel, SequenceMode mode);
    bool writeListStep(int channel, int index, double volts, double amperes, double seconds);
    bool writeDelayerStep(int channel, int index, bool on, double seconds);
    const QVector<ListStep> &listSteps(int channel) const;
    const QVector<DelayerStep> &delayerSteps(int channel) const;
    int stepCount(int channel, SequenceMode mode) const;
    // 0 repeats without end.
    bool setRepeat(int channel, SequenceMode mode, int count);
    int repeat(int channel, SequenceMode mode) const;
    bool setEndState(int channel, SequenceMode mode, EndState state);
    EndState endState(int channel, SequenceMode mode) const;

    bool run(int channel, SequenceMode mode);
    // Stopping a sequence that does not run is not an error.
    bool stop(int channel, SequenceMode mode);
    Playback playback(int channel, SequenceMode mode);

    double seconds(qint64 ticks) const;
    static constexpr int maxRepeat = 99999;

private:
    struct Run
    {
        int repeat = 1;
        EndState end = EndState::Off;
        bool running = false;
        qint64 startNs = 0;
        QVector<qint64> ends; // running sum of the step ticks, taken when the run starts
        qint64 tripAt = -1;   // ticks into the run when a step first goes above a protection
        Protection tripKind = Protection::Voltage;
    };

    struct Channel
    {
        bool output = false;
        double voltage = 0.0;
        double current = 0.0;
        QVector<ListStep> list;
        QVector<DelayerStep> delayer;
        std::array<Run, 2> runs;
        std::array<double, 2> protection{};
        std::array<bool, 2> tripped{};
    };

    struct Output
    {
        bool on = false;
        double voltage = 0.0;
        double current = 0.0;
    };

    Channel *channelAt(int channel);
    const Channel &channelOrEmpty(int channel) const;
    Playback position(const Run &run) const;
    bool refuse(ScpiError error, const QString &detail = {});
    bool setSetpoint(int channel, double value, bool voltage);
    bool checkEditable(int channel, SequenceMode mode);
    bool checkIndex(int count, int index);
    bool
    checkLevel(double value, const Range &range, int decimals, const char *what, double *stored);
    bool
    checkChannelLevel(int channel, bool voltage, double value, const char *what, double *stored);
    bool checkTime(double seconds, qint64 *ticks);
    qint64 elapsedTicks(const Run &run) const;
    void settle(int channel);
    void finish(Channel &c, SequenceMode mode);
    Output effectiveOutput(int channel);
    Output outputOf(const Channel &c) const;
    bool exceedsProtection(const Channel &c, double volts, double amperes, Protection *which) const;
    qint64 firstTrip(const Channel &c, SequenceMode mode, qint64 from, Protection *which) const;
    void watchProtection(int channel);
    void checkSteadyOutput(int channel);
    void trip(int channel, Protection which);
    bool checkNotTripped(const Channel &c, int channel);
    Channel makeChannel(int index) const;
    QString modeName(SequenceMode mode) const;

    InstrumentDescription m_description;
    Clock m_clock;
    ErrorQueue m_errors;
    StatusRegisters m_status;
    QVector<Channel> m_channels;
    int m_selected = 0;
    double m_speed = 1.0;
    double m_load = 10.0;
    int m_refusedStep = 0;
    int m_alteredStep = 0;
    qint64 m_tickNs = 1000000;
    qint64 m_now = 0;
};

} // namespace tarn::sim
