// Tests of the sessions without a window: what the host reads from instruments, the command words
// it sends, and a sequence file uploaded, verified and run against the simulated supply.
#include "simulatorprocess.h"

#include "commandset.h"
#include "instrumentconnection.h"
#include "limitsprobe.h"
#include "linkfactory.h"
#include "replyparser.h"
#include "runsession.h"
#include "sequencefile.h"
#include "sequencereader.h"
#include "sequenceupload.h"
#include "uploadsession.h"
#include <character.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

// A connection to a simulated supply with an upload and a run session on it, as a rig has them.
struct Rig
{
    explicit Rig(const QStringList &faults = {})
        : sim(faults)
        , description(tarn::sim::InstrumentDescription::builtIn())
        , connection(description,
                     CommandSet(),
                     [this](const QString &address, QString *error) {
                         return createLink(address, description, error);
                     })
        , upload(connection.channel(), description, CommandSet())
        , run(connection.channel(), description, CommandSet())
        , sequenceUpload(&upload)
    {
        QObject::connect(&upload, &UploadSession::verified, &run, &RunSession::remember);
        run.setPollInterval(10);
    }

    bool connect()
    {
        QSignalSpy states(&connection, &InstrumentConnection::stateChanged);
        connection.connectTo(QStringLiteral("tcp://127.0.0.1:%1").arg(sim.port));
        for (int i = 0; i < 100 && connection.state() == InstrumentConnection::State::Connecting;
             ++i)
            states.wait(100);
        return connection.state() == InstrumentConnection::State::Connected;
    }

    UploadOutcome send(const SequenceContent &content)
    {
        QSignalSpy ended(&upload, &UploadSession::ended);
        sequenceUpload.start(content, 1, description.maxCount);
        if (!ended.wait(15000))
            return {false, QStringLiteral("(no outcome)"), -1, -1};
        return ended.first().first().value<UploadOutcome>();
    }

    Simulator sim;
    tarn::sim::InstrumentDescription description;
    InstrumentConnection connection;
    UploadSession upload;
    RunSession run;
    SequenceUpload sequenceUpload;
};

QList<ListData> rampSteps(int count)
{
    QList<ListData> steps;
    for (int i = 0; i < count; ++i)
        steps.append(ListData(1.5 + i, 3.0, 0.02));
    return steps;
}

} // namespace

class TestHostSession : public QObject
{
    Q_OBJECT

private slots:
    void errorReplies_data();
    void errorReplies();
    void listReadBack_data();
    void listReadBack();
    void delayerReadBack();
    void counts_data();
    void counts();
    void identityIsShownPrintable();
    void limitReplies_data();
    void limitReplies();
    void badDialectsAreRefused_data();
    void badDialectsAreRefused();
    void fileIsUploadedVerifiedAndRun();
    void readBackNamesTheStepStoredOtherwise_data();
    void readBackNamesTheStepStoredOtherwise();
};

void TestHostSession::errorReplies_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QTest::newRow("no error") << QByteArray("0,\"No error\"") << true << 0 << "No error";
    QTest::newRow("with detail") << QByteArray("-222,\"Data out of range;step 3\"") << true << -222
                                 << "Data out of range;step 3";
    QTest::newRow("unquoted text")
        << QByteArray("-113,Undefined header") << true << -113 << "Undefined header";
    QTest::newRow("comma inside the text") << QByteArray("-221,\"a,b\"") << true << -221 << "a,b";
    QTest::newRow("no comma") << QByteArray("-222") << false << 0 << "";
    QTest::newRow("not a number") << QByteArray("x,\"y\"") << false << 0 << "";
    QTest::newRow("positive code") << QByteArray("5,\"y\"") << false << 0 << "";
    QTest::newRow("empty") << QByteArray() << false << 0 << "";
}

void TestHostSession::errorReplies()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, readable);
    QFETCH(int, code);
    QFETCH(QString, text);

    const auto error = reply::parseError(line);
    QCOMPARE(error.has_value(), readable);
    if (readable) {
        QCOMPARE(error->code, code);
        QCOMPARE(error->text, text);
    }
}

