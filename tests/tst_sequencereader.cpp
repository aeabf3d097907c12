// Tests of the checks that keep unsafe steps away from an instrument: sequence files refused with
// their line and reason, rows pasted from a spreadsheet, and the check before an upload.
#include "channellimits.h"
#include "preflight.h"
#include "sequencefile.h"
#include "sequencereader.h"
#include <instrumentdescription.h>
#include <records.h>

#include <QTemporaryDir>
#include <QtTest>

#include <limits>

using namespace tarn::host;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

// CH1 of the built-in supply: 0..32 V, 0..3.2 A, steps of 0.001..99999 s, 2048 steps.
StepLimits ch1()
{
    return stepLimitsFor(tarn::sim::InstrumentDescription::builtIn(), 0);
}

QList<QString> listFile(const QString &endState, const QString &groups, const QStringList &steps)
{
    QList<QString> lines{QStringLiteral("LIST,10"),
                         QStringLiteral("Cycles,3"),
                         QStringLiteral("End Status,") + endState,
                         QStringLiteral("Groups,") + groups,
                         QStringLiteral("No.,Voltage(V),Current(A),Time(s)")};
    lines.append(steps);
    return lines;
}

} // namespace

class TestSequenceReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filesLargerThanAnySequenceAreRefusedUnread();
    void refusedFileNamesLineAndReason_data();
    void refusedFileNamesLineAndReason();
    void goodListFileIsRead();
    void listEndingInOutputOnKeepsItsSteps();
    void delayerFileIsReadWithItsEndState();
    void modeComesFromTheFirstLine_data();
    void modeComesFromTheFirstLine();
    void pastedRowsAreRead_data();
    void pastedRowsAreRead();
    void pastedBlockWithBadValueIsRefused_data();
    void pastedBlockWithBadValueIsRefused();
    void preflightRefusesEachKindOfBadStep_data();
    void preflightRefusesEachKindOfBadStep();
    void preflightCountsBadStepsAndNamesTheFirst();
    void preflightPassesAGoodSequence();
};

void TestSequenceReader::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestSequenceReader::filesLargerThanAnySequenceAreRefusedUnread()
{
    QTemporaryDir dir;
    // 1.2 GB of NUL bytes, sparse on disk: reading it would end the program.
    const QString huge = dir.filePath(QStringLiteral("huge.csv"));
    QFile file(huge);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(1200LL * 1000 * 1000));
    file.close();
    QString error;
    QVERIFY(!SequenceReader::readLines(huge, 2048, &error).has_value());
    QCOMPARE(error,
             QStringLiteral("the file holds 1200000000 bytes, more than a sequence of 2048 steps "
                            "can take (1572864 bytes)"));

    const QString exact = dir.filePath(QStringLiteral("bound.csv"));
    QFile bound(exact);
    QVERIFY(bound.open(QIODevice::WriteOnly));
    bound.write(QByteArray(SequenceFile::sizeBound(2048) - 1, 'x') + '\n');
    bound.close();
    const auto lines = SequenceReader::readLines(exact, 2048, &error);
    QVERIFY(lines.has_value());
    QCOMPARE(lines->size(), 1);

    QVERIFY(!SequenceReader::readLines(dir.filePath(QStringLiteral("missing.csv")), 2048, &error));
    QCOMPARE(error, QStringLiteral("the file does not exist"));
}

void TestSequenceReader::refusedFileNamesLineAndReason_data()
{
    QTest::addColumn<QList<QString>>("lines");
    QTest::addColumn<QString>("error");

    const QStringList good{QStringLiteral("0,1.000,1.000,1.000")};
    QTest::newRow("empty or unreadable")
        << QList<QString>() << QStringLiteral("the file is empty or cannot be read");
    QTest::newRow("junk") << QList<QString>{QStringLiteral("hello")}
                          << QStringLiteral("line 1: \"hello\" is not the head of a List file "
                                            "(LIST,10)");
    QTest::newRow("delayer file in the list tab")
        << QList<QString>{QStringLiteral("DELAYER,10")}
        << QStringLiteral("line 1: this is a Delayer file, not a List file");
    QTest::newRow("cycles above 99999")
        << QList<QString>{QStringLiteral("LIST,10"),
                          QStringLiteral("Cycles,100000"),
                          QStringLiteral("End Status,Output Off"),
                          QStringLiteral("Groups,1")}
        << QStringLiteral("line 2: the repeat count \"100000\" is not Infinite or a number from 0 "
                          "to 99999");
    QTest::newRow("unknown end state")
        << listFile(QStringLiteral("Hold"), QStringLiteral("1"), good)
        << QStringLiteral("line 3: the end state \"Hold\" is not Output Off, Output On or Last");
    QTest::newRow("groups above maxCount")
        << listFile(QStringLiteral("Output Off"), QStringLiteral("3000"), good)
        << QStringLiteral("line 4: Groups 3000 is above this instrument's 2048");
    QTest::newRow("groups 0") << listFile(QStringLiteral("Output Off"), QStringLiteral("0"), good)
                              << QStringLiteral("line 4: Groups 0 is below 1");
    QTest::newRow("short step line")
        << listFile(QStringLiteral("Output Off"),
                    QStringLiteral("2"),
                    {QStringLiteral("0,1,1,1"), QStringLiteral("1,1,1")})
        << QStringLiteral("line 7: 3 fields where 4 are expected");
    QTest::newRow("not a number") << listFile(
        QStringLiteral("Output Off"), QStringLiteral("1"), {QStringLiteral("0,x,1,1")})
                                  << QStringLiteral("line 6: the voltage \"x\" is not a number");
    QTest::newRow("nan") << listFile(
        QStringLiteral("Output Off"), QStringLiteral("1"), {QStringLiteral("0,nan,1,1")})
                         << QStringLiteral("line 6: voltage nan is not a finite number");
    QTest::newRow("99 V") << listFile(
        QStringLiteral("Output Off"), QStringLiteral("1"), {QStringLiteral("0,99,1,1")})
                          << QStringLiteral("line 6: voltage 99 V is above CH1's 32 V");
    QTest::newRow("no steps") << listFile(QStringLiteral("Output Off"), QStringLiteral("1"), {})
                              << QStringLiteral("line 6: the file holds no steps");
}

