// tarn_bench_host: the bench engineer's program around the programmer dialog.
#include "commandset.h"
#include "languages.h"
#include "window/demo.h"
#include "window/mainwindow.h"

#include <dialogprogrammer.h>
#include <instrumentdescription.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>

#include <cstdio>

using namespace tarn::host;
namespace sim = tarn::sim;

namespace {

int fail(const QString &message)
{
    std::fprintf(stderr, "tarn_bench_host: %s\n", qPrintable(message));
    return 2;
}

// The window with each tab's preview appended once, the way a user has it after a minute's work.
int renderScreenshot(MainWindow &window, const QString &path, const QString &tab, QSize size)
{
    using tarn2::specific::orvo5000::programmer::UploadMode;
    window.dialog()->appendTemplate(UploadMode::List);
    window.dialog()->appendTemplate(UploadMode::Delayer);
    window.dialog()->setCurrentMode(tab == QLatin1String("delayer") ? UploadMode::Delayer
                                                                    : UploadMode::List);
    window.resize(size);
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(path))
        return fail(QStringLiteral("could not write %1").arg(path));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tarn"));
    QApplication::setApplicationName(QStringLiteral("Bench Host"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Programs, uploads and verifies the List and Delayer sequences of a bench "
                       "supply. Without --connect it works with the simulated supply."));
    parser.addHelpOption();
    const QCommandLineOption connectTo(QStringLiteral("connect"),
                                       QStringLiteral("Instrument address: tcp://HOST[:PORT], "
                                                      "vxi11://HOST[:PORT][/DEVICE], "
                                                      "serial:DEVICE[?baud=N], usbtmc:DEVICE, "
                                                      "sim:, or a resource string "
                                                      "(TCPIP0::HOST::PORT::SOCKET, "
                                                      "TCPIP0::HOST[::DEVICE]::INSTR, "
                                                      "USB0::VENDOR::PRODUCT::SERIAL::INSTR, "
                                                      "ASRL/DEVICE::INSTR)."),
                                       QStringLiteral("url"),
                                       QStringLiteral("sim:"));
    const QCommandLineOption instrument(QStringLiteral("instrument"),
                                        QStringLiteral("Instrument description file (JSON)."),
                                        QStringLiteral("file"));
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Upload and verify the default Sine headlessly, "
                                                 "write a screenshot to <file> and exit."),
                                  QStringLiteral("file"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Render the window to <file> and exit."),
                                        QStringLiteral("file"));
    const QCommandLineOption tab(QStringLiteral("tab"),
                                 QStringLiteral("Tab to render: list or delayer."),
                                 QStringLiteral("tab"),
                                 QStringLiteral("list"));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Size to render, WIDTHxHEIGHT."),
                                  QStringLiteral("size"),
                                  QStringLiteral("1280x800"));
    const QCommandLineOption lang(QStringLiteral("lang"),
                                  QStringLiteral("Language of the window: %1 (the system's unless "
                                                 "given).")
                                      .arg(availableLanguages().join(QStringLiteral(", "))),
                                  QStringLiteral("language"));
    parser.addOptions({connectTo, instrument, demo, screenshot, tab, size, lang});
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral("A List or Delayer sequence file to open (with "
                                                "--demo: to upload instead of the Sine)."),
                                 QStringLiteral("[file]"));
    parser.process(app);
    const QString sequenceFile = parser.positionalArguments().value(0);

    const QString language = parser.value(lang);
    if (parser.isSet(lang) && !availableLanguages().contains(language))
        return fail(QStringLiteral("no language %1; there are %2")
                        .arg(language, availableLanguages().join(QStringLiteral(", "))));
    installTranslators(parser.isSet(lang) ? QLocale(language) : QLocale::system());

    sim::InstrumentDescription description = sim::InstrumentDescription::builtIn();
    if (parser.isSet(instrument)) {
        QString error;
        const auto read = sim::InstrumentDescription::fromFile(parser.value(instrument), &error);
        if (!read)
            return fail(error);
        description = *read;
    }
    QString error;
    const std::optional<CommandSet> commands
        = CommandSet::fromOverrides(description.commands, &error);
    if (!commands)
        return fail(parser.value(instrument) + QStringLiteral(": ") + error);

    const QStringList wh = parser.value(size).split(QLatin1Char('x'));
    const QSize windowSize
        = wh.size() == 2 ? QSize(wh.at(0).toInt(), wh.at(1).toInt()) : QSize(1280, 800);

    if (parser.isSet(demo))
        return runDemo(description,
                       *commands,
                       parser.value(connectTo),
                       parser.value(demo),
                       windowSize,
                       sequenceFile);

    MainWindow window(description, *commands);
    if (parser.isSet(screenshot))
        return renderScreenshot(window, parser.value(screenshot), parser.value(tab), windowSize);

    window.resize(windowSize);
    window.show();
    if (!sequenceFile.isEmpty())
        window.openSequenceFile(sequenceFile);
    window.connectTo(parser.value(connectTo));
    return QApplication::exec();
}
