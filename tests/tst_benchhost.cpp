// Tests of the bench host's upload path, from the dialog through a link to a simulated supply and
// back: every channel and mode, refusals, time-outs, dropped and refused connections, cancelling,
// the limits the instrument gives and the status it shows.
#include "benchfixture.h"
#include "simulatorprocess.h"

#include "commandchannel.h"
#include "commandset.h"
#include "instrumentoption.h"
#include "simlink.h"
#include "statusmonitor.h"
#include <dialogprogrammer.h>
#include <languages.h>
#include <supplyengine.h>
#include <window/benchcontroller.h>
#include <window/instrumentstatusview.h>
#include <window/runview.h>

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;
using benchtest::Bench;

namespace {

quint16 closedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    const quint16 port = server.serverPort();
    server.close();
    return port;
}

// The lines the host sent, in order.
QByteArrayList sent(const QSignalSpy &traffic)
{
    QByteArrayList lines;
    for (const QList<QVariant> &line : traffic) {
        if (line.at(0).toBool())
            lines.append(line.at(1).toByteArray());
    }
    return lines;
}

} // namespace

class TestBenchHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void uploadIsVerifiedOnEveryChannel_data();
    void uploadIsVerifiedOnEveryChannel();
    void badStepIsNamedAndSelected_data();
    void badStepIsNamedAndSelected();
    void runViewOffersWhatThisConnectionVerified();
    void slowInstrumentTimesOutAndTheDialogStaysUsable();
    void refusedConnectionIsReported();
    void uploadWithoutConnectionIsRefused();
    void cancelEndsAtOnceAndTellsWhatTheInstrumentHolds();
    void descriptionWithMissingFieldIsRefusedByName();
    void instrumentLimitsRefuseBeforeAnyStep_data();
    void instrumentLimitsRefuseBeforeAnyStep();
    void instrumentThatDoesNotTellItsLimitsConnects_data();
    void instrumentThatDoesNotTellItsLimitsConnects();
    void statusShowsATripAndClearsItOnItsChannel();

private:
    QTemporaryDir m_settings;
};

void TestBenchHost::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(m_settings.isValid());
    qputenv("XDG_CONFIG_HOME", m_settings.path().toUtf8());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_benchhost"));
}

void TestBenchHost::uploadIsVerifiedOnEveryChannel_data()
{
    QTest::addColumn<bool>("overTcp");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("channel");
    QTest::addColumn<QString>("message");

    const QStringList names{"CH1", "CH2", "CH3", "CH4", "Series", "Parallel"};
    for (const bool tcp : {false, true}) {
        for (int channel = 1; channel <= 6; ++channel) {
            const QString link = QLatin1String(tcp ? "tcp" : "in-process");
            QTest::addRow("%s list %s", qPrintable(link), qPrintable(names.at(channel - 1)))
                << tcp << static_cast<int>(UploadMode::List) << channel
                << QStringLiteral("Verified 60 steps on %1").arg(names.at(channel - 1));
            QTest::addRow("%s delayer %s", qPrintable(link), qPrintable(names.at(channel - 1)))
                << tcp << static_cast<int>(UploadMode::Delayer) << channel
                << QStringLiteral("Verified 20 steps on %1").arg(names.at(channel - 1));
        }
    }
}

void TestBenchHost::uploadIsVerifiedOnEveryChannel()
{
    QFETCH(bool, overTcp);
    QFETCH(int, mode);
    QFETCH(int, channel);
    QFETCH(QString, message);

    std::unique_ptr<Simulator> sim;
    QString address = QStringLiteral("sim:");
    if (overTcp) {
        sim = std::make_unique<Simulator>();
        address = QStringLiteral("tcp://127.0.0.1:%1").arg(sim->port);
    }
    Bench bench;
    QVERIFY(bench.connectTo(address));
    const auto uploadMode = static_cast<UploadMode>(mode);
    bench.append(uploadMode, 2);
    bench.selectChannel(uploadMode, channel);

    const UploadOutcome outcome = bench.upload(uploadMode);
    QCOMPARE(outcome.message, message);
    QVERIFY(outcome.verified);
    QVERIFY(bench.dialog->isEnabled());
}

void TestBenchHost::badStepIsNamedAndSelected_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("row");

    QTest::newRow("refused") << QStringLiteral("--refuse-step=7")
                             << QStringLiteral("Step No. 6 was refused (the instrument holds 6 of "
                                               "30 steps); the instrument says: “-222, Data out "
                                               "of range;step 7 refused by fault injection”")
                             << 6;
}

