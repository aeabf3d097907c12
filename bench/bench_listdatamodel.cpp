// How fast the List sequence table takes 100,000 steps: one bulk append against one call per step.
#include "listdatamodel.h"

#include <benchmark/benchmark.h>

using namespace tarn2::specific::orvo5000::programmer;

namespace {
constexpr int stepCount = 100000;

QList<ListData> makeSteps()
{
    QList<ListData> steps;
    steps.reserve(stepCount);
    for (int i = 0; i < stepCount; ++i)
        steps << ListData(i % 30, 0.5, 0.1);
    return steps;
}

// The sequence starts with one step, as it does after an earlier edit: appending to an empty list
// would only share the steps' storage and copy nothing.
void appendRowsOnce(benchmark::State &state)
{
    const QList<ListData> steps = makeSteps();
    for (auto _ : state) {
        QList<ListData> sequence{ListData()};
        {
            ListDataModel model(sequence, nullptr);
            model.appendRows(steps);
            benchmark::DoNotOptimize(model.rowCount());
        }
        state.PauseTiming();
        sequence.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * stepCount);
}

void appendRowPerStep(benchmark::State &state)
{
    const QList<ListData> steps = makeSteps();
    for (auto _ : state) {
        QList<ListData> sequence{ListData()};
        {
            ListDataModel model(sequence, nullptr);
            for (const ListData &step : steps)
                model.appendRow(step);
            benchmark::DoNotOptimize(model.rowCount());
        }
        state.PauseTiming();
        sequence.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * stepCount);
}
} // namespace

BENCHMARK(appendRowsOnce)->Unit(benchmark::kMillisecond);
BENCHMARK(appendRowPerStep)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