void TestSequenceReader::refusedFileNamesLineAndReason()
{
    QFETCH(QList<QString>, lines);
    QFETCH(QString, error);
    const ReadResult read = SequenceReader::readFile(lines, UploadMode::List, ch1());
    QVERIFY(!read.ok);
    QVERIFY(!read.refusedOnlyForEndState);
    QCOMPARE(read.error, error);
}

void TestSequenceReader::goodListFileIsRead()
{
    const ReadResult read = SequenceReader::readFile(
        listFile(QStringLiteral("Output Off"),
                 QStringLiteral("2"),
                 {QStringLiteral("0,1.500,0.250,0.100"), QStringLiteral("1,32.000,3.200,2.000")}),
        UploadMode::List,
        ch1());
    QVERIFY(read.ok);
    QCOMPARE(read.content.cycles, 3);
    QCOMPARE(read.content.endState, QStringLiteral("OFF"));
    QCOMPARE(read.content.list.size(), 2);
    QCOMPARE(read.content.list.at(0).voltage, 1.5);
    QCOMPARE(read.content.list.at(0).current, 0.25);
    QCOMPARE(read.content.list.at(0).time, 0.1);
    QCOMPARE(read.content.list.at(1).voltage, 32.0);
}

void TestSequenceReader::listEndingInOutputOnKeepsItsSteps()
{
    const ReadResult read = SequenceReader::readFile(
        listFile(QStringLiteral("Output On"), QStringLiteral("1"), {QStringLiteral("0,2,1,1")}),
        UploadMode::List,
        ch1());
    QVERIFY(!read.ok);
    QVERIFY(read.refusedOnlyForEndState);
    QCOMPARE(read.error, QStringLiteral("line 3: a List file cannot end in Output On"));
    QCOMPARE(read.content.list.size(), 1);
    QCOMPARE(read.content.list.at(0).voltage, 2.0);
}

void TestSequenceReader::delayerFileIsReadWithItsEndState()
{
    const ReadResult read = SequenceReader::readFile({QStringLiteral("DELAYER,10"),
                                                      QStringLiteral("Cycles,Infinite"),
                                                      QStringLiteral("End Status,Output On"),
                                                      QStringLiteral("Groups,2"),
                                                      QStringLiteral("No.,State,Time(s)"),
                                                      QStringLiteral("0,On,1.5"),
                                                      QStringLiteral("1,Off,0.25")},
                                                     UploadMode::Delayer,
                                                     ch1());
    QVERIFY(read.ok);
    QCOMPARE(read.content.cycles, 0);
    QCOMPARE(read.content.endState, QStringLiteral("ON"));
    QCOMPARE(read.content.delayer.size(), 2);
    QCOMPARE(read.content.delayer.at(0).state, true);
    QCOMPARE(read.content.delayer.at(1).state, false);
    QCOMPARE(read.content.delayer.at(1).time, 0.25);
}

void TestSequenceReader::modeComesFromTheFirstLine_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("mode");
    QTest::newRow("list") << QStringLiteral("LIST,10") << int(UploadMode::List);
    QTest::newRow("delayer") << QStringLiteral("DELAYER,10") << int(UploadMode::Delayer);
    QTest::newRow("other") << QStringLiteral("list,10") << -1;
}

void TestSequenceReader::modeComesFromTheFirstLine()
{
    QFETCH(QString, first);
    QFETCH(int, mode);
    const auto read = SequenceReader::modeOf({first});
    QCOMPARE(read ? int(*read) : -1, mode);
}

