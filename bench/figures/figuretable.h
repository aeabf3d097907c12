// Measuring a figure next to its bare limit, and the one table that scripts/bench.sh prints.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <vector>

namespace figures {

// The step counts every sized figure is measured at; the slope is read between 10^4 and 10^6.
inline const std::vector<long> kSizes{1000, 10000, 100000, 1000000};

// Fewer rounds for longer sequences keep a whole run within a few minutes on a shared machine.
int roundsFor(long n);

// What a figure is held to: a ratio to its limit, a time budget in seconds, or nothing.
struct Goal
{
    double ratio = 0.0;
    double seconds = 0.0;
};

// Runs `prepare` (untimed), then `figure` and `limit` (timed apart) once per round, and records
// the median of each: the two always come from the same run, so a busy machine slows both.
// `cleanup` (untimed) undoes what the figure changed, when it must be undone.
void measure(benchmark::State &state,
             const std::function<void()> &figure,
             const std::function<void()> &limit,
             Goal goal = {},
             const std::function<void()> &prepare = {},
             const std::function<void()> &cleanup = {});

// Records a figure that is not a time (bytes per held step) with its limit.
void record(benchmark::State &state, double value, double limit, Goal goal = {});

// Registers `function` under `name` once per size of kSizes (or the given sizes).
void registerSized(const char *name,
                   const std::function<void(benchmark::State &)> &function,
                   const std::vector<long> &sizes = kSizes);

// Collects every run and prints one table at the end: figure, N, time, limit, ratio, goal and the
// log-log slope of time over N from 10^4 to 10^6.
class TableReporter final : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

    // False when some figure missed its goal.
    bool allGoalsMet() const { return m_allMet; }

private:
    struct Row
    {
        std::string figure;
        long n = 0;
        double value = 0.0;
        double limit = 0.0;
        bool bytes = false;
        Goal goal;
        std::string error;
    };
    std::vector<Row> m_rows;
    bool m_allMet = true;
};

} // namespace figures
