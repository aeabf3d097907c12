// Tests of the template defaults and of the steps and step counts built from templates.
#include "helper.h"
#include "sequencebuilder.h"
#include "templateparam.h"

#include <QtTest>

#include <cmath>

using namespace tarn2::specific::orvo5000::programmer;
using Values = QVector<double>;

static ListTemplateParam list(int type, double period = 30, double interval = 1)
{
    ListTemplateParam param;
    resetListTemplateParam(param, static_cast<unsigned char>(type));
    param.period = period;
    param.interval = interval;
    return param;
}

class TestTemplates : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void defaults();
    void listWave_data();
    void listWave();
    void delayerWave_data();
    void delayerWave();
};

void TestTemplates::defaults()
{
    // Start from values no default has, so that a reset must touch every field.
    const ListTemplateParam odd{ListExpFall, 1, 9, 8, 7, 6, 5, 4, 3, 2, 7, true, 6, 9, 4, 2, 3, 8};
    QVector<ListTemplateParam> lists(3, odd);
    QVector<DelayerTemplateParam> delayers(5, {DelayerDecline, 1, 3, 6, 5, 4, 3, 2, 0});
    resetListTemplateParams(lists);
    resetDelayerTemplateParams(delayers);
    QCOMPARE(lists.size(), 8);
    QCOMPARE(delayers.size(), 3);
    ListTemplateParam expected{ListSine, 0, 3, 3, 0, 3, 0, 3, 30, 1, 1, false, 15, 1, 50, 10, 5, 5};
    for (int i = 0; i < 8; ++i, expected.type = ListTemplateType(i))
        QVERIFY2(lists.at(i) == expected, QByteArray::number(i));
    DelayerTemplateParam expectedDelayer{DelayerFixTime, 10, 10, 1, 1, 1, 1, 1, 1};
    for (int i = 0; i < 3; ++i, expectedDelayer.type = DelayerTemplateType(i))
        QVERIFY2(delayers.at(i) == expectedDelayer, QByteArray::number(i));
}

// Rows without values check the step count alone; above kMaxTemplateSteps nothing is built.
void TestTemplates::listWave_data()
{
    QTest::addColumn<ListTemplateParam>("param");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<Values>("values");
    QTest::addColumn<Values>("times");
    QTest::addColumn<qint64>("count");

    Values sine;
    for (int k = 0; k < 30; ++k)
        sine << 1.5 + 1.5 * std::sin(6.283185307179586 * k / 30);
    QTest::newRow("default sine") << list(ListSine) << 3 << sine << Values(30, 1) << 30ll;
    // 1.005 s is 1004.9999999999999 ticks at 3 decimals.
    QTest::newRow("sine rounds 1.005 s")
        << list(ListSine, 1.005, 1.005) << 3 << Values{1.5} << Values{1.005} << 1ll;
    QTest::newRow("zero interval") << list(ListSine, 30, 0) << 3 << Values() << Values() << 0ll;
    QTest::newRow("zero period") << list(ListSine, 0, 1) << 3 << Values() << Values() << 0ll;
    ListTemplateParam p = list(ListSine, 3600, 0.001);
    p.cycles = 512;
    QTest::newRow("hour-long sine, 512 cycles") << p << 3 << Values() << Values() << 1843200000ll;
    p = list(ListPulse);
    p.object = 7;
    p.currentMin = 1;
    p.inverted = true;
    QTest::newRow("object 7 takes the current range, inverted")
        << p << 3 << Values{1, 3} << Values{15, 15} << 2ll;
    p = list(ListRamp, 10, 2);
    QTest::newRow("ramp") << p << 0 << Values{0, 1.2, 2.4, 2.4, 1.2} << Values{2, 2, 2, 2, 2}
                          << 5ll;
    p.symmetry = 100;
    p.inverted = true;
    QTest::newRow("ramp, symmetry 100, inverted")
        << p << 0 << Values{3, 2.4, 1.8, 1.2, 0.6} << Values{2, 2, 2, 2, 2} << 5ll;
    p = list(ListStairDown, 1.005);
    p.steps = 1;
    QTest::newRow("stair truncates 1.005 s") << p << 3 << Values{3} << Values{1.004} << 1ll;
    QTest::newRow("stair, fewer ticks than steps")
        << list(ListStairUp, 0.001) << 3 << Values() << Values() << 10ll;
    Values rise;
    Values fall;
    for (int k = 0; k < 5; ++k) {
        rise << 3 * (1 - std::exp(-k));
        fall << 3 * std::exp(-k);
    }
    QTest::newRow("exponent rise climbs from the minimum")
        << list(ListExpRise) << 3 << rise << Values(5, 1) << 5ll;
    QTest::newRow("exponent fall drops from the maximum")
        << list(ListExpFall) << 3 << fall << Values(5, 1) << 5ll;
    p = list(ListExpRise);
    p.expGroups = int(kMaxTemplateSteps);
    QTest::newRow("exponent at the limit") << p << 3 << Values() << Values() << kMaxTemplateSteps;
    p.expGroups++;
    QTest::newRow("exponent above the limit")
        << p << 3 << Values() << Values() << kMaxTemplateSteps + 1;
}

