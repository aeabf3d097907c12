// The demo session.
#include "demo.h"

#include "mainwindow.h"
#include "session/sequencereader.h"

#include <character.h>
#include <dialogprogrammer.h>

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace tarn::host {

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
    window.resize(size);
    window.show();
    BenchController *controller = window.controller();
    using tarn2::specific::orvo5000::programmer::UploadMode;
    std::optional<UploadMode> fileMode;
    if (!sequencePath.isEmpty()) {
        // The window's own guarded load, so the demo refuses what the window would.
        window.setPrompter(nullptr);
        fileMode = SequenceReader::modeOf(tarn2::util::character::Character::csvLoad(sequencePath));
        if (!fileMode || !window.openSequenceFile(sequencePath)) {
            std::fprintf(stderr,
                         "demo: %s\n",
                         qPrintable(window.dialog()->findChild<QStatusBar *>()->currentMessage()));
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
                             if (auto *append = window.dialog()->findChild<QPushButton *>(
                                     QStringLiteral("btnListTemplateAppend")))
                                 append->click();
                             window.dialog()->uploaderStart(UploadMode::List);
                         } else if (state == BenchController::State::Disconnected) {
                             std::printf("demo: %s\n", qPrintable(message));
                             loop.quit();
                         }
                     });
    QObject::connect(
        controller, &BenchController::uploadEnded, &loop, [&](const UploadOutcome &outcome) {
            std::printf("%s\n", qPrintable(outcome.message));
            status = outcome.verified ? 0 : 1;
            // Let the dialog unlock and repaint before the picture is taken.
            QTimer::singleShot(100, &loop, &QEventLoop::quit);
        });
    limit.start(60000);
    window.connectTo(address);
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
