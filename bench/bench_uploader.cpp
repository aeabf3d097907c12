// How many steps per second an uploader hands out, driven from the event loop as a host drives it
// and, as the baseline, by direct calls in a loop.
#include "helper.h"
#include "listuploader.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEventLoop>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

constexpr int stepCount = 100000;

const QList<ListData> &steps()
{
    static const QList<ListData> list = [] {
        QList<ListData> made;
        made.reserve(stepCount);
        for (int i = 0; i < stepCount; ++i)
            made.append(ListData(i % 30, (i % 5) * 0.5, 0.01));
        return made;
    }();
    return list;
}

// Every step asks for the next one through a queued call, as a host answering from its event loop.
void BM_UploadFromEventLoop(benchmark::State &state)
{
    Helper::getInstance().option.maxCount = stepCount;
    const QList<ListData> &list = steps();
    for (auto _ : state) {
        ListUploader uploader(list, nullptr);
        QEventLoop loop;
        double volts = 0.0;
        const auto askNext = [&uploader] {
            uploader.next();
        };
        QObject::connect(
            &uploader, &ProgrammerUploader::nextData, &loop, [&](int, const ProgrammerData &data) {
                volts += static_cast<const ListData &>(data).voltage;
                QMetaObject::invokeMethod(&uploader, askNext, Qt::QueuedConnection);
            });
        QObject::connect(
            &uploader, &ProgrammerUploader::finished, &loop, [&uploader] { uploader.stop(); });
        QObject::connect(&uploader, &ProgrammerUploader::stoped, &loop, &QEventLoop::quit);

        uploader.start();
        QMetaObject::invokeMethod(&uploader, askNext, Qt::QueuedConnection);
        loop.exec();
        benchmark::DoNotOptimize(volts);
    }
    state.SetItemsProcessed(state.iterations() * stepCount);
}
BENCHMARK(BM_UploadFromEventLoop)->Unit(benchmark::kMillisecond);

// The uploader's own cost per step: signal emission and re-arming the watchdog.
void BM_UploadDirectCalls(benchmark::State &state)
{
    Helper::getInstance().option.maxCount = stepCount;
    const QList<ListData> &list = steps();
    for (auto _ : state) {
        ListUploader uploader(list, nullptr);
        double volts = 0.0;
        QObject::connect(&uploader,
                         &ProgrammerUploader::nextData,
                         &uploader,
                         [&volts](int, const ProgrammerData &data) {
                             volts += static_cast<const ListData &>(data).voltage;
                         });
        uploader.start();
        for (int i = 0; i < stepCount; ++i)
            uploader.next();
        uploader.stop();
        benchmark::DoNotOptimize(volts);
    }
    state.SetItemsProcessed(state.iterations() * stepCount);
}
BENCHMARK(BM_UploadDirectCalls)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // The watchdog's timers and the queued calls need an application and its event dispatcher.
    QCoreApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