void TestBenchHost::badStepIsNamedAndSelected()
{
    QFETCH(QString, fault);
    QFETCH(QString, message);
    QFETCH(int, row);
    Simulator sim({fault});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 1);

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message, message);
    QVERIFY(!outcome.verified);
    QCOMPARE(outcome.row, row);
    QVERIFY(bench.dialog->isEnabled());
    QCOMPARE(bench.selectedRow(UploadMode::List), row);
}

// The run view offers what the instrument holds as verified on this connection, and its selector
// and status line speak of the same sequence; a new connection starts with nothing on offer.
void TestBenchHost::runViewOffersWhatThisConnectionVerified()
{
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    RunView view(bench.controller->runSession(), 3, 3, 3);
    auto *offered = view.findChild<QComboBox *>(QStringLiteral("runSequence"));
    bench.append(UploadMode::List, 1);
    QVERIFY(bench.upload(UploadMode::List).verified);
    bench.append(UploadMode::Delayer, 1);
    QVERIFY(bench.upload(UploadMode::Delayer).verified);

    QCOMPARE(offered->count(), 2);
    QCOMPARE(view.shownSequence(), qMakePair(1, false));
    const auto described = [&view](int steps) {
        return view.statusText().startsWith(QStringLiteral("Not running · %1 steps,").arg(steps));
    };
    QVERIFY2(described(bench.dialog->delayerSequence().size()), qPrintable(view.statusText()));
    view.showSequence(1, true);
    QVERIFY2(described(bench.dialog->listSequence().size()), qPrintable(view.statusText()));
    QVERIFY(view.canRun());

    bench.controller->disconnectFromInstrument();
    QCOMPARE(offered->count(), 0);
    QVERIFY(!view.canRun());
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    QCOMPARE(offered->count(), 0);
    QCOMPARE(view.statusText(), QString());
}

void TestBenchHost::slowInstrumentTimesOutAndTheDialogStaysUsable()
{
    // Replies later than the dialog's 500 ms watchdog: the steps written ahead fill the window
    // of unconfirmed steps and the dialog gives up on the host.
    Simulator sim({QStringLiteral("--latency"), QStringLiteral("800")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 40);

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message,
             QStringLiteral("The upload timed out: %1 of 1200 steps were sent, 0 confirmed by the "
                            "instrument")
                 .arg(UploadSession::window));
    QVERIFY(!outcome.verified);
    QVERIFY(bench.dialog->isEnabled());

    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    QCOMPARE(bench.upload(UploadMode::List).message, QStringLiteral("Verified 1200 steps on CH1"));
}

void TestBenchHost::refusedConnectionIsReported()
{
    Bench bench;
    const QString address = QStringLiteral("tcp://127.0.0.1:%1").arg(closedPort());
    QSignalSpy states(bench.controller.get(), &BenchController::stateChanged);
    QVERIFY(!bench.connectTo(address));
    QCOMPARE(states.last().at(1).toString(),
             QStringLiteral("Could not connect to %1: Connection refused").arg(address));

    QVERIFY(!bench.connectTo(QStringLiteral("telnet://somewhere")));
    QCOMPARE(states.last().at(1).toString(),
             QStringLiteral("telnet://somewhere is not an instrument address: use "
                            "tcp://HOST[:PORT], vxi11://HOST[:PORT][/DEVICE], "
                            "serial:DEVICE[?baud=N], usbtmc:DEVICE, sim:, or a resource string "
                            "such as TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, "
                            "USB0::0x1234::0x5678::SERIAL::INSTR or ASRL/dev/ttyUSB0::INSTR"));
}

void TestBenchHost::uploadWithoutConnectionIsRefused()
{
    Bench bench;
    bench.append(UploadMode::List, 1);
    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message,
             QStringLiteral("Not connected to an instrument: connect first, then upload"));
    QVERIFY(bench.dialog->isEnabled());
}

