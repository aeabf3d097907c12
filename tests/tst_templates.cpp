// Tests of the template records and of building steps from them: defaults, resets, generated
// steps at different time decimals, and the step counts that guard oversized templates.
#include "helper.h"
#include "sequencebuilder.h"
#include "templateparam.h"

#include <QtTest>

#include <cmath>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

constexpr double twoPi = 6.283185307179586;

void setTimeDecimals(int decimals)
{
    Helper::getInstance().option.timeDecimals = decimals;
}

ListTemplateParam listTemplate(ListTemplateType type)
{
    ListTemplateParam param;
    resetListTemplateParam(param, static_cast<unsigned char>(type));
    return param;
}

DelayerTemplateParam delayerTemplate(DelayerTemplateType type)
{
    DelayerTemplateParam param;
    resetDelayerTemplateParam(param, static_cast<unsigned char>(type));
    return param;
}

// Every field set to something no default has, so that a reset must touch them all.
ListTemplateParam scrambledList()
{
    return ListTemplateParam{
        ListExpFall, 1, 9.5, 8.5, 7.5, 6.5, 5.5, 4.5, 3.5, 2.5, 7, true, 1.5, 9, 13, 17, 19, 23};
}

DelayerTemplateParam scrambledDelayer()
{
    return DelayerTemplateParam{DelayerDecline, 1, 3, 0.5, 0.25, 2.5, 3.5, 4.5, 5.5};
}

void verifyListDefaults(const ListTemplateParam &p, int type)
{
    QCOMPARE(int(p.type), type);
    QCOMPARE(p.object, 0);
    QCOMPARE(p.voltage, 3.0);
    QCOMPARE(p.current, 3.0);
    QCOMPARE(p.voltageMin, 0.0);
    QCOMPARE(p.voltageMax, 3.0);
    QCOMPARE(p.currentMin, 0.0);
    QCOMPARE(p.currentMax, 3.0);
    QCOMPARE(p.period, 30.0);
    QCOMPARE(p.interval, 1.0);
    QCOMPARE(p.cycles, 1);
    QCOMPARE(p.inverted, false);
    QCOMPARE(p.width, 15.0);
    QCOMPARE(p.pulseCount, 1);
    QCOMPARE(p.symmetry, 50);
    QCOMPARE(p.steps, 10);
    QCOMPARE(p.expRate, 5);
    QCOMPARE(p.expGroups, 5);
}

void verifyDelayerDefaults(const DelayerTemplateParam &p, int type)
{
    QCOMPARE(int(p.type), type);
    QCOMPARE(p.pattern, 10);
    QCOMPARE(p.groups, 10);
    QCOMPARE(p.onTime, 1.0);
    QCOMPARE(p.offTime, 1.0);
    QCOMPARE(p.incBaseValue, 1.0);
    QCOMPARE(p.incStep, 1.0);
    QCOMPARE(p.decBaseValue, 1.0);
    QCOMPARE(p.decStep, 1.0);
}

} // namespace

class TestTemplates : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void resetList();
    void resetDelayer();
    void resetVectors();
    void defaultSine();
    void listWave_data();
    void listWave();
    void delayerWave_data();
    void delayerWave();
    void listStepCount_data();
    void listStepCount();
    void delayerStepCount_data();
    void delayerStepCount();
    void oversizedTemplatesAreRefused();
};

void TestTemplates::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTemplates::resetList()
{
    ListTemplateParam param = scrambledList();
    resetListTemplateParam(param, ListStairUpDown);
    verifyListDefaults(param, 5);
    // The type is stored as given, even one the dialog does not know.
    resetListTemplateParam(param, 200);
    QCOMPARE(int(param.type), 200);
}

void TestTemplates::resetDelayer()
{
    DelayerTemplateParam param = scrambledDelayer();
    resetDelayerTemplateParam(param, DelayerIncrease);
    verifyDelayerDefaults(param, 1);
}

void TestTemplates::resetVectors()
{
    QVector<ListTemplateParam> lists(3, scrambledList());
    resetListTemplateParams(lists);
    QCOMPARE(lists.size(), 8);
    for (int i = 0; i < lists.size(); ++i)
        verifyListDefaults(lists.at(i), i);
    lists = QVector<ListTemplateParam>(12, scrambledList());
    resetListTemplateParams(lists);
    QCOMPARE(lists.size(), 8);
    verifyListDefaults(lists.at(7), 7);

    QVector<DelayerTemplateParam> delayers(5, scrambledDelayer());
    resetDelayerTemplateParams(delayers);
    QCOMPARE(delayers.size(), 3);
    for (int i = 0; i < delayers.size(); ++i)
        verifyDelayerDefaults(delayers.at(i), i);
}

