// The simulated supply's state: channels, sequence memories, playback and its error queue.
#pragma once

#include "errorqueue.h"
#include "instrumentdescription.h"

#include <QVector>

#include <array>
#include <functional>

namespace tarn::sim {

enum class SequenceMode { List = 0, Delayer = 1 };
enum class EndState { Off, On, Last };

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

    // Sequence seconds per real second; set before a run starts.
    void setSpeed(double factor);
    double speed() const { return m_speed; }
    // The resistive load on every output, in ohms.
    void setLoad(double ohms);
    double load() const { return m_load; }
    // Fault injection: every write of this step (1-based; 0 for none) is refused.
    void setRefusedStep(int index) { m_refusedStep = index; }

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
    };

    struct Channel
    {
        bool output = false;
        double voltage = 0.0;
        double current = 0.0;
        QVector<ListStep> list;
        QVector<DelayerStep> delayer;
        std::array<Run, 2> runs;
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
    bool checkTime(double seconds, qint64 *ticks);
    qint64 elapsedTicks(const Run &run) const;
    void settle(int channel);
    void finish(Channel &c, SequenceMode mode);
    Output effectiveOutput(int channel);
    Channel makeChannel(int index) const;
    QString modeName(SequenceMode mode) const;

    InstrumentDescription m_description;
    Clock m_clock;
    ErrorQueue m_errors;
    QVector<Channel> m_channels;
    int m_selected = 0;
    double m_speed = 1.0;
    double m_load = 10.0;
    int m_refusedStep = 0;
    qint64 m_tickNs = 1000000;
    qint64 m_now = 0;
};

} // namespace tarn::sim