void TestBenchHost::cancelEndsAtOnceAndTellsWhatTheInstrumentHolds()
{
    Simulator sim({QStringLiteral("--latency"), QStringLiteral("300")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 40);

    QSignalSpy ended(bench.controller.get(), &BenchController::uploadEnded);
    bench.dialog->uploaderStart(UploadMode::List);
    QTRY_VERIFY_WITH_TIMEOUT(!bench.dialog->isEnabled(), 1000);
    QTest::qWait(100); // a window of steps is written by now, none confirmed
    bench.controller->cancelUpload();
    QTRY_VERIFY_WITH_TIMEOUT(bench.dialog->isEnabled(), 200);
    QVERIFY(ended.wait(3000));
    QCOMPARE(ended.first().first().value<UploadOutcome>().message,
             QStringLiteral("Upload cancelled: the instrument holds %1 of 1200 steps")
                 .arg(UploadSession::window));
}

void TestBenchHost::descriptionWithMissingFieldIsRefusedByName()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("broken.json"));
    QByteArray json = tarn::sim::InstrumentDescription::builtIn().toJson();
    json.replace("\"maxCount\": 2048,", "");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(json);
    file.close();

    QProcess host;
    host.start(
        QStringLiteral(TARN_BENCH_HOST),
        {QStringLiteral("--instrument"), path, QStringLiteral("--demo"), dir.filePath("x.png")});
    QVERIFY(host.waitForFinished(20000));
    QCOMPARE(host.exitCode(), 2);
    const QStringList errors = QString::fromUtf8(host.readAllStandardError()).trimmed().split('\n');
    QCOMPARE(errors.last(),
             QStringLiteral("tarn_bench_host: %1: field \"maxCount\": is missing").arg(path));
    QVERIFY(!QFile::exists(dir.filePath("x.png")));
}

void TestBenchHost::instrumentLimitsRefuseBeforeAnyStep_data()
{
    QTest::addColumn<double>("ch1MaxVolts");    // in the instrument's own description
    QTest::addColumn<QByteArray>("told");       // to the instrument before the host connects again
    QTest::addColumn<double>("voltageAtLimit"); // of step 2, which may go
    QTest::addColumn<double>("currentAtLimit");
    QTest::addColumn<double>("voltage"); // of step 3, which may not
    QTest::addColumn<double>("current");
    QTest::addColumn<QString>("problem");

    QTest::newRow("the instrument's own maximum")
        << 20.0 << QByteArray("*CLS") << 20.0 << 1.0 << 25.0 << 1.0
        << "voltage 25 V is above CH1's 20 V";
    QTest::newRow("over-voltage protection")
        << 32.0 << QByteArray("INST:NSEL 1;VOLT:PROT 12") << 12.0 << 1.0 << 15.0 << 1.0
        << "voltage 15 V is above CH1's over-voltage protection level of 12 V";
    QTest::newRow("over-current protection")
        << 32.0 << QByteArray("INST:NSEL 1;CURR:PROT 3.1") << 5.0 << 3.1 << 5.0 << 3.15
        << "current 3.15 A is above CH1's over-current protection level of 3.1 A";
}

void TestBenchHost::instrumentLimitsRefuseBeforeAnyStep()
{
    QFETCH(double, ch1MaxVolts);
    QFETCH(QByteArray, told);
    QFETCH(double, voltageAtLimit);
    QFETCH(double, currentAtLimit);
    QFETCH(double, voltage);
    QFETCH(double, current);
    QFETCH(QString, problem);

    QTemporaryDir dir;
    tarn::sim::InstrumentDescription own = tarn::sim::InstrumentDescription::builtIn();
    own.channels[0].voltage.max = ch1MaxVolts;
    QFile file(dir.filePath(QStringLiteral("own.json")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(own.toJson()) > 0);
    file.close();
    Simulator sim({QStringLiteral("--instrument"), file.fileName()});
    Bench bench;
    const QString address = QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port);
    QVERIFY(bench.connectTo(address));
    bool done = false;
    bench.controller->channel()->query(told + ";*OPC?", this, [&](auto) { done = true; });
    QTRY_VERIFY(done);
    QSignalSpy traffic(bench.controller.get(), &BenchController::traffic);
    QVERIFY(bench.connectTo(address));
    QCOMPARE(sent(traffic).at(1),
             QByteArray("INST:NSEL 1;INST:NSEL?;VOLT? MIN;VOLT? MAX;CURR? MIN;CURR? MAX;"
                        "VOLT:PROT?;CURR:PROT?;*OPC?"));
    bench.append(UploadMode::List, 1);
    QAbstractItemModel *table
        = bench.dialog->findChild<QTableView *>(QStringLiteral("tvList"))->model();
    QVERIFY(table->setData(table->index(2, 1), voltageAtLimit));
    QVERIFY(table->setData(table->index(2, 2), currentAtLimit));
    QVERIFY(table->setData(table->index(3, 1), voltage));
    QVERIFY(table->setData(table->index(3, 2), current));

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message,
             QStringLiteral("Not uploaded: 1 step cannot be sent to CH1; the first is step No. 3: ")
                 + problem);
    QCOMPARE(bench.selectedRow(UploadMode::List), 3);
    for (const QByteArray &line : sent(traffic))
        QVERIFY2(!line.startsWith("LIST:STEP"), line.constData());
}