void TestTemplates::defaultSine()
{
    setTimeDecimals(3);
    const QList<ListData> steps = make_list_wave(listTemplate(ListSine));
    QCOMPARE(steps.size(), 30);
    for (int k = 0; k < steps.size(); ++k) {
        QCOMPARE(steps.at(k).voltage, 1.5 + 1.5 * std::sin(twoPi * k / 30));
        QCOMPARE(steps.at(k).current, 0.0);
        QVERIFY(steps.at(k).time == 1.0);
    }
}

void TestTemplates::listWave_data()
{
    QTest::addColumn<ListTemplateParam>("param");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<QList<double>>("times");

    ListTemplateParam p = listTemplate(ListPulse);
    p.period = 1;
    p.width = 0.25;
    p.pulseCount = 2;
    p.voltageMin = 1;
    p.voltageMax = 5;
    QTest::newRow("pulse") << p << 3 << QList<double>{5, 1, 5, 1}
                           << QList<double>{0.25, 0.75, 0.25, 0.75};

    p = listTemplate(ListRamp);
    p.period = 10;
    p.interval = 2;
    QTest::newRow("ramp") << p << 0 << QList<double>{0, 1.2, 2.4, 2.4, 1.2}
                          << QList<double>{2, 2, 2, 2, 2};
    p.inverted = true;
    QTest::newRow("ramp inverted")
        << p << 0 << QList<double>{3, 1.8, 0.6, 0.6, 1.8} << QList<double>{2, 2, 2, 2, 2};

    p = listTemplate(ListRamp);
    p.period = 4;
    p.symmetry = 100;
    QTest::newRow("ramp, symmetry 100")
        << p << 0 << QList<double>{0, 0.75, 1.5, 2.25} << QList<double>{1, 1, 1, 1};
    p.symmetry = 0;
    QTest::newRow("ramp, symmetry 0")
        << p << 0 << QList<double>{3, 2.25, 1.5, 0.75} << QList<double>{1, 1, 1, 1};

    p = listTemplate(ListStairUp);
    p.object = 1;
    p.currentMin = 1;
    p.currentMax = 2;
    p.period = 3;
    p.steps = 3;
    QTest::newRow("object 1 takes the current range")
        << p << 0 << QList<double>{1, 1.5, 2} << QList<double>{1, 1, 1};
    p.object = 7;
    QTest::newRow("any object but 0 takes the current range")
        << p << 0 << QList<double>{1, 1.5, 2} << QList<double>{1, 1, 1};
    p.inverted = true;
    QTest::newRow("inverted current range")
        << p << 0 << QList<double>{2, 1.5, 1} << QList<double>{1, 1, 1};

    // 1.005 s is 1004.9999999999999 ticks at 3 decimals: rounding half up gives 1005, truncating
    // gives 1004. 0.3 s is exactly 300 ticks.
    p = listTemplate(ListSine);
    p.period = 1.005;
    p.interval = 1.005;
    QTest::newRow("sine rounds 1.005 s") << p << 3 << QList<double>{1.5} << QList<double>{1.005};
    p = listTemplate(ListPulse);
    p.period = 2;
    p.width = 1.005;
    QTest::newRow("pulse rounds 1.005 s")
        << p << 3 << QList<double>{3, 0} << QList<double>{1.005, 0.995};
    p = listTemplate(ListStairDown);
    p.period = 1.005;
    p.steps = 1;
    QTest::newRow("stair truncates 1.005 s") << p << 3 << QList<double>{3} << QList<double>{1.004};
    p.period = 0.3;
    QTest::newRow("stair keeps 0.3 s") << p << 3 << QList<double>{3} << QList<double>{0.3};
    p = listTemplate(ListExpRise);
    p.interval = 1.005;
    p.expGroups = 1;
    QTest::newRow("exponent truncates 1.005 s")
        << p << 3 << QList<double>{0} << QList<double>{1.004};

    // Whole seconds at 0 decimals: 3.6 s rounds to 4 ticks for the sine, 2.9 s truncates to 2.
    p = listTemplate(ListSine);
    p.period = 3.6;
    p.interval = 1.4;
    QTest::newRow("sine at 0 decimals")
        << p << 0 << QList<double>{1.5, 3, 1.5, 0} << QList<double>{1, 1, 1, 1};
    p = listTemplate(ListStairUpDown);
    p.period = 2.9;
    p.steps = 2;
    QTest::newRow("stair up down at 0 decimals")
        << p << 0 << QList<double>{0, 0} << QList<double>{1, 1};
    p = listTemplate(ListExpFall);
    p.interval = 0.25;
    p.expGroups = 2;
    p.expRate = 0;
    QTest::newRow("exponent at 2 decimals")
        << p << 2 << QList<double>{3, 3} << QList<double>{0.25, 0.25};

    p = listTemplate(ListSine);
    p.type = static_cast<ListTemplateType>(8);
    QTest::newRow("unknown type") << p << 3 << QList<double>{} << QList<double>{};
    p = listTemplate(ListSine);
    p.interval = 0;
    QTest::newRow("zero interval") << p << 3 << QList<double>{} << QList<double>{};
}

