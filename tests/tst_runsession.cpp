// Tests of running an uploaded sequence: the trace against the plan, Stop and the end states,
// endless repeats, refusals, a link that drops during a run, and the exported trace.
#include "simulatorprocess.h"

#include "commandchannel.h"
#include "commandset.h"
#include "runsession.h"
#include "simlink.h"
#include "tcplink.h"
#include <supplyengine.h>
#include <window/runview.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace tarn::host;
using tarn2::specific::orvo5000::programmer::DelayerData;
using tarn2::specific::orvo5000::programmer::ListData;

namespace {

// A run session on a link to a simulated supply, the sequence written straight to the instrument
// and remembered as if it had been uploaded and verified.
struct Rig
{
    explicit Rig(std::unique_ptr<InstrumentLink> instrumentLink)
        : link(std::move(instrumentLink))
        , run(&channel, tarn::sim::InstrumentDescription::builtIn(), CommandSet())
    {
        QSignalSpy opened(link.get(), &InstrumentLink::opened);
        link->open();
        opened.wait(5000);
        channel.setLink(link.get());
        QObject::connect(link.get(), &InstrumentLink::failed, &run, &RunSession::linkLost);
        run.setPollInterval(10);
    }

    void load(const UploadedSequence &sequence)
    {
        const QByteArray mode = sequence.list ? "LIST" : "DEL";
        channel.send("INST:NSEL " + QByteArray::number(sequence.channel) + ';' + mode + ":CLE;"
                     + mode + ":REP " + QByteArray::number(sequence.cycles) + ';' + mode + ":END "
                     + sequence.endState.toUtf8());
        for (int i = 0; i < sequence.stepCount(); ++i) {
            const QByteArray index = QByteArray::number(i + 1);
            if (sequence.list) {
                const ListData &s = sequence.listSteps.at(i);
                channel.send("LIST:STEP " + index + ',' + QByteArray::number(s.voltage) + ','
                             + QByteArray::number(s.current) + ',' + QByteArray::number(s.time));
            } else {
                const DelayerData &s = sequence.delayerSteps.at(i);
                channel.send("DEL:STEP " + index + (s.state ? ",ON," : ",OFF,")
                             + QByteArray::number(s.time));
            }
        }
        run.remember(sequence);
    }

    // Waits for the run to end; the message and whether it failed.
    QPair<QString, bool> waitForEnd(int timeoutMs = 10000)
    {
        QSignalSpy ended(&run, &RunSession::ended);
        if (!ended.wait(timeoutMs))
            return {QStringLiteral("(still running)"), true};
        return {ended.first().at(0).toString(), ended.first().at(1).toBool()};
    }

    std::unique_ptr<InstrumentLink> link;
    CommandChannel channel;
    RunSession run;
};

std::unique_ptr<InstrumentLink> simulated(double speed)
{
    return std::make_unique<SimLink>(tarn::sim::InstrumentDescription::builtIn(), speed);
}

UploadedSequence tenVoltSteps(int cycles, const QString &end)
{
    UploadedSequence s;
    s.list = true;
    s.channel = 1;
    s.channelName = QStringLiteral("CH1");
    s.cycles = cycles;
    s.endState = end;
    for (int i = 1; i <= 10; ++i)
        s.listSteps.append(ListData(i, 3.0, 1.0));
    return s;
}

} // namespace

class TestRunSession : public QObject
{
    Q_OBJECT

private slots:
    void listTraceReachesEveryStepInItsTime();
    void stopLeavesTheEndState_data();
    void stopLeavesTheEndState();
    void delayerTraceFollowsOnAndOff();
    void listWhileTheDelayerRunsIsRefusedWithTheReason();
    void runNeedsAVerifiedUpload();
    void droppedLinkEndsTheRunAndKeepsTheTrace();
    void exportedTraceLines();
    void traceStaysBoundedForAnHour();
};

