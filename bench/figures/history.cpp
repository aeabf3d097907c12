// The history: recording a long upload, and a filtered search of a long history.
#include "common.h"
#include "figuretable.h"

#include <historystore.h>

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

using namespace tarn::history;
using namespace tarn2::specific::orvo5000::programmer;

namespace figures {

namespace {

HistoryRecord upload(long steps)
{
    HistoryRecord r;
    r.started = QDateTime::currentDateTimeUtc();
    r.identity = QStringLiteral("Tarn,Simulated Supply,SIM-000001,1.0.0");
    r.address = QStringLiteral("tcp://127.0.0.1:5025");
    r.channel = 1;
    r.channelName = QStringLiteral("CH1");
    r.outcome = QStringLiteral("verified");
    r.sequence.list.reserve(static_cast<int>(steps));
    for (long i = 0; i < steps; ++i)
        r.sequence.list.append(
            ListData(0.125 * (i % 240), 3.2 - 0.001 * (i % 3200), 0.001 * (1 + i % 997)));
    return r;
}

// The bare limit writes the same steps with fprintf to a file of its own.
void bareWrite(const QByteArray &path, const QList<ListData> &steps)
{
    FILE *file = std::fopen(path.constData(), "w");
    for (const ListData &step : steps)
        std::fprintf(file, "%.17g,%.17g,%.17g\n", step.voltage, step.current, step.time);
    std::fclose(file);
}

// Recording what an upload sent: one transaction on a history on disk.
void record(benchmark::State &state)
{
    QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/figures-XXXXXX"));
    HistoryStore store;
    if (!store.openFile(dir.filePath(QStringLiteral("history.sqlite")))) {
        state.SkipWithError("the history did not open");
        return;
    }
    const HistoryRecord prototype = upload(state.range(0));
    const QByteArray barePath = QFile::encodeName(dir.filePath(QStringLiteral("bare.csv")));
    measure(
        state,
        [&] {
            HistoryRecord r = prototype;
            keep(store.add(&r));
        },
        [&] { bareWrite(barePath, prototype.sequence.list); },
        Goal{0.0, 0.1});
}

// A search by channel and text among 10^4 runs, newest first, as the panel and `history list`
// ask it; the bare limit filters the same records held in memory.
void listFiltered(benchmark::State &state)
{
    const long n = state.range(0);
    QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/figures-XXXXXX"));
    HistoryStore store;
    if (!store.openFile(dir.filePath(QStringLiteral("history.sqlite")))) {
        state.SkipWithError("the history did not open");
        return;
    }
    QList<HistoryRecord> held;
    for (long i = 0; i < n; ++i) {
        HistoryRecord r = upload(30);
        r.kind = HistoryRecord::Kind::Run;
        r.channel = 1 + static_cast<int>(i % 4);
        r.started = QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC).addSecs(i * 60);
        r.outcome = i % 10 == 0 ? QStringLiteral("failed") : QStringLiteral("ended");
        r.message = QStringLiteral("The sequence ended after %1 cycles").arg(i % 7);
        store.add(&r);
        held.append(r);
    }
    HistoryFilter filter;
    filter.channel = 2;
    filter.text = QStringLiteral("after 3 cycles");
    measure(
        state,
        [&] { keep(store.list(filter)); },
        [&] {
            QList<HistoryRecord> found;
            for (auto it = held.crbegin(); it != held.crend() && found.size() < filter.limit; ++it)
                if (it->channel == filter.channel && it->message.contains(filter.text))
                    found.append(*it);
            keep(found);
        },
        Goal{0.0, 0.05});
}

const bool registered = [] {
    registerSized("history.record", record, {100000});
    registerSized("history.list_filtered", listFiltered, {10000});
    return true;
}();

} // namespace

} // namespace figures
