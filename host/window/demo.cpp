// The demo session.
#include "demo.h"

#include "mainwindow.h"
#include "runsession.h"
#include "runview.h"
#include "sequencereader.h"

#include <character.h>
#include <dialogprogrammer.h>

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace tarn::host {

namespace {
constexpr int runMs = 3000;
} // namespace

int runDemo(const sim::InstrumentDescription &description,
            const CommandSet &commands,
            const QString &address,
            const QString &screenshotPath,
            QSize size,
            const QString &sequencePath)
{
    QTemporaryDir settingsDir;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settingsDir.path());

    MainWindow window(description, commands);
    if (const QString refusal = window.sizeRefusal(size); !refusal.isEmpty()) {
        std::fprintf(stderr, "tarn_bench_host: %s\n", qPrintable(refusal));
        return 2;
    }
    window.resize(size);
    window.show();
    BenchController *controller = window.controller();
    using tarn2::specific::orvo5000::programmer::UploadMode;
    std::optional<UploadMode> fileMode;
    if (!sequencePath.isEmpty()) {
        // The window's own guarded load, so the demo refuses what the window would.
        window.setPrompter(nullptr);
        QString unreadable;
        const auto lines
            = SequenceReader::readLines(sequencePath, description.maxCount, &unreadable);
        if (!lines) {
            std::fprintf(stderr,
                         "demo: %s was not loaded: %s\n",
                         qPrintable(sequencePath),
                         qPrintable(unreadable));
            return 1;
        }
        fileMode = SequenceReader::modeOf(*lines);
        if (!fileMode || !window.openSequenceFile(sequencePath)) {
            std::fprintf(stderr, "demo: %s\n", qPrintable(window.dialog()->statusMessage()));
            return 1;
        }
    }

    QEventLoop loop;
    int status = 1;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, [&] {
        std::fprintf(stderr, "demo: no result within %d s\n", limit.interval() / 1000);
        loop.quit();
    });
    QObject::connect(controller,
                     &BenchController::stateChanged,
                     &loop,
                     [&](BenchController::State state, const QString &message) {
                         if (state == BenchController::State::Connected) {
                             std::printf("demo: %s (%s)\n",
                                         qPrintable(message),
                                         qPrintable(controller->identity()));
                             if (fileMode) {
                                 window.dialog()->uploaderStart(*fileMode);
                                 return;
                             }
                             window.dialog()->appendTemplate(UploadMode::List);
                             window.dialog()->uploaderStart(UploadMode::List);
                         } else if (state == BenchController::State::Disconnected) {
                             std::printf("demo: %s\n", qPrintable(message));
                             loop.quit();
                         }
                     });
    RunSession *run = controller->runSession();
    QObject::connect(
        controller, &BenchController::uploadEnded, &loop, [&](const UploadOutcome &outcome) {
            std::printf("%s\n", qPrintable(outcome.message));
            status = outcome.verified ? 0 : 1;
            if (!outcome.verified) {
                // Let the dialog unlock and repaint before the picture is taken.
                QTimer::singleShot(100, &loop, &QEventLoop::quit);
                return;
            }
            // Play what was verified for a few seconds, then stop it and keep the trace.
            const QPair<int, bool> last = run->lastUploaded();
            run->start(last.first, last.second);
            QTimer::singleShot(runMs, run, &RunSession::stop);
        });
    QObject::connect(run, &RunSession::ended, &loop, [&](const QString &message, bool failed) {
        std::printf("demo: run: %s (%d samples)\n",
                    qPrintable(message),
                    static_cast<int>(run->trace().samples().size()));
        if (failed)
            status = 1;
        const QFileInfo png(screenshotPath);
        const QString trace
            = png.path() + QLatin1Char('/') + png.completeBaseName() + QStringLiteral("-trace.csv");
        QString error;
        if (window.runView()->exportCsv(trace, &error))
            std::printf("demo: trace written to %s\n",
                        qPrintable(QFileInfo(trace).absoluteFilePath()));
        else
            std::fprintf(stderr, "demo: %s\n", qPrintable(error));
        const QString plot
            = png.path() + QLatin1Char('/') + png.completeBaseName() + QStringLiteral("-plot.png");
        if (window.runView()->exportPng(plot))
            std::printf("demo: plot written to %s\n",
                        qPrintable(QFileInfo(plot).absoluteFilePath()));
        QTimer::singleShot(100, &loop, &QEventLoop::quit);
    });
    limit.start(60000);
    // The simulated supply plays at ten times the speed, so a few seconds show a whole cycle.
    window.connectTo(address == QLatin1String("sim:") ? QStringLiteral("sim:?speed=10") : address);
    loop.exec();

    QApplication::processEvents();
    if (!window.grab().save(screenshotPath)) {
        std::fprintf(stderr, "demo: could not write %s\n", qPrintable(screenshotPath));
        return 1;
    }
    std::printf("demo: screenshot written to %s\n",
                qPrintable(QDir(screenshotPath).absolutePath()));
    std::fflush(stdout);
    return status;
}

} // namespace tarn::host