void TestTemplates::listWave()
{
    QFETCH(ListTemplateParam, param);
    QFETCH(int, decimals);
    QFETCH(QList<double>, values);
    QFETCH(QList<double>, times);

    setTimeDecimals(decimals);
    const QList<ListData> steps = make_list_wave(param);
    QCOMPARE(steps.size(), values.size());
    QList<double> stepTimes;
    for (int i = 0; i < steps.size(); ++i) {
        QCOMPARE(steps.at(i).voltage, values.at(i));
        QCOMPARE(steps.at(i).current, 0.0);
        stepTimes << steps.at(i).time;
    }
    // Whole ticks divided by 10^decimals: the times must be exactly the typed decimals.
    QCOMPARE(stepTimes, times);
}

void TestTemplates::delayerWave_data()
{
    QTest::addColumn<DelayerTemplateParam>("param");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QList<bool>>("states");
    QTest::addColumn<QList<double>>("times");

    DelayerTemplateParam p = delayerTemplate(DelayerFixTime);
    p.groups = 4;
    p.onTime = 2;
    p.offTime = 1;
    QTest::newRow("fix time, 10 pattern")
        << p << 3 << QList<bool>{true, false, true, false} << QList<double>{2, 1, 2, 1};
    p.pattern = 1;
    QTest::newRow("fix time, 01 pattern")
        << p << 3 << QList<bool>{false, true, false, true} << QList<double>{1, 2, 1, 2};
    p.pattern = 0;
    QTest::newRow("pattern 0 counts as 10")
        << p << 3 << QList<bool>{true, false, true, false} << QList<double>{2, 1, 2, 1};
    p = delayerTemplate(DelayerFixTime);
    p.groups = 2;
    p.onTime = 1.5;
    p.offTime = 0.25;
    QTest::newRow("fractional ticks at 0 decimals")
        << p << 0 << QList<bool>{true, false} << QList<double>{1.5, 0.25};

    p = delayerTemplate(DelayerIncrease);
    p.groups = 3;
    p.incStep = 0.5;
    QTest::newRow("increase") << p << 3 << QList<bool>{true, false, true}
                              << QList<double>{1, 1.5, 2};

    p = delayerTemplate(DelayerDecline);
    p.groups = 3;
    p.decStep = 0.25;
    QTest::newRow("decline") << p << 3 << QList<bool>{true, false, true}
                             << QList<double>{1, 0.75, 0.5};
    p.decStep = 0.5;
    QTest::newRow("decline to zero is refused") << p << 3 << QList<bool>{} << QList<double>{};

    p = delayerTemplate(DelayerFixTime);
    p.groups = 0;
    QTest::newRow("no groups") << p << 3 << QList<bool>{} << QList<double>{};
    p = delayerTemplate(DelayerFixTime);
    p.type = static_cast<DelayerTemplateType>(3);
    QTest::newRow("unknown type") << p << 3 << QList<bool>{} << QList<double>{};
}

void TestTemplates::delayerWave()
{
    QFETCH(DelayerTemplateParam, param);
    QFETCH(int, decimals);
    QFETCH(QList<bool>, states);
    QFETCH(QList<double>, times);

    setTimeDecimals(decimals);
    const QList<DelayerData> steps = make_delayer_wave(param);
    QList<bool> stepStates;
    QList<double> stepTimes;
    for (const DelayerData &step : steps) {
        stepStates << step.state;
        stepTimes << step.time;
    }
    QCOMPARE(stepStates, states);
    QCOMPARE(stepTimes, times);
}

