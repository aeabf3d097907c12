// The simulated supply's command set: one table from headers to the engine's operations.
#pragma once

#include "scpiparser.h"

#include <QByteArray>
#include <QVector>

#include <functional>
#include <optional>

namespace tarn::sim {

class SupplyEngine;

// CommandInterpreter executes lines of commands against a SupplyEngine, the way the instrument's
// firmware would: commands run in order, a failing command pushes its error and the rest of the
// line still runs, and the answers of the queries on one line come back as one line joined by ';'.
// It speaks the List dialect its description names: step by step (LIST:STEP, LIST:DATA?), or as
// arrays with the words of the description's listArrays.
class CommandInterpreter
{
public:
    // What MIN, MAX and DEF stand for where a number is taken.
    struct Bounds
    {
        double min;
        double max;
        double def;
    };

    explicit CommandInterpreter(SupplyEngine *engine);
    ~CommandInterpreter();

    // The reply line without its terminator, or nothing when no query on the line answered.
    std::optional<QByteArray> execute(const QByteArray &line);

private:
    using Arguments = QList<QByteArray>;
    using Handler = std::function<std::optional<QByteArray>(const Arguments &)>;

    struct Entry
    {
        scpi::HeaderPattern pattern;
        bool query;
        int minArguments;
        int maxArguments;
        Handler handler;
    };

    void
    add(const QByteArray &pattern, bool query, int minArguments, int maxArguments, Handler handler);
    void addCommon();
    void addStatus();
    void addChannel();
    void addLevel(const QByteArray &pattern,
                  char unit,
                  const std::function<Bounds()> &bounds,
                  const std::function<double()> &get,
                  const std::function<bool(double)> &set,
                  int decimals);
    void addSequence(int mode);
    void addListArrays();
    // Writes or appends one quantity (0 voltage, 1 current, 2 time) of the selected channel's
    // List, and makes every step whose three values are known a step of the engine.
    bool writeArray(int quantity, const Arguments &values, bool append);
    std::optional<QByteArray> executeOne(const QByteArray &text);

    std::optional<double>
    number(const QByteArray &argument, char unit = 0, const Bounds *bounds = nullptr);
    std::optional<int> integer(const QByteArray &argument, const Bounds *bounds = nullptr);
    std::optional<double> boundQuery(const Arguments &arguments, const Bounds &bounds);
    Bounds voltageBounds() const;
    Bounds currentBounds() const;
    Bounds timeBounds() const;
    Bounds indexBounds() const;
    std::optional<bool> boolean(const QByteArray &argument);
    QByteArray volts(double value) const;
    QByteArray amperes(double value) const;
    QByteArray seconds(double value) const;

    SupplyEngine *m_engine;
    QVector<Entry> m_entries;
    // The List arrays each channel was given, three per channel, while the instrument takes Lists
    // as arrays: a step exists once all three hold its value.
    QVector<QVector<double>> m_arrays;
    bool m_replyWaiting = false; // an earlier query on the line has answered: *STB?'s MAV bit
};

} // namespace tarn::sim
