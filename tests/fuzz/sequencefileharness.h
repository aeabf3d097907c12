// The dialog a sequence-file fuzzer loads its inputs through, offscreen, built once per process.
#pragma once

#include "instrumentoption.h"
#include <dialogprogrammer.h>
#include <instrumentdescription.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

namespace fuzzing {

struct SequenceFileHarness
{
    SequenceFileHarness()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_CONFIG_HOME", directory.path().toUtf8());
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        application = std::make_unique<QApplication>(argc, argv);
        QCoreApplication::setOrganizationName(QStringLiteral("TarnFuzz"));
        QCoreApplication::setApplicationName(QStringLiteral("fuzz"));
        dialog = std::make_unique<tarn2::specific::orvo5000::programmer::DialogProgrammer>(
            tarn::host::optionFor(tarn::sim::InstrumentDescription::builtIn()));
        path = directory.filePath(QStringLiteral("input.csv"));
    }

    // The input as a file on disk, the only way the loaders take one.
    const QString &write(const uint8_t *data, size_t size)
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
        return path;
    }

    // Memory-backed when the machine has it: a truncating open on disk costs milliseconds.
    QTemporaryDir directory{QDir(QStringLiteral("/dev/shm")).exists()
                                ? QStringLiteral("/dev/shm/tarn-fuzz-XXXXXX")
                                : QDir::tempPath() + QStringLiteral("/tarn-fuzz-XXXXXX")};
    std::unique_ptr<QApplication> application;
    std::unique_ptr<tarn2::specific::orvo5000::programmer::DialogProgrammer> dialog;
    QString path;
};

} // namespace fuzzing
