// Tests of the bench host under faults: a link that drops at each phase, the dialog's watchdog
// inside a handler, uploaderStop() from inside every dialog signal, the dialog closed during an
// upload, a reply that never ends, and random sequences that must come back exactly.
#include "benchfixture.h"
#include "simulatorprocess.h"

#include "runsession.h"
#include "simlink.h"
#include <supplyengine.h>

#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;
using benchtest::Bench;

namespace {

QAbstractItemModel *table(const Bench &bench, UploadMode mode)
{
    return bench.dialog
        ->findChild<QTableView *>(mode == UploadMode::List ? QStringLiteral("tvList")
                                                           : QStringLiteral("tvDelayer"))
        ->model();
}

double within(QRandomGenerator &random, double lo, double hi, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round((lo + random.generateDouble() * (hi - lo)) * scale) / scale;
}

} // namespace

class TestHostFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void linkDropsAtEachPhase_data();
    void linkDropsAtEachPhase();
    void watchdogFiresInsideAHandler();
    void uploaderStopFromInsideEverySignal_data();
    void uploaderStopFromInsideEverySignal();
    void dialogClosedDuringAnUpload();
    void replyThatNeverEndsIsCut();
    void randomSequencesUploadAndReadBackExactly();

private:
    QTemporaryDir m_settings;
};

void TestHostFaults::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(m_settings.isValid());
    qputenv("XDG_CONFIG_HOME", m_settings.path().toUtf8());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_hostfaults"));
}

void TestHostFaults::linkDropsAtEachPhase_data()
{
    QTest::addColumn<int>("dropAfter");
    QTest::addColumn<QString>("message");

    // Connecting takes 8 lines: the identity, the limits of each of the 6 channels and a look at
    // the status. An upload of 30 steps takes 6 lines to start, 30 steps and one error query,
    // then the read-back and a look at the status; a run takes 4 lines to start and 4 a poll.
    QTest::newRow("starting") << 10 << "The connection was lost during the upload";
    QTest::newRow("mid-upload") << 27 << "The connection was lost during the upload";
    QTest::newRow("verifying") << 45 << "The connection was lost during the upload";
    QTest::newRow("running") << 57 << "The connection was lost during the run";
}

void TestHostFaults::linkDropsAtEachPhase()
{
    QFETCH(int, dropAfter);
    QFETCH(QString, message);

    Simulator sim({QStringLiteral("--drop-after"), QString::number(dropAfter)});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 1);
    QSignalSpy runEnded(bench.controller->runSession(), &RunSession::ended);

    const UploadOutcome outcome = bench.upload(UploadMode::List);
    if (outcome.verified) {
        bench.controller->runSession()->start(1, true);
        QVERIFY(runEnded.wait(10000));
        QVERIFY2(runEnded.first().first().toString().startsWith(message),
                 qPrintable(runEnded.first().first().toString()));
    } else {
        QVERIFY2(outcome.message.startsWith(message), qPrintable(outcome.message));
    }
    QVERIFY(bench.dialog->isEnabled());
    QCOMPARE(table(bench, UploadMode::List)->rowCount(), 30);
    QCOMPARE(bench.controller->state(), BenchController::State::Disconnected);
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    QVERIFY(bench.upload(UploadMode::List).verified);
}

void TestHostFaults::watchdogFiresInsideAHandler()
{
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    bench.append(UploadMode::List, 1);
    // A handler that keeps the event loop busy for longer than the dialog's 500 ms: the watchdog
    // goes off while the host is still inside it.
    bool waited = false;
    connect(bench.dialog.get(), &DialogProgrammer::uploaderNextData, this, [&](int index) {
        if (index == 5 && !waited) {
            waited = true;
            QTest::qWait(700);
        }
    });
    const UploadOutcome outcome = bench.upload(UploadMode::List);
    QVERIFY2(outcome.message.startsWith(QStringLiteral("The upload timed out: ")),
             qPrintable(outcome.message));
    QVERIFY(bench.dialog->isEnabled());
    QCOMPARE(table(bench, UploadMode::List)->rowCount(), 30);
}

void TestHostFaults::uploaderStopFromInsideEverySignal_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("uploaderStarted") << "uploaderStarted";
    QTest::newRow("uploaderNextData") << "uploaderNextData";
    QTest::newRow("uploaderFinished") << "uploaderFinished";
}

