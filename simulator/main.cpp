// tarn_supply_sim: the simulated supply as a LAN instrument on a raw command socket.
#include "instrumentdescription.h"
#include "pseudoterminal.h"
#include "supplyengine.h"
#include "supplyserver.h"
#include "vxi11server.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <sys/socket.h>
#include <unistd.h>

using namespace tarn::sim;

namespace {

int signalPipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t n = ::write(signalPipe[1], &byte, 1);
}

// SIGINT and SIGTERM end the event loop through a socket pair, the one thing a handler may touch.
void quitOnSignals(QCoreApplication *app)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) != 0)
        return;
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, app);
    QObject::connect(notifier, &QSocketNotifier::activated, app, [] {
        char byte;
        [[maybe_unused]] const ssize_t n = ::read(signalPipe[0], &byte, 1);
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

int fail(const QString &message)
{
    std::fprintf(stderr, "tarn_supply_sim: %s\n", qPrintable(message));
    return 2;
}

bool readInt(const QCommandLineParser &parser, const QCommandLineOption &option, int *value)
{
    if (!parser.isSet(option))
        return true;
    bool ok = false;
    *value = parser.value(option).toInt(&ok);
    return ok && *value >= 0;
}

bool readEndpoint(const QString &text, QHostAddress *address, quint16 *port)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    bool ok = false;
    const uint number = text.mid(colon + 1).toUInt(&ok);
    *address = QHostAddress(text.left(colon));
    *port = static_cast<quint16>(number);
    return colon >= 0 && ok && number <= 65535 && !address->isNull();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarn_supply_sim"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A simulated multi-channel bench supply that holds, checks and plays List "
                       "and Delayer sequences behind a raw SCPI socket."));
    parser.addHelpOption();
    const QCommandLineOption listen(
        QStringLiteral("listen"),
        QStringLiteral("Address and port to listen on; port 0 picks a free one."),
        QStringLiteral("address:port"),
        QStringLiteral("127.0.0.1:5025"));
    const QCommandLineOption instrument(QStringLiteral("instrument"),
                                        QStringLiteral("Instrument description file (JSON)."),
                                        QStringLiteral("file"));
    const QCommandLineOption speed(QStringLiteral("speed"),
                                   QStringLiteral("Sequence seconds played per real second."),
                                   QStringLiteral("factor"),
                                   QStringLiteral("1"));
    const QCommandLineOption load(QStringLiteral("load"),
                                  QStringLiteral("Resistive load on every output, in ohms."),
                                  QStringLiteral("ohms"),
                                  QStringLiteral("10"));
    const QCommandLineOption latency(QStringLiteral("latency"),
                                     QStringLiteral("Fault: delay every reply by <ms>."),
                                     QStringLiteral("ms"));
    const QCommandLineOption dropAfter(
        QStringLiteral("drop-after"),
        QStringLiteral("Fault: cut the connection after <n> commands."),
        QStringLiteral("n"));
    const QCommandLineOption silentAfter(
        QStringLiteral("silent-after"),
        QStringLiteral("Fault: ignore every command after the first <n>."),
        QStringLiteral("n"));
    const QCommandLineOption refuseStep(QStringLiteral("refuse-step"),
                                        QStringLiteral("Fault: refuse every write of step <n>."),
                                        QStringLiteral("n"));
    const QCommandLineOption alterStep(
        QStringLiteral("alter-step"),
        QStringLiteral("Fault: store step <n> other than it was written (a List step's current one "
                       "digit off, a Delayer step's state flipped)."),
        QStringLiteral("n"));
    const QCommandLineOption pty(
        QStringLiteral("pty"),
        QStringLiteral(
            "Serve a pseudo-terminal linked at <path> instead of a socket, for a host to "
            "open as a serial port or as a USB instrument's device file."),
        QStringLiteral("path"));
    const QCommandLineOption baud(
        QStringLiteral("baud"),
        QStringLiteral("With --pty: pace the bytes both ways as a serial line of <rate> would."),
        QStringLiteral("rate"));
    const QCommandLineOption vxi11(
        QStringLiteral("vxi11"),
        QStringLiteral("Serve the VXI-11 core channel on <address:port> (port 0 picks a free one), "
                       "instead of the raw socket unless --listen is given too."),
        QStringLiteral("address:port"));
    const QCommandLineOption vxi11Register(
        QStringLiteral("vxi11-register"),
        QStringLiteral("With --vxi11: register its port with the portmapper running on this "
                       "machine, if one runs, for clients that give no port."));
    const QCommandLineOption printDescription(
        QStringLiteral("print-description"),
        QStringLiteral("Print the built-in instrument description and exit."));
    parser.addOptions({listen,
                       instrument,
                       speed,
                       load,
                       latency,
                       dropAfter,
                       silentAfter,
                       refuseStep,
                       alterStep,
                       pty,
                       baud,
                       vxi11,
                       vxi11Register,
                       printDescription});
    parser.process(app);

    if (parser.isSet(printDescription)) {
        std::fputs(InstrumentDescription::builtIn().toJson().constData(), stdout);
        return 0;
    }

    InstrumentDescription description = InstrumentDescription::builtIn();
    if (parser.isSet(instrument)) {
        QString error;
        const auto read = InstrumentDescription::fromFile(parser.value(instrument), &error);
        if (!read)
            return fail(error);
        description = *read;
    }

    const QString listenText = parser.value(listen);
    QHostAddress address;
    quint16 port = 0;
    if (!readEndpoint(listenText, &address, &port))
        return fail(QStringLiteral("--listen wants ADDRESS:PORT, such as 127.0.0.1:5025"));
    QHostAddress vxi11Address;
    quint16 vxi11Port = 0;
    if (parser.isSet(vxi11) && !readEndpoint(parser.value(vxi11), &vxi11Address, &vxi11Port))
        return fail(QStringLiteral("--vxi11 wants ADDRESS:PORT, such as 127.0.0.1:0"));

    bool ok = false;
    const double speedFactor = parser.value(speed).toDouble(&ok);
    if (!ok || !(speedFactor > 0.0))
        return fail(QStringLiteral("--speed wants a positive factor"));
    const double loadOhms = parser.value(load).toDouble(&ok);
    if (!ok || !(loadOhms > 0.0))
        return fail(QStringLiteral("--load wants a positive resistance in ohms"));
    ServerFaults faults;
    int refused = 0;
    int altered = 0;
    int baudRate = 0;
    if (!readInt(parser, latency, &faults.latencyMs)
        || !readInt(parser, dropAfter, &faults.dropAfter)
        || !readInt(parser, silentAfter, &faults.silentAfter)
        || !readInt(parser, refuseStep, &refused) || !readInt(parser, alterStep, &altered)
        || !readInt(parser, baud, &baudRate))
        return fail(QStringLiteral("fault options want a whole number of 0 or more"));

    SupplyEngine engine(description);
    engine.setSpeed(speedFactor);
    engine.setLoad(loadOhms);
    engine.setRefusedStep(refused);
    engine.setAlteredStep(altered);

    SupplyServer server(&engine, faults);
    if (parser.isSet(pty)) {
        PseudoTerminal terminal;
        QString error;
        if (!terminal.open(parser.value(pty), &error))
            return fail(error);
        server.serveTerminal(terminal.takeMaster(), parser.value(pty), baudRate);
        quitOnSignals(&app);
        std::printf("tarn_supply_sim: %s with %d channels ready on %s (%s)\n",
                    qPrintable(description.model),
                    static_cast<int>(description.channels.size()),
                    qPrintable(parser.value(pty)),
                    qPrintable(terminal.device()));
        std::fflush(stdout);
        const int status = QCoreApplication::exec();
        std::printf("tarn_supply_sim: stopped after %lld bytes in, %lld bytes out\n",
                    static_cast<long long>(server.bytesIn()),
                    static_cast<long long>(server.bytesOut()));
        return status;
    }
    const bool raw = !parser.isSet(vxi11) || parser.isSet(listen);
    if (raw && !server.listen(address, port))
        return fail(
            QStringLiteral("cannot listen on %1: %2").arg(listenText, server.errorString()));
    Vxi11Server vxi11Server(&engine, faults);
    bool registered = false;
    if (parser.isSet(vxi11)) {
        if (!vxi11Server.listen(vxi11Address, vxi11Port))
            return fail(QStringLiteral("cannot serve VXI-11 on %1: %2")
                            .arg(parser.value(vxi11), vxi11Server.errorString()));
        QString error;
        if (parser.isSet(vxi11Register)) {
            registered = vxi11Server.registerWithPortmapper(true, &error);
            if (!registered)
                std::fprintf(stderr, "tarn_supply_sim: not registered: %s\n", qPrintable(error));
        }
    }
    quitOnSignals(&app);

    if (raw)
        std::printf("tarn_supply_sim: %s with %d channels ready on %s:%u\n",
                    qPrintable(description.model),
                    static_cast<int>(description.channels.size()),
                    qPrintable(server.address().toString()),
                    server.port());
    if (parser.isSet(vxi11))
        std::printf("tarn_supply_sim: %s with %d channels ready on VXI-11 %s:%u\n",
                    qPrintable(description.model),
                    static_cast<int>(description.channels.size()),
                    qPrintable(vxi11Server.address().toString()),
                    vxi11Server.port());
    std::fflush(stdout);
    const int status = QCoreApplication::exec();
    QString error;
    if (registered && !vxi11Server.registerWithPortmapper(false, &error))
        std::fprintf(stderr, "tarn_supply_sim: %s\n", qPrintable(error));
    std::printf("tarn_supply_sim: stopped after %lld bytes in, %lld bytes out\n",
                static_cast<long long>(server.bytesIn()),
                static_cast<long long>(server.bytesOut()));
    return status;
}