void TestHostSession::listReadBack_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("steps"); // -1: refused

    QTest::newRow("two steps") << QByteArray("1.000,0.500,0.100,2.000,0.500,0.200") << 2;
    QTest::newRow("empty sequence") << QByteArray("") << 0;
    QTest::newRow("a field missing") << QByteArray("1.000,0.500,0.100,2.000,0.500") << -1;
    QTest::newRow("not a number") << QByteArray("1.000,x,0.100") << -1;
    QTest::newRow("infinite") << QByteArray("inf,0.5,0.1") << -1;
    QTest::newRow("more steps than the instrument holds")
        << QByteArray("1,1,1,").repeated(5).append("1,1,1") << -1;
}

void TestHostSession::listReadBack()
{
    QFETCH(QByteArray, line);
    QFETCH(int, steps);

    const auto list = reply::parseListData(line, 5);
    QCOMPARE(list.has_value() ? static_cast<int>(list->size()) : -1, steps);
    if (steps == 2) {
        QCOMPARE(list->at(1).voltage, 2.0);
        QCOMPARE(list->at(1).current, 0.5);
        QCOMPARE(list->at(1).time, 0.2);
    }
}

void TestHostSession::delayerReadBack()
{
    const auto steps = reply::parseDelayerData("1,0.100,0,0.250,ON,1", 10);
    QVERIFY(steps.has_value());
    QCOMPARE(steps->size(), 3);
    QCOMPARE(steps->at(0).state, true);
    QCOMPARE(steps->at(1).state, false);
    QCOMPARE(steps->at(1).time, 0.25);
    QCOMPARE(steps->at(2).state, true);
    QVERIFY(!reply::parseDelayerData("2,0.100", 10).has_value());
    QVERIFY(!reply::parseDelayerData("1,0.100,0", 10).has_value());
}

void TestHostSession::counts_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("count"); // -1: refused

    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("the bound") << QByteArray("2048") << 2048;
    QTest::newRow("above the bound") << QByteArray("2049") << -1;
    QTest::newRow("negative") << QByteArray("-1") << -1;
    QTest::newRow("text") << QByteArray("RUN") << -1;
}

void TestHostSession::counts()
{
    QFETCH(QByteArray, line);
    QFETCH(int, count);

    QCOMPARE(reply::parseCount(line, 2048).value_or(-1), count);
}

void TestHostSession::identityIsShownPrintable()
{
    QCOMPARE(reply::parseIdentity("Tarn,Model\x01,1,2\r").value(),
             QStringLiteral("Tarn,Model\ufffd,1,2"));
    QCOMPARE(reply::parseIdentity(QByteArray(1000, 'A'))->size(), 200);
    QVERIFY(!reply::parseIdentity("  ").has_value());
}

void TestHostSession::limitReplies_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("readable");

    QTest::newRow("whole") << QByteArray("2;0.000;20.000;0.500;3.200;18.000;2.500;1") << true;
    QTest::newRow("a query not known") << QByteArray("2;0.000;20.000;0.500;3.200;2.500;1") << false;
    QTest::newRow("another channel selected")
        << QByteArray("1;0.000;20.000;0.500;3.200;18.000;2.500;1") << false;
    QTest::newRow("an empty range")
        << QByteArray("2;20.000;20.000;0.500;3.200;18.000;2.500;1") << false;
    QTest::newRow("not a number") << QByteArray("2;0.000;MAX;0.500;3.200;18.000;2.500;1") << false;
}

void TestHostSession::limitReplies()
{
    QFETCH(QByteArray, reply);
    QFETCH(bool, readable);

    const auto limits = LimitsProbe::read(reply, 2);
    QCOMPARE(limits.has_value(), readable);
    if (readable) {
        QCOMPARE(limits->voltage.min, 0.0);
        QCOMPARE(limits->voltage.max, 20.0);
        QCOMPARE(limits->current.min, 0.5);
        QCOMPARE(limits->current.max, 3.2);
        QCOMPARE(limits->overVoltage, 18.0);
        QCOMPARE(limits->overCurrent, 2.5);
    }
}

