// Measuring figures against their limits and printing the table.
#include "figuretable.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>

namespace figures {

namespace {

using Clock = std::chrono::steady_clock;

double median(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double seconds(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double>(to - from).count();
}

void setGoal(benchmark::State &state, Goal goal)
{
    state.counters["goal_ratio"] = goal.ratio;
    state.counters["goal_s"] = goal.seconds;
}

std::string formatTime(double value)
{
    char text[32];
    if (value >= 1.0)
        std::snprintf(text, sizeof text, "%.3g s", value);
    else if (value >= 1e-3)
        std::snprintf(text, sizeof text, "%.3g ms", value * 1e3);
    else if (value >= 1e-6)
        std::snprintf(text, sizeof text, "%.3g us", value * 1e6);
    else
        std::snprintf(text, sizeof text, "%.3g ns", value * 1e9);
    return text;
}

std::string formatValue(double value, bool bytes)
{
    if (!bytes)
        return formatTime(value);
    char text[32];
    std::snprintf(text, sizeof text, "%.1f B", value);
    return text;
}

std::string formatN(long n)
{
    if (n <= 1)
        return "-";
    const int exponent = static_cast<int>(std::lround(std::log10(static_cast<double>(n))));
    if (std::pow(10.0, exponent) == static_cast<double>(n))
        return "10^" + std::to_string(exponent);
    return std::to_string(n);
}

} // namespace

int roundsFor(long n)
{
    if (n >= 1000000)
        return 5;
    if (n >= 100000)
        return 9;
    if (n >= 10000)
        return 21;
    return 51;
}

void measure(benchmark::State &state,
             const std::function<void()> &figure,
             const std::function<void()> &limit,
             Goal goal,
             const std::function<void()> &prepare,
             const std::function<void()> &cleanup)
{
    std::vector<double> figureTimes;
    std::vector<double> limitTimes;
    for (auto _ : state) {
        if (prepare)
            prepare();
        const Clock::time_point start = Clock::now();
        figure();
        const Clock::time_point between = Clock::now();
        if (limit)
            limit();
        const Clock::time_point end = Clock::now();
        if (cleanup)
            cleanup();
        figureTimes.push_back(seconds(start, between));
        limitTimes.push_back(seconds(between, end));
        state.SetIterationTime(seconds(start, between));
    }
    state.counters["value"] = median(figureTimes);
    state.counters["limit"] = limit ? median(limitTimes) : 0.0;
    state.counters["bytes"] = 0;
    setGoal(state, goal);
}

void record(benchmark::State &state, double value, double limit, Goal goal)
{
    for (auto _ : state)
        state.SetIterationTime(1e-9);
    state.counters["value"] = value;
    state.counters["limit"] = limit;
    state.counters["bytes"] = 1;
    setGoal(state, goal);
}

void registerSized(const char *name,
                   const std::function<void(benchmark::State &)> &function,
                   const std::vector<long> &sizes)
{
    for (long n : sizes) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(n)
            ->Iterations(roundsFor(n))
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
}

bool TableReporter::ReportContext(const Context &)
{
    std::printf("Measuring; the table follows when every figure is done.\n");
    std::fflush(stdout);
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        Row row;
        row.figure = run.run_name.function_name;
        const std::string &args = run.run_name.args;
        row.n = args.empty() ? 0 : std::stol(args);
        if (run.error_occurred) {
            row.error = run.error_message;
            m_allMet = false;
            m_rows.push_back(row);
            continue;
        }
        const auto counter = [&run](const char *name) {
            const auto it = run.counters.find(name);
            return it == run.counters.end() ? 0.0 : static_cast<double>(it->second);
        };
        row.value = counter("value");
        row.limit = counter("limit");
        row.bytes = counter("bytes") != 0.0;
        row.goal.ratio = counter("goal_ratio");
        row.goal.seconds = counter("goal_s");
        m_rows.push_back(row);
        std::fprintf(stderr,
                     "  %-28s %-6s %s\n",
                     row.figure.c_str(),
                     formatN(row.n).c_str(),
                     formatValue(row.value, row.bytes).c_str());
    }
}

void TableReporter::Finalize()
{
    std::map<std::string, std::map<long, double>> byFigure;
    for (const Row &row : m_rows)
        byFigure[row.figure][row.n] = row.value;

    std::printf("\n| figure | N | time | limit | ratio | goal | met | slope 10^4..10^6 |\n");
    std::printf("|---|---|---|---|---|---|---|---|\n");
    for (const Row &row : m_rows) {
        if (!row.error.empty()) {
            std::printf("| %s | %s | error: %s | | | | no | |\n",
                        row.figure.c_str(),
                        formatN(row.n).c_str(),
                        row.error.c_str());
            continue;
        }
        const double ratio = row.limit > 0 ? row.value / row.limit : 0.0;
        std::string goal = "-";
        std::string met = "";
        if (row.goal.ratio > 0) {
            char text[32];
            std::snprintf(text, sizeof text, "ratio <= %g", row.goal.ratio);
            goal = text;
            met = ratio <= row.goal.ratio ? "yes" : "NO";
        } else if (row.goal.seconds > 0) {
            goal = "<= " + formatTime(row.goal.seconds);
            met = row.value <= row.goal.seconds ? "yes" : "NO";
        }
        if (met == "NO")
            m_allMet = false;
        std::string slope;
        const auto &points = byFigure[row.figure];
        const auto low = points.find(10000);
        const auto high = points.find(1000000);
        if (row.n == 1000000 && low != points.end() && high != points.end() && low->second > 0
            && high->second > 0) {
            char text[16];
            std::snprintf(text, sizeof text, "%.2f", std::log10(high->second / low->second) / 2);
            slope = text;
        }
        char ratioText[16] = "-";
        if (row.limit > 0)
            std::snprintf(ratioText, sizeof ratioText, "%.2f", ratio);
        std::printf("| %s | %s | %s | %s | %s | %s | %s | %s |\n",
                    row.figure.c_str(),
                    formatN(row.n).c_str(),
                    formatValue(row.value, row.bytes).c_str(),
                    row.limit > 0 ? formatValue(row.limit, row.bytes).c_str() : "-",
                    ratioText,
                    goal.c_str(),
                    met.c_str(),
                    slope.c_str());
    }
    std::fflush(stdout);
}

} // namespace figures
