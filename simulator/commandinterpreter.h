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
class CommandInterpreter
{
public:
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
    void addChannel();
    void addSequence(int mode);
    std::optional<QByteArray> executeOne(const QByteArray &text);

    std::optional<double> number(const QByteArray &argument, char unit = 0);
    std::optional<int> integer(const QByteArray &argument);
    std::optional<bool> boolean(const QByteArray &argument);
    QByteArray volts(double value) const;
    QByteArray amperes(double value) const;
    QByteArray seconds(double value) const;

    SupplyEngine *m_engine;
    QVector<Entry> m_entries;
};

} // namespace tarn::sim