void TestHostSession::badDialectsAreRefused_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("error");

    QTest::newRow("unknown word") << "listSteps"
                                  << "X %1"
                                  << "field \"commands.listSteps\": no such command word";
    QTest::newRow("a value lost") << "listStep"
                                  << "LIST:STEP %1,%2,%3"
                                  << "field \"commands.listStep\": must hold the placeholders %1, "
                                     "%2, %3, %4";
    QTest::newRow("a value invented") << "listClear"
                                      << "LIST:CLE %1"
                                      << "field \"commands.listClear\": must hold no placeholder";
    QTest::newRow("empty") << "nextError"
                           << " "
                           << "field \"commands.nextError\": must be one non-empty line";
}

void TestHostSession::badDialectsAreRefused()
{
    QFETCH(QString, key);
    QFETCH(QString, word);
    QFETCH(QString, error);

    QString message;
    QVERIFY(!CommandSet::fromOverrides({{key, word}}, &message).has_value());
    QCOMPARE(message, error);
}

void TestHostSession::fileIsUploadedVerifiedAndRun()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("ramp.csv"));
    Option option;
    option.voltageDecimals = option.currentDecimals = option.timeDecimals = 3;
    QVERIFY(tarn2::util::character::Character::csvSave(
        path, SequenceFile::listLines(rampSteps(5), 2, 0, option)));

    Rig rig;
    QString error;
    const auto lines = SequenceReader::readLines(path, rig.description.maxCount, &error);
    QVERIFY2(lines, qPrintable(error));
    const ReadResult read = SequenceReader::readFile(*lines, List, rig.connection.stepLimits(1));
    QVERIFY2(read.ok, qPrintable(read.error));
    QVERIFY(rig.connect());

    const UploadOutcome outcome = rig.send(read.content);
    QCOMPARE(outcome.message, QStringLiteral("Verified 5 steps on CH1"));
    QVERIFY(outcome.verified);

    QSignalSpy ended(&rig.run, &RunSession::ended);
    rig.run.start(1, true);
    QVERIFY(ended.wait(10000));
    QCOMPARE(ended.first().at(1).toBool(), false);
    // Two cycles of five steps: the trace saw the last step of the second cycle.
    bool sawLast = false;
    for (const RunSample &sample : rig.run.trace().samples())
        sawLast = sawLast || (sample.cycle == 2 && sample.step == 5);
    QVERIFY(sawLast);
}

void TestHostSession::readBackNamesTheStepStoredOtherwise_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("row");

    // Stored without an error, so only the read-back can tell.
    QTest::newRow("first List step, by its current")
        << QStringLiteral("--alter-step=1") << int(List)
        << QStringLiteral(
               "Step No. 0 differs: sent 1.500 V, 3.000 A, 0.020 s, the instrument holds "
               "1.500 V, 3.001 A, 0.020 s")
        << 0;
    QTest::newRow("last List step") << QStringLiteral("--alter-step=5") << int(List)
                                    << QStringLiteral("Step No. 4 differs: sent 5.500 V, 3.000 A, "
                                                      "0.020 s, the instrument holds 5.500 V, "
                                                      "3.001 A, 0.020 s")
                                    << 4;
    QTest::newRow("Delayer step, by its state")
        << QStringLiteral("--alter-step=2") << int(Delayer)
        << QStringLiteral("Step No. 1 differs: sent Off for 0.020 s, the instrument holds On for "
                          "0.020 s")
        << 1;
}

void TestHostSession::readBackNamesTheStepStoredOtherwise()
{
    QFETCH(QString, fault);
    QFETCH(int, mode);
    QFETCH(QString, message);
    QFETCH(int, row);

    Rig rig({fault});
    QVERIFY(rig.connect());
    SequenceContent content;
    content.mode = static_cast<UploadMode>(mode);
    content.list = rampSteps(5);
    for (int i = 0; i < 5; ++i)
        content.delayer.append(DelayerData(i % 2 == 0, 0.02));
    const UploadOutcome outcome = rig.send(content);
    QCOMPARE(outcome.message, message);
    QVERIFY(!outcome.verified);
    QCOMPARE(outcome.row, row);
}

QTEST_GUILESS_MAIN(TestHostSession)
#include "tst_hostsession.moc"