void TestBenchHost::instrumentThatDoesNotTellItsLimitsConnects_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("voltageLimit"); // the host's word for the query
    QTest::addColumn<QString>("upload");       // of 25 V on CH1; empty: no upload

    QTest::newRow("a query it does not know") << QStringList() << "VOLT:RANGE? %1"
                                              << "Verified 30 steps on CH1";
    QTest::newRow("no answer") << QStringList{"--silent-after", "1"} << "VOLT? %1"
                               << "";
}

void TestBenchHost::instrumentThatDoesNotTellItsLimitsConnects()
{
    QFETCH(QStringList, options);
    QFETCH(QString, voltageLimit);
    QFETCH(QString, upload);

    Simulator sim(options);
    Bench bench;
    QString error;
    const auto commands = CommandSet::fromOverrides({{"voltageLimit", voltageLimit}}, &error);
    bench.controller
        = std::make_unique<BenchController>(bench.dialog.get(), bench.description, *commands);
    bench.controller->channel()->setReplyTimeout(300);
    QSignalSpy states(bench.controller.get(), &BenchController::stateChanged);
    const QString address = QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port);
    bench.controller->connectTo(address);
    bench.append(UploadMode::List, 1);
    QCOMPARE(bench.upload(UploadMode::List).message,
             QStringLiteral("Not uploaded: still connecting; upload once connected"));
    QTRY_COMPARE(bench.controller->state(), BenchController::State::Connected);
    QCOMPARE(states.last().at(1).toString(),
             QStringLiteral("Connected to %1; it did not tell its limits, so those of the "
                            "instrument description apply")
                 .arg(address));
    QVERIFY(!bench.controller->instrumentLimits(1));
    if (upload.isEmpty())
        return;
    // The errors the host's own queries left are cleared, not shown as waiting.
    QTRY_VERIFY(bench.controller->statusMonitor()->status().known);
    QCOMPARE(bench.controller->statusMonitor()->status().errors, 0);
    QAbstractItemModel *table
        = bench.dialog->findChild<QTableView *>(QStringLiteral("tvList"))->model();
    QVERIFY(table->setData(table->index(3, 1), 25.0));
    QCOMPARE(bench.upload(UploadMode::List).message, upload);
}

void TestBenchHost::statusShowsATripAndClearsItOnItsChannel()
{
    const QList<QTranslator *> english = installTranslators(QLocale(QLocale::English));
    Bench bench;
    InstrumentStatusView view(bench.controller->statusMonitor(),
                              {"CH1", "CH2", "CH3", "CH4", "Series", "Parallel"},
                              nullptr);
    QSignalSpy traffic(bench.controller.get(), &BenchController::traffic);
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    QTRY_COMPARE(view.text(), QStringLiteral("No trips, no errors"));

    // CH2 trips while CH1 plays; the look at every channel must leave CH1 selected.
    bench.append(UploadMode::List, 1);
    QVERIFY(bench.upload(UploadMode::List).verified);
    bench.controller->runSession()->start(1, true);
    bench.controller->channel()->send("INST:NSEL 2;VOLT:PROT 4;VOLT 5;OUTP ON;INST:NSEL 1");
    QTRY_COMPARE(view.text(),
                 QStringLiteral("Protection tripped: CH2 over-voltage; 1 error waiting"));
    QVERIFY2(sent(traffic).constLast().endsWith(
                 ";INST:NSEL 6;VOLT:PROT:TRIP?;CURR:PROT:TRIP?;INST:NSEL 1;*OPC?"),
             sent(traffic).constLast().constData());
    // With the error read, the trip alone still shows.
    bench.controller->channel()->send("*CLS");
    QTRY_COMPARE(view.text(), QStringLiteral("Protection tripped: CH2 over-voltage"));

    auto *clear = view.findChild<QPushButton *>(QStringLiteral("clearTrip"));
    QVERIFY(clear->isVisibleTo(&view));
    clear->click();
    QCOMPARE(sent(traffic).at(sent(traffic).size() - 2),
             QByteArray("INST:NSEL 2;OUTP:PROT:CLE;INST:NSEL 1"));
    QTRY_COMPARE(view.text(), QStringLiteral("No trips, no errors"));
    QVERIFY(!clear->isVisibleTo(&view));
    qDeleteAll(english);
}

QTEST_MAIN(TestBenchHost)
#include "tst_benchhost.moc"