void TestSequenceReader::pastedRowsAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<double>>("voltages");
    QTest::addColumn<QList<double>>("times");
    QTest::newRow("points") << QStringLiteral("1.5\t0.5\t1\n2\t1\t0.25\n")
                            << QList<double>{1.5, 2.0} << QList<double>{1.0, 0.25};
    QTest::newRow("decimal commas, CRLF") << QStringLiteral("1,5\t0,5\t1\r\n2,25\t1\t0,125\r\n")
                                          << QList<double>{1.5, 2.25} << QList<double>{1.0, 0.125};
    QTest::newRow("with numbers and titles")
        << QStringLiteral("No.\tVoltage(V)\tCurrent(A)\tTime(s)\n0\t3\t1\t2\n")
        << QList<double>{3.0} << QList<double>{2.0};
}

void TestSequenceReader::pastedRowsAreRead()
{
    QFETCH(QString, text);
    QFETCH(QList<double>, voltages);
    QFETCH(QList<double>, times);
    const ReadResult read = SequenceReader::readPasted(text, UploadMode::List, ch1());
    QVERIFY2(read.ok, qPrintable(read.error));
    QCOMPARE(read.content.list.size(), voltages.size());
    for (int i = 0; i < voltages.size(); ++i) {
        QCOMPARE(read.content.list.at(i).voltage, voltages.at(i));
        QCOMPARE(read.content.list.at(i).time, times.at(i));
    }
}

void TestSequenceReader::pastedBlockWithBadValueIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("99 V in the second row") << QStringLiteral("1\t1\t1\n99\t1\t1\n")
                                            << QStringLiteral("line 2: voltage 99 V is above "
                                                              "CH1's 32 V");
    QTest::newRow("word") << QStringLiteral("1\tabc\t1\n")
                          << QStringLiteral("line 1: the current \"abc\" is not a number");
    QTest::newRow("two cells") << QStringLiteral("1\t1\n")
                               << QStringLiteral("line 1: 2 cells where 3 are expected");
    QTest::newRow("nothing") << QString() << QStringLiteral("the clipboard holds no rows");
}

void TestSequenceReader::pastedBlockWithBadValueIsRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    const ReadResult read = SequenceReader::readPasted(text, UploadMode::List, ch1());
    QVERIFY(!read.ok);
    QCOMPARE(read.error, error);
}

void TestSequenceReader::preflightRefusesEachKindOfBadStep_data()
{
    QTest::addColumn<double>("voltage");
    QTest::addColumn<double>("current");
    QTest::addColumn<double>("time");
    QTest::addColumn<QString>("problem");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    QTest::newRow("nan voltage") << nan << 1.0 << 1.0
                                 << QStringLiteral("voltage nan is not a finite number");
    QTest::newRow("inf current") << 1.0 << inf << 1.0
                                 << QStringLiteral("current inf is not a finite number");
    QTest::newRow("voltage above")
        << 99.0 << 1.0 << 1.0 << QStringLiteral("voltage 99 V is above CH1's 32 V");
    QTest::newRow("voltage below")
        << -1.0 << 1.0 << 1.0 << QStringLiteral("voltage -1 V is below CH1's 0 V");
    QTest::newRow("current above")
        << 1.0 << 50.0 << 1.0 << QStringLiteral("current 50 A is above CH1's 3.2 A");
    QTest::newRow("zero time") << 1.0 << 1.0 << 0.0
                               << QStringLiteral("time 0 s is below the shortest step of 0.001 s");
    QTest::newRow("negative time")
        << 1.0 << 1.0 << -5.0 << QStringLiteral("time -5 s is below the shortest step of 0.001 s");
    QTest::newRow("time above") << 1.0 << 1.0 << 100000.0
                                << QStringLiteral(
                                       "time 100000 s is above the longest step of 99999 s");
}

void TestSequenceReader::preflightRefusesEachKindOfBadStep()
{
    QFETCH(double, voltage);
    QFETCH(double, current);
    QFETCH(double, time);
    QFETCH(QString, problem);
    const Preflight check = Preflight::check(
        QList<ListData>{ListData(1, 1, 1), ListData(voltage, current, time)}, ch1());
    QVERIFY(!check.passed());
    QCOMPARE(check.badCount, 1);
    QCOMPARE(check.firstBad, 1);
    QCOMPARE(check.firstProblem, problem);
}

void TestSequenceReader::preflightCountsBadStepsAndNamesTheFirst()
{
    const Preflight check = Preflight::check(QList<DelayerData>{DelayerData(true, 1),
                                                                DelayerData(false, 0),
                                                                DelayerData(true, 2),
                                                                DelayerData(true, -1)},
                                             ch1());
    QCOMPARE(check.badCount, 2);
    QCOMPARE(check.firstBad, 1);
    QCOMPARE(check.refusal(),
             QStringLiteral("Not uploaded: 2 steps cannot be sent to CH1; the first is step No. 1: "
                            "time 0 s is below the shortest step of 0.001 s"));
}

void TestSequenceReader::preflightPassesAGoodSequence()
{
    const Preflight check
        = Preflight::check(QList<ListData>{ListData(0, 0, 0.001), ListData(32, 3.2, 99999)}, ch1());
    QVERIFY(check.passed());
    QCOMPARE(check.firstBad, -1);
    QCOMPARE(check.refusal(), QString());
}

QTEST_APPLESS_MAIN(TestSequenceReader)
#include "tst_sequencereader.moc"