void TestRunSession::listTraceReachesEveryStepInItsTime()
{
    Rig rig(simulated(10.0)); // a 1 s step lasts 100 ms
    rig.load(tenVoltSteps(1, QStringLiteral("LAST")));
    RunView view(&rig.run, 3, 3, 3);
    QStringList shown;
    connect(&rig.run, &RunSession::sampled, &view, [&] { shown << view.statusText(); });

    rig.run.start(1, true);
    const auto end = rig.waitForEnd();
    QCOMPARE(end.first, QStringLiteral("The sequence ended after 1 cycle"));
    QVERIFY(!end.second);

    const QVector<RunSample> &samples = rig.run.trace().samples();
    QSet<int> seen;
    int lastStep = 0;
    for (const RunSample &s : samples) {
        if (s.step == 0)
            continue;
        seen.insert(s.step);
        QVERIFY2(s.step >= lastStep, "the cursor went back");
        lastStep = s.step;
        QCOMPARE(s.voltage, static_cast<double>(s.step)); // 10 ohms draw less than the 3 A limit
        QCOMPARE(s.current, s.step / 10.0);
        QVERIFY(s.output);
        QVERIFY2(s.time >= s.step - 1 && s.time < s.step, qPrintable(QString::number(s.time)));
    }
    QCOMPARE(seen.size(), 10);
    QCOMPARE(samples.constLast().step, 0);
    QCOMPARE(samples.constLast().output, true); // end state Last: on at the last step's level
    QCOMPARE(samples.constLast().voltage, 10.0);
    const QRegularExpression stepFive(QStringLiteral(
        "^Step No. 4 of 10 steps \u00b7 cycle 1 of 1 \u00b7 4\\.\\d{3} s of 10\\.000 s$"));
    QVERIFY2(!shown.filter(stepFive).isEmpty(), qPrintable(shown.join(QLatin1Char('\n'))));
    QCOMPARE(view.statusText(),
             QStringLiteral("Not running \u00b7 10 steps, 10.000 s per cycle, 10.000 s in all"));
}

void TestRunSession::stopLeavesTheEndState_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("output");
    QTest::addColumn<double>("voltage");

    QTest::newRow("Output Off") << "OFF" << false << 0.0;
    QTest::newRow("Output On, at the channel's set-point") << "ON" << true << 5.0;
    QTest::newRow("Last step") << "LAST" << true << 10.0;
}

// An endless run goes on past its first cycles until stopped; the instrument's playback then ends
// and the output is left as the end state says.
void TestRunSession::stopLeavesTheEndState()
{
    QFETCH(QString, end);
    QFETCH(bool, output);
    QFETCH(double, voltage);

    Rig rig(simulated(1000.0));
    rig.channel.send("VOLT 5;CURR 3");
    rig.load(tenVoltSteps(0, end));
    QSignalSpy sampled(&rig.run, &RunSession::sampled);
    rig.run.start(1, true);
    QTRY_VERIFY_WITH_TIMEOUT(
        !sampled.isEmpty() && sampled.last().first().value<RunSample>().cycle >= 3, 5000);
    QVERIFY(rig.run.isRunning());
    rig.run.stop();
    const auto ended = rig.waitForEnd();
    QCOMPARE(ended.first, QStringLiteral("Stopped; the output is as the end state leaves it"));
    QVERIFY(!ended.second);
    const RunSample last = rig.run.trace().samples().constLast();
    QCOMPARE(last.step, 0);
    QCOMPARE(last.output, output);
    QCOMPARE(last.voltage, voltage);
    auto *engine = &qobject_cast<SimLink *>(rig.link.get())->engine();
    QVERIFY(!engine->playback(0, tarn::sim::SequenceMode::List).running);
}

void TestRunSession::delayerTraceFollowsOnAndOff()
{
    Rig rig(simulated(10.0));
    UploadedSequence s;
    s.list = false;
    s.channel = 2;
    s.channelName = QStringLiteral("CH2");
    s.cycles = 2;
    s.endState = QStringLiteral("OFF");
    for (const bool on : {true, false, true, false})
        s.delayerSteps.append(DelayerData(on, 1.0));
    rig.load(s);
    rig.channel.send("VOLT 5"); // on CH2, which the load selected

    rig.run.start(2, false);
    QCOMPARE(rig.waitForEnd().first, QStringLiteral("The sequence ended after 2 cycles"));
    QSet<int> seen;
    for (const RunSample &sample : rig.run.trace().samples()) {
        if (sample.step == 0)
            continue;
        seen.insert(sample.step);
        const bool on = sample.step % 2 == 1;
        QCOMPARE(sample.output, on);
        QCOMPARE(sample.voltage, on ? 5.0 : 0.0);
    }
    QCOMPARE(seen.size(), 4);
    QCOMPARE(rig.run.trace().samples().constLast().output, false);
}

