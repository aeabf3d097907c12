// Sequence files: the dialog's save and load against bare fprintf and getline+strtod loops.
#include "common.h"
#include "figuretable.h"

#include "dialogprogrammer.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace figures {

namespace {

// Files live in memory where the machine offers it, so that both sides measure formatting and
// parsing rather than the disk; the dialog's save also commits through a synced rename.
QString scratchRoot()
{
    return QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm")
                                                     : QDir::tempPath();
}

QList<ListData> sequence(long n)
{
    QList<ListData> steps;
    steps.reserve(static_cast<int>(n));
    for (long i = 0; i < n; ++i)
        steps.append(ListData(0.125 * (i % 240), 3.2 - 0.001 * (i % 3200), 0.001 * (1 + i % 997)));
    return steps;
}

void bareSave(const QByteArray &path, const QList<ListData> &steps)
{
    FILE *file = std::fopen(path.constData(), "w");
    std::fprintf(
        file, "LIST,10\nCycles,Infinite\nEnd Status,Output Off\nGroups,%d\n", steps.size());
    std::fprintf(file, "No.,Voltage(V),Current(A),Time(s)\n");
    for (int i = 0; i < steps.size(); ++i) {
        const ListData &step = steps.at(i);
        std::fprintf(file, "%d,%.3f,%.3f,%.3f\n", i, step.voltage, step.current, step.time);
    }
    std::fclose(file);
}

// Reads the same file into the same list type, skipping the five head lines unchecked.
QList<ListData> bareLoad(const QByteArray &path)
{
    QList<ListData> steps;
    FILE *file = std::fopen(path.constData(), "r");
    char *line = nullptr;
    std::size_t capacity = 0;
    int number = 0;
    while (getline(&line, &capacity, file) > 0) {
        if (++number <= 5)
            continue;
        char *field = std::strchr(line, ',');
        if (!field)
            continue;
        char *end = nullptr;
        const double voltage = std::strtod(field + 1, &end);
        const double current = std::strtod(end + 1, &end);
        const double time = std::strtod(end + 1, &end);
        steps.append(ListData(voltage, current, time));
    }
    std::free(line);
    std::fclose(file);
    return steps;
}

void save(benchmark::State &state)
{
    const long n = state.range(0);
    QTemporaryDir dir(scratchRoot() + QStringLiteral("/figures-XXXXXX"));
    const QString path = dir.filePath(QStringLiteral("dialog.csv"));
    const QByteArray barePath = QFile::encodeName(dir.filePath(QStringLiteral("bare.csv")));
    DialogProgrammer dialog(benchOption());
    const QList<ListData> steps = sequence(n);
    measure(
        state,
        [&] { keep(dialog.listSaveData(path, steps)); },
        [&] { bareSave(barePath, steps); },
        Goal{n >= 1000000 ? 2.0 : 0.0, 0.0});
}

void load(benchmark::State &state)
{
    const long n = state.range(0);
    QTemporaryDir dir(scratchRoot() + QStringLiteral("/figures-XXXXXX"));
    const QString path = dir.filePath(QStringLiteral("dialog.csv"));
    DialogProgrammer dialog(benchOption());
    const QList<ListData> steps = sequence(n);
    dialog.listSaveData(path, steps);
    const QByteArray barePath = QFile::encodeName(path);
    if (dialog.listLoadData(path).size() != bareLoad(barePath).size()) {
        state.SkipWithError("the dialog and the bare loop read different step counts");
        return;
    }
    measure(
        state,
        [&] { keep(dialog.listLoadData(path)); },
        [&] { keep(bareLoad(barePath)); },
        Goal{n >= 1000000 ? 2.0 : 0.0, 0.0});
}

const bool registered = [] {
    registerSized("file.list.save", save);
    registerSized("file.list.load", load);
    return true;
}();

} // namespace

} // namespace figures
