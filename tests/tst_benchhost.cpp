// Tests of the bench host's upload path, from the dialog through a link to a simulated supply and
// back: every channel and mode, refusals, time-outs, dropped and refused connections, cancelling.
#include "benchfixture.h"
#include "simulatorprocess.h"

#include <dialogprogrammer.h>
#include <links/simlink.h>
#include <session/commandset.h>
#include <session/instrumentoption.h>
#include <supplyengine.h>
#include <window/benchcontroller.h>

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

} // namespace

class TestBenchHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void uploadIsVerifiedOnEveryChannel_data();
    void uploadIsVerifiedOnEveryChannel();
    void instrumentHoldsWhatTheDialogShows();
    void refusedStepIsNamedAndSelected();
    void slowInstrumentTimesOutAndTheDialogStaysUsable();
    void droppedConnectionEndsTheUploadAndReconnectWorks();
    void refusedConnectionIsReported();
    void uploadWithoutConnectionIsRefused();
    void cancelEndsAtOnceAndTellsWhatTheInstrumentHolds();
    void descriptionWithMissingFieldIsRefusedByName();

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

void TestBenchHost::instrumentHoldsWhatTheDialogShows()
{
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    bench.append(UploadMode::List, 1);
    bench.selectChannel(UploadMode::List, 5);
    QVERIFY(bench.upload(UploadMode::List).verified);

    auto *link = qobject_cast<SimLink *>(bench.controller->link());
    QVERIFY(link);
    const auto &held = link->engine().listSteps(4);
    QAbstractItemModel *table
        = bench.dialog->findChild<QTableView *>(QStringLiteral("tvList"))->model();
    QCOMPARE(held.size(), table->rowCount());
    for (int row = 0; row < table->rowCount(); ++row) {
        QCOMPARE(QString::number(held.at(row).voltage, 'f', 3),
                 table->index(row, 1).data().toString());
        QCOMPARE(QString::number(held.at(row).current, 'f', 3),
                 table->index(row, 2).data().toString());
        QCOMPARE(QString::number(held.at(row).ticks / 1000.0, 'f', 3),
                 table->index(row, 3).data().toString());
    }
    QCOMPARE(link->engine().repeat(4, tarn::sim::SequenceMode::List), 0);
    QCOMPARE(link->engine().endState(4, tarn::sim::SequenceMode::List), tarn::sim::EndState::Off);
}

void TestBenchHost::refusedStepIsNamedAndSelected()
{
    Simulator sim({QStringLiteral("--refuse-step"), QStringLiteral("7")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 1);

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message,
             QStringLiteral("Step 7 was refused by the instrument: -222, Data out of range;step 7 "
                            "refused by fault injection (it holds 6 of 30 steps)"));
    QCOMPARE(outcome.row, 6);
    QVERIFY(bench.dialog->isEnabled());
    QCOMPARE(bench.selectedRow(UploadMode::List), 6);
}

void TestBenchHost::slowInstrumentTimesOutAndTheDialogStaysUsable()
{
    // Replies later than the dialog's 500 ms watchdog: the steps written ahead fill the window
    // of unconfirmed steps and the dialog gives up on the host.
    Simulator sim({QStringLiteral("--latency"), QStringLiteral("800")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 10);

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QCOMPARE(outcome.message,
             QStringLiteral("The upload timed out: %1 of 300 steps were sent, 0 confirmed by the "
                            "instrument")
                 .arg(UploadSession::window));
    QVERIFY(!outcome.verified);
    QVERIFY(bench.dialog->isEnabled());

    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    QCOMPARE(bench.upload(UploadMode::List).message, QStringLiteral("Verified 300 steps on CH1"));
}

void TestBenchHost::droppedConnectionEndsTheUploadAndReconnectWorks()
{
    Simulator sim({QStringLiteral("--drop-after"), QStringLiteral("60")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::Delayer, 10);

    const UploadOutcome outcome = bench.upload(UploadMode::Delayer);
    QVERIFY2(outcome.message.startsWith(QStringLiteral("The connection was lost during the upload "
                                                       "(The instrument closed the connection): ")),
             qPrintable(outcome.message));
    QVERIFY(bench.dialog->isEnabled());
    QCOMPARE(bench.controller->state(), BenchController::State::Disconnected);

    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    QAbstractItemModel *table
        = bench.dialog->findChild<QTableView *>(QStringLiteral("tvDelayer"))->model();
    QCOMPARE(table->rowCount(), 100); // the sequence is intact
    table->removeRows(20, 80);
    QCOMPARE(bench.upload(UploadMode::Delayer).message, QStringLiteral("Verified 20 steps on CH1"));
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
                            "tcp://HOST[:PORT], serial:DEVICE[?baud=N] or sim:"));
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
    bench.append(UploadMode::List, 10);

    QSignalSpy ended(bench.controller.get(), &BenchController::uploadEnded);
    bench.dialog->uploaderStart(UploadMode::List);
    QTRY_VERIFY_WITH_TIMEOUT(!bench.dialog->isEnabled(), 1000);
    QTest::qWait(100); // a window of steps is written by now, none confirmed
    bench.controller->cancelUpload();
    QTRY_VERIFY_WITH_TIMEOUT(bench.dialog->isEnabled(), 200);
    QVERIFY(ended.wait(3000));
    QCOMPARE(ended.first().first().value<UploadOutcome>().message,
             QStringLiteral("Upload cancelled: the instrument holds %1 of 300 steps")
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

QTEST_MAIN(TestBenchHost)
#include "tst_benchhost.moc"