void TestHostFaults::uploaderStopFromInsideEverySignal()
{
    QFETCH(QString, signal);

    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    bench.append(UploadMode::Delayer, 1);
    bool stopped = false;
    auto stopOnce = [&] {
        if (!stopped) {
            stopped = true;
            bench.dialog->uploaderStop();
        }
    };
    DialogProgrammer *dialog = bench.dialog.get();
    if (signal == QLatin1String("uploaderStarted"))
        connect(dialog, &DialogProgrammer::uploaderStarted, this, stopOnce);
    else if (signal == QLatin1String("uploaderNextData"))
        connect(dialog, &DialogProgrammer::uploaderNextData, this, stopOnce);
    else
        connect(dialog, &DialogProgrammer::uploaderFinished, this, stopOnce);
    QSignalSpy stoppedSpy(dialog, &DialogProgrammer::uploaderStoped);

    dialog->uploaderStart(UploadMode::Delayer);
    QTRY_VERIFY_WITH_TIMEOUT(stopped, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(dialog->isEnabled(), 5000);
    QCOMPARE(stoppedSpy.size(), 1);
    QTest::qWait(700); // past the dialog's watchdog: nothing may come of it now
    QCOMPARE(stoppedSpy.size(), 1);
    QVERIFY(!bench.controller->isUploading());
    QCOMPARE(table(bench, UploadMode::Delayer)->rowCount(), 10);
    disconnect(dialog, nullptr, this, nullptr);
    QCOMPARE(bench.upload(UploadMode::Delayer).message, QStringLiteral("Verified 10 steps on CH1"));
}

void TestHostFaults::dialogClosedDuringAnUpload()
{
    Simulator sim({QStringLiteral("--latency"), QStringLiteral("100")});
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port)));
    bench.append(UploadMode::List, 20);
    bench.dialog->uploaderStart(UploadMode::List);
    QTRY_VERIFY_WITH_TIMEOUT(bench.controller->isUploading(), 2000);
    bench.dialog.reset();
    QTest::qWait(300); // replies keep arriving for a dialog that is gone
    QVERIFY(bench.controller->state() == BenchController::State::Connected);
}

void TestHostFaults::replyThatNeverEndsIsCut()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost, 0));
    QPointer<QTcpSocket> peer;
    int sent = 0;
    connect(&server, &QTcpServer::newConnection, this, [&] {
        peer = server.nextPendingConnection();
        connect(peer, &QTcpSocket::readyRead, peer, [&] {
            peer->readAll();
            // An identity that goes on and on, a megabyte at a time, never ending its line.
            const QByteArray chunk(1 << 20, 'A');
            for (int i = 0; i < 8 && peer; ++i, ++sent)
                peer->write(chunk);
        });
    });
    Bench bench;
    QSignalSpy states(bench.controller.get(), &BenchController::stateChanged);
    bench.controller->connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(server.serverPort()));
    QTRY_VERIFY_WITH_TIMEOUT(states.size() >= 2, 10000);
    QCOMPARE(bench.controller->state(), BenchController::State::Disconnected);
    QCOMPARE(states.last().at(1).toString(),
             QStringLiteral("Could not connect to tcp://127.0.0.1:%1: The instrument sent a reply "
                            "longer than 262144 bytes")
                 .arg(server.serverPort()));
    QVERIFY(sent <= 8);
}

void TestHostFaults::randomSequencesUploadAndReadBackExactly()
{
    QRandomGenerator random(7);
    Bench bench;
    QVERIFY(bench.connectTo(QStringLiteral("sim:")));
    auto *sim = qobject_cast<SimLink *>(bench.controller->link());
    QVERIFY(sim);
    QAbstractItemModel *list = table(bench, UploadMode::List);
    for (int round = 0; round < 6; ++round) {
        const int channel = 1 + round;
        const auto &ranges = bench.description.channels.at(channel - 1);
        bench.selectChannel(UploadMode::List, channel);
        list->removeRows(0, list->rowCount());
        bench.append(UploadMode::List, 1 + random.bounded(4));
        for (int row = 0; row < list->rowCount(); ++row) {
            QVERIFY(list->setData(list->index(row, 1),
                                  within(random, ranges.voltage.min, ranges.voltage.max, 3)));
            QVERIFY(list->setData(list->index(row, 2),
                                  within(random, ranges.current.min, ranges.current.max, 3)));
            QVERIFY(list->setData(list->index(row, 3), within(random, 0.001, 500.0, 3)));
        }
        QVERIFY(bench.upload(UploadMode::List).verified);
        QCOMPARE(sim->engine().repeat(channel - 1, tarn::sim::SequenceMode::List), 0);
        QCOMPARE(sim->engine().endState(channel - 1, tarn::sim::SequenceMode::List),
                 tarn::sim::EndState::Off);
        const auto &held = sim->engine().listSteps(channel - 1);
        QCOMPARE(held.size(), list->rowCount());
        for (int row = 0; row < list->rowCount(); ++row) {
            QCOMPARE(QString::number(held.at(row).voltage, 'f', 3),
                     list->index(row, 1).data().toString());
            QCOMPARE(QString::number(held.at(row).current, 'f', 3),
                     list->index(row, 2).data().toString());
            QCOMPARE(QString::number(held.at(row).ticks / 1000.0, 'f', 3),
                     list->index(row, 3).data().toString());
        }
    }
}

QTEST_MAIN(TestHostFaults)
#include "tst_hostfaults.moc"
