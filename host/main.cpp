// tarn_bench_host: the bench engineer's program around the programmer dialog.
#include "commandset.h"
#include "languages.h"
#include "window/demo.h"
#include "window/mainwindow.h"

#include <dialogprogrammer.h>
#include <instrumentdescription.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

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

struct Options
{
    QString connect;
    QString instrument;
    QString demo;
    QString screenshot;
    QString tab;
    QString language;
    QString file;
    QString history;
    QSize size;
};

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Tarn"));
    QCoreApplication::setApplicationName(QStringLiteral("Bench Host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARN_VERSION));
}

// Reads and checks the options before any window system is touched, so that --help, --version and
// a refused value work on a terminal without a display. -1 to go on, else the exit status.
int readOptions(const QCoreApplication &app, Options *options)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Programs, uploads and verifies the List and Delayer sequences of a bench "
                       "supply. Without --connect it works with the simulated supply."));
    parser.addHelpOption();
    parser.addVersionOption();
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
                                  QStringLiteral("Upload and verify the default Sine (or the "
                                                 "[file] given), run it for three seconds, write "
                                                 "a screenshot to <file> and exit. Needs no "
                                                 "display."),
                                  QStringLiteral("file"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Render the window to <file> and exit. "
                                                       "Needs no display."),
                                        QStringLiteral("file"));
    const QCommandLineOption tab(QStringLiteral("tab"),
                                 QStringLiteral("Tab to render: list or delayer."),
                                 QStringLiteral("tab"),
                                 QStringLiteral("list"));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Window size, WIDTHxHEIGHT."),
                                  QStringLiteral("size"),
                                  QStringLiteral("1280x800"));
    const QCommandLineOption lang(QStringLiteral("lang"),
                                  QStringLiteral("Language of the window: %1 (the system's unless "
                                                 "given).")
                                      .arg(availableLanguages().join(QStringLiteral(", "))),
                                  QStringLiteral("language"));
    const QCommandLineOption history(QStringLiteral("history"),
                                     QStringLiteral("Record into this history file or "
                                                    "postgresql://user@host/db (default: the "
                                                    "setting, or the user's history file)."),
                                     QStringLiteral("location"));
    parser.addOptions({connectTo, instrument, demo, screenshot, tab, size, lang, history});
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral("A List or Delayer sequence file to open (with "
                                                "--demo: to upload instead of the Sine)."),
                                 QStringLiteral("[file]"));
    parser.process(app);

    options->connect = parser.value(connectTo);
    options->instrument = parser.value(instrument);
    options->demo = parser.value(demo);
    options->screenshot = parser.value(screenshot);
    options->tab = parser.value(tab);
    options->language = parser.value(lang);
    options->file = parser.positionalArguments().value(0);
    options->history = parser.value(history);
    if (parser.positionalArguments().size() > 1)
        return fail(QStringLiteral("one sequence file at a time, not %1")
                        .arg(parser.positionalArguments().join(QLatin1Char(' '))));
    if (parser.isSet(lang) && !availableLanguages().contains(options->language))
        return fail(QStringLiteral("--lang %1: there are %2")
                        .arg(options->language, availableLanguages().join(QStringLiteral(", "))));
    const QRegularExpressionMatch wh
        = QRegularExpression(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$")).match(parser.value(size));
    if (!wh.hasMatch())
        return fail(QStringLiteral("--size %1: give WIDTHxHEIGHT in pixels, such as 1280x800")
                        .arg(parser.value(size)));
    options->size = QSize(wh.captured(1).toInt(), wh.captured(2).toInt());
    if (options->tab != QLatin1String("list") && options->tab != QLatin1String("delayer"))
        return fail(QStringLiteral("--tab %1: the tabs are list and delayer").arg(options->tab));
    if (!options->file.isEmpty()) {
        const QFileInfo file(options->file);
        if (!file.isFile() || !file.isReadable())
            return fail(QStringLiteral("%1: %2").arg(options->file,
                                                     file.exists()
                                                         ? QStringLiteral("not a readable file")
                                                         : QStringLiteral("no such file")));
    }
    return -1;
}

} // namespace

int main(int argc, char *argv[])
{
    Options options;
    {
        QCoreApplication terminal(argc, argv);
        nameApplication();
        if (const int status = readOptions(terminal, &options); status >= 0)
            return status;
    }
    // What draws into a file needs no display; it runs on the offscreen platform unless told.
    if ((!options.demo.isEmpty() || !options.screenshot.isEmpty())
        && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    nameApplication();
    installTranslators(options.language.isEmpty() ? QLocale::system() : QLocale(options.language));

    sim::InstrumentDescription description = sim::InstrumentDescription::builtIn();
    if (!options.instrument.isEmpty()) {
        QString error;
        const auto read = sim::InstrumentDescription::fromFile(options.instrument, &error);
        if (!read)
            return fail(error);
        description = *read;
    }
    QString error;
    const std::optional<CommandSet> commands
        = CommandSet::fromOverrides(description.commands, &error);
    if (!commands)
        return fail(options.instrument + QStringLiteral(": ") + error);

    if (!options.demo.isEmpty())
        return runDemo(
            description, *commands, options.connect, options.demo, options.size, options.file);

    MainWindow window(description, *commands);
    if (const QString refusal = window.sizeRefusal(options.size); !refusal.isEmpty())
        return fail(refusal);
    window.openHistory(options.history);
    if (!options.screenshot.isEmpty())
        return renderScreenshot(window, options.screenshot, options.tab, options.size);

    window.resize(options.size);
    window.show();
    if (!options.file.isEmpty())
        window.openSequenceFile(options.file);
    window.connectTo(options.connect);
    return QApplication::exec();
}