void TestTemplates::listStepCount_data()
{
    QTest::addColumn<ListTemplateParam>("param");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<qint64>("count");

    ListTemplateParam p = listTemplate(ListSine);
    QTest::newRow("default sine") << p << 3 << qint64(30);
    p.period = 3600;
    p.interval = 0.001;
    p.cycles = 512;
    QTest::newRow("hour-long sine over 512 cycles") << p << 3 << qint64(1843200000);
    p.cycles = 2000000000;
    QTest::newRow("beyond 32 bits") << p << 3 << qint64(7200000000000000);
    p.interval = 0;
    QTest::newRow("zero interval") << p << 3 << qint64(0);
    p = listTemplate(ListSine);
    p.interval = -1;
    QTest::newRow("negative interval") << p << 3 << qint64(0);

    p = listTemplate(ListPulse);
    p.pulseCount = 2147483647;
    QTest::newRow("pulses with low parts") << p << 3 << qint64(4294967294);
    p.width = 30;
    QTest::newRow("pulses filling the period") << p << 3 << qint64(2147483647);

    p = listTemplate(ListRamp);
    p.interval = 0.001;
    QTest::newRow("ramp") << p << 3 << qint64(30000);
    QTest::newRow("interval below half a tick") << p << 0 << qint64(0);

    p = listTemplate(ListStairUp);
    p.period = 0.001; // fewer ticks than steps: the levels still follow the steps
    QTest::newRow("stair") << p << 3 << qint64(10);
    p = listTemplate(ListStairUpDown);
    p.steps = -3;
    QTest::newRow("negative steps") << p << 3 << qint64(0);
    p = listTemplate(ListExpFall);
    p.expGroups = 1000001;
    QTest::newRow("exponent") << p << 3 << qint64(1000001);
    p.type = static_cast<ListTemplateType>(-1);
    QTest::newRow("unknown type") << p << 3 << qint64(0);
}

void TestTemplates::listStepCount()
{
    QFETCH(ListTemplateParam, param);
    QFETCH(int, decimals);
    QFETCH(qint64, count);

    setTimeDecimals(decimals);
    QCOMPARE(list_wave_step_count(param), count);
    if (count <= kMaxTemplateSteps)
        QCOMPARE(make_list_wave(param).size(), count);
}

void TestTemplates::delayerStepCount_data()
{
    QTest::addColumn<DelayerTemplateParam>("param");
    QTest::addColumn<qint64>("count");

    DelayerTemplateParam p = delayerTemplate(DelayerFixTime);
    QTest::newRow("fix time") << p << qint64(10);
    p.groups = 2000000000;
    QTest::newRow("many groups") << p << qint64(2000000000);
    p.groups = -4;
    QTest::newRow("negative groups") << p << qint64(0);
    p = delayerTemplate(DelayerDecline);
    QTest::newRow("invalid decline") << p << qint64(0);
    p.decStep = 0.1;
    QTest::newRow("valid decline") << p << qint64(10);
    p.type = static_cast<DelayerTemplateType>(5);
    QTest::newRow("unknown type") << p << qint64(0);
}

void TestTemplates::delayerStepCount()
{
    QFETCH(DelayerTemplateParam, param);
    QFETCH(qint64, count);

    setTimeDecimals(3);
    QCOMPARE(delayer_wave_step_count(param), count);
    if (count <= kMaxTemplateSteps)
        QCOMPARE(make_delayer_wave(param).size(), count);
}

void TestTemplates::oversizedTemplatesAreRefused()
{
    setTimeDecimals(3);
    ListTemplateParam list = listTemplate(ListSine);
    list.period = 3600;
    list.interval = 0.001;
    list.cycles = 512;
    QVERIFY(make_list_wave(list).isEmpty());

    // The limit itself still builds.
    list = listTemplate(ListExpRise);
    list.expGroups = int(kMaxTemplateSteps);
    QCOMPARE(make_list_wave(list).size(), kMaxTemplateSteps);
    list.expGroups = int(kMaxTemplateSteps) + 1;
    QVERIFY(make_list_wave(list).isEmpty());

    DelayerTemplateParam delayer = delayerTemplate(DelayerIncrease);
    delayer.groups = int(kMaxTemplateSteps) + 1;
    QVERIFY(make_delayer_wave(delayer).isEmpty());
    delayer.groups = 2147483647;
    QVERIFY(make_delayer_wave(delayer).isEmpty());
}

QTEST_APPLESS_MAIN(TestTemplates)
#include "tst_templates.moc"
