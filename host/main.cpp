// The reference host application: the programmer dialog over a simulated instrument.
#include "simulatedinstrument.h"

#include <dialogprogrammer.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QPushButton>
#include <QTabWidget>

#include <cstdio>

using tarn::host::SimulatedInstrument;
using tarn2::specific::orvo5000::programmer::DialogProgrammer;

namespace {

// Renders the dialog with a generated preview and some appended steps on each tab, the way a
// user would have it after a minute's work, and writes the chosen tab to a PNG.
int renderScreenshot(DialogProgrammer &dialog, const QString &path, const QString &tab, QSize size)
{
    for (const char *button : {"btnListTemplateAppend", "btnDelayerTemplateAppend"}) {
        if (auto *append = dialog.findChild<QPushButton *>(QLatin1String(button)))
            append->click();
    }
    if (auto *tabs = dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget")))
        tabs->setCurrentIndex(tab == QLatin1String("delayer") ? 1 : 0);
    dialog.resize(size);
    dialog.show();
    QApplication::processEvents();
    if (!dialog.grab().save(path)) {
        std::fprintf(stderr, "could not write %s\n", qPrintable(path));
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tarn"));
    QApplication::setApplicationName(QStringLiteral("Bench Host"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Programs a simulated bench supply."));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Render the dialog to <file> and exit."),
                                        QStringLiteral("file"));
    const QCommandLineOption tab(QStringLiteral("tab"),
                                 QStringLiteral("Tab to render: list or delayer."),
                                 QStringLiteral("tab"),
                                 QStringLiteral("list"));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Size to render, WIDTHxHEIGHT."),
                                  QStringLiteral("size"),
                                  QStringLiteral("1280x800"));
    parser.addOptions({screenshot, tab, size});
    parser.process(app);

    DialogProgrammer dialog(SimulatedInstrument::defaultOption(), nullptr);
    dialog.setWindowTitle(QStringLiteral("Sequence Programmer"));
    new SimulatedInstrument(&dialog);

    if (parser.isSet(screenshot)) {
        const QStringList wh = parser.value(size).split(QLatin1Char('x'));
        const QSize renderSize = wh.size() == 2 ? QSize(wh.at(0).toInt(), wh.at(1).toInt())
                                                : QSize(1280, 800);
        return renderScreenshot(dialog, parser.value(screenshot), parser.value(tab), renderSize);
    }

    dialog.resize(1280, 800);
    dialog.show();
    return app.exec();
}