void TestTemplates::listWave()
{
    QFETCH(ListTemplateParam, param);
    QFETCH(int, decimals);
    QFETCH(Values, values);
    QFETCH(Values, times);
    QFETCH(qint64, count);

    Helper::getInstance().option.timeDecimals = decimals;
    QCOMPARE(list_wave_step_count(param), count);
    const QList<ListData> steps = make_list_wave(param);
    QCOMPARE(steps.size(), count > kMaxTemplateSteps ? 0 : int(count));
    Values stepTimes;
    for (int i = 0; i < values.size(); ++i) {
        QCOMPARE(steps.at(i).voltage, values.at(i));
        QCOMPARE(steps.at(i).current, 0.0);
        stepTimes << steps.at(i).time;
    }
    QCOMPARE(stepTimes, times); // whole ticks over 10^decimals: exactly the typed decimals
}

void TestTemplates::delayerWave_data()
{
    QTest::addColumn<DelayerTemplateParam>("param");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("states"); // 1 On, 0 Off
    QTest::addColumn<Values>("times");
    QTest::addColumn<qint64>("count");

    DelayerTemplateParam p{DelayerFixTime, 10, 4, 2, 1, 1, 1, 1, 1};
    QTest::newRow("fix time, 10") << p << 3 << "1010" << Values{2, 1, 2, 1} << 4ll;
    p.pattern = 1;
    QTest::newRow("fix time, 01") << p << 3 << "0101" << Values{1, 2, 1, 2} << 4ll;
    p.pattern = 0;
    QTest::newRow("pattern 0 counts as 10") << p << 3 << "1010" << Values{2, 1, 2, 1} << 4ll;
    p.offTime = 0.25;
    QTest::newRow("0 decimals") << p << 0 << "1010" << Values{2, 0.25, 2, 0.25} << 4ll;
    p.groups = int(kMaxTemplateSteps) + 1;
    QTest::newRow("above the limit") << p << 3 << "" << Values() << kMaxTemplateSteps + 1;
    p = {DelayerIncrease, 10, 3, 1, 1, 1, 0.5, 1, 1};
    QTest::newRow("increase") << p << 3 << "101" << Values{1, 1.5, 2} << 3ll;
    p = {DelayerDecline, 10, 3, 1, 1, 1, 1, 1, 0.25};
    QTest::newRow("decline") << p << 3 << "101" << Values{1, 0.75, 0.5} << 3ll;
    p.decStep = 0.5;
    QTest::newRow("decline to zero is refused") << p << 3 << "" << Values() << 0ll;
}

void TestTemplates::delayerWave()
{
    QFETCH(DelayerTemplateParam, param);
    QFETCH(int, decimals);
    QFETCH(QString, states);
    QFETCH(Values, times);
    QFETCH(qint64, count);

    Helper::getInstance().option.timeDecimals = decimals;
    QCOMPARE(delayer_wave_step_count(param), count);
    QString stepStates;
    Values stepTimes;
    for (const DelayerData &step : make_delayer_wave(param)) {
        stepStates += step.state ? QLatin1Char('1') : QLatin1Char('0');
        stepTimes << step.time;
    }
    QCOMPARE(stepStates, states);
    QCOMPARE(stepTimes, times);
}

QTEST_APPLESS_MAIN(TestTemplates)
#include "tst_templates.moc"