void TestRunSession::listWhileTheDelayerRunsIsRefusedWithTheReason()
{
    Rig rig(simulated(1.0));
    rig.load(tenVoltSteps(1, QStringLiteral("OFF")));
    rig.channel.send("DEL:STEP 1,ON,10;DEL:RUN");
    rig.run.start(1, true);
    const auto ended = rig.waitForEnd();
    QCOMPARE(ended.first,
             QStringLiteral("The instrument refused to run the sequence: -221, Settings "
                            "conflict;the delayer is running on CH1"));
    QVERIFY(ended.second);
    QVERIFY(!rig.run.isRunning());
}

void TestRunSession::runNeedsAVerifiedUpload()
{
    Rig rig(simulated(1.0));
    QSignalSpy ended(&rig.run, &RunSession::ended);
    rig.run.start(3, true);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.first().first().toString(),
             QStringLiteral("Upload and verify a sequence on this channel first"));
}

void TestRunSession::droppedLinkEndsTheRunAndKeepsTheTrace()
{
    // Loading takes 12 lines; a poll is 4: the connection drops after a few polls.
    Simulator sim({QStringLiteral("--drop-after"),
                   QStringLiteral("40"),
                   QStringLiteral("--speed"),
                   QStringLiteral("10")});
    Rig rig(std::make_unique<TcpLink>(QStringLiteral("127.0.0.1"), sim.port));
    rig.load(tenVoltSteps(1, QStringLiteral("OFF")));
    rig.run.start(1, true);
    const auto ended = rig.waitForEnd();
    QCOMPARE(ended.first,
             QStringLiteral("The connection was lost during the run (The instrument closed the "
                            "connection); the trace so far is kept"));
    QVERIFY(ended.second);
    const int samples = rig.run.trace().samples().size();
    QVERIFY(samples >= 1);
    QCOMPARE(rig.run.trace().csvLines(3, 3, 3).size(), samples + 1);
}

void TestRunSession::exportedTraceLines()
{
    RunTrace trace;
    trace.append({0.0, 1.5, 0.15, true, 1, 1});
    trace.append({1.25, 0.0, 0.0, false, 2, 1});
    trace.append({2.5, 12.0, 1.2, true, 0, 0});
    QCOMPARE(trace.csvLines(3, 2, 4),
             (QStringList{"time,voltage,current,output,step_no,cycle",
                          "0.000,1.50,0.1500,1,0,1",
                          "1.250,0.00,0.0000,0,1,1",
                          "2.500,12.00,1.2000,1,,0"}));

    QTemporaryDir dir;
    Rig rig(simulated(1000.0));
    rig.load(tenVoltSteps(1, QStringLiteral("OFF")));
    RunView view(&rig.run, 3, 3, 3);
    rig.run.start(1, true);
    rig.waitForEnd();
    QString error;
    QVERIFY2(view.exportCsv(dir.filePath(QStringLiteral("trace.csv")), &error), qPrintable(error));
    QFile file(dir.filePath(QStringLiteral("trace.csv")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             rig.run.trace().csvLines(3, 3, 3).join(QLatin1Char('\n')).toUtf8() + '\n');
    QVERIFY(view.exportPng(dir.filePath(QStringLiteral("plot.png"))));
    QVERIFY(!QImage(dir.filePath(QStringLiteral("plot.png"))).isNull());
}

void TestRunSession::traceStaysBoundedForAnHour()
{
    RunTrace trace(5000);
    for (int i = 0; i < 36000; ++i)
        trace.append({i / 10.0, 1.0, 0.1, true, 1, 1});
    const QVector<RunSample> &samples = trace.samples();
    QVERIFY(samples.size() <= 5000);
    QCOMPARE(samples.constFirst().time, 0.0);
    QCOMPARE(samples.constLast().time, 3599.9);
    for (int i = 1; i < samples.size(); ++i)
        QVERIFY(samples.at(i).time > samples.at(i - 1).time);
    // The newest minute keeps its full rate.
    QCOMPARE(samples.at(samples.size() - 600).time, 3540.0);

    // Exactly which go: a full trace drops every other sample of its older half.
    RunTrace small(8);
    for (int i = 0; i <= 10; ++i)
        small.append({static_cast<double>(i), 1.0, 0.1, true, 1, 1});
    QVector<double> times;
    for (const RunSample &sample : small.samples())
        times << sample.time;
    QCOMPARE(times, (QVector<double>{0, 4, 6, 7, 8, 9, 10}));
}

QTEST_MAIN(TestRunSession)
#include "tst_runsession.moc"
