// Tests of the List wave generators: levels, tick times and counts, where the templates' tests do
// not already show them through a template.
#include "generator/expwavegenerator.h"
#include "generator/pulsewavegenerator.h"
#include "generator/rampwavegenerator.h"
#include "generator/sinewavegenerator.h"
#include "generator/stairupdownwavegenerator.h"
#include "generator/stairwavegenerator.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace tarn2::specific::orvo5000;
using Generator = std::shared_ptr<ListGenerator>;
using Values = QVector<double>;
using Sine = SineWaveGenerator;
using Pulse = PulseWaveGenerator;
using Ramp = RampWaveGenerator;
using Stair = StairWaveGenerator;
using UpDown = StairUpDownWaveGenerator;
using Exp = ExpWaveGenerator;
Q_DECLARE_METATYPE(Generator)

template<typename G, typename... A> static Generator gen(A... args)
{
    return std::make_shared<G>(args...);
}

static Values sineLevels(int period, int interval, int steps)
{
    Values levels;
    for (int k = 0; k < steps; ++k)
        levels << 0.5 + 0.5 * std::sin(6.283185307179586 * ((k * interval) % period) / period);
    return levels;
}

class TestWaveGenerators : public QObject
{
    Q_OBJECT

private slots:
    void generators_data();
    void generators();
};

void TestWaveGenerators::generators_data()
{
    QTest::addColumn<Generator>("generator");
    QTest::addColumn<Values>("levels");
    QTest::addColumn<Values>("times");
    QTest::addColumn<int>("count");
    const double nan = std::numeric_limits<double>::quiet_NaN();

    QTest::newRow("sine, 999.5/99.5 round to 1000/100")
        << gen<Sine>(999.5, 99.5, 1) << sineLevels(1000, 100, 10) << Values(10, 100) << 10;
    QTest::newRow("sine, P x C = 1050 ends with 50")
        << gen<Sine>(350, 100, 3) << sineLevels(350, 100, 11) << (Values(10, 100) << 50) << 11;
    QTest::newRow("sine, zero interval") << gen<Sine>(1000, 0, 1) << Values{} << Values{} << 0;
    QTest::newRow("sine, zero period") << gen<Sine>(0, 100, 1) << Values{} << Values{} << 0;
    QTest::newRow("pulse, W = P") << gen<Pulse>(100, 100, 3) << Values(3, 1) << Values(3, 100) << 3;
    QTest::newRow("pulse, W < P, 29.5 rounds up")
        << gen<Pulse>(100, 29.5, 2) << Values{1, 0, 1, 0} << Values{30, 70, 30, 70} << 4;
    QTest::newRow("ramp, symmetry 0 falls")
        << gen<Ramp>(10, 2, 0.0) << Values{1, 0.8, 0.6, 0.4, 0.2} << Values(5, 2) << 5;
    QTest::newRow("ramp, shorter last step")
        << gen<Ramp>(10, 4, 0.5) << Values{0, 0.8, 0.4} << Values{4, 4, 2} << 3;
    QTest::newRow("ramp, one-tick peak rises over the period")
        << gen<Ramp>(5, 1, 0.1) << Values{0, 0.2, 0.4, 0.6, 0.8} << Values(5, 1) << 5;
    QTest::newRow("ramp, NaN symmetry is 0")
        << gen<Ramp>(10, 5, nan) << Values{1, 0.5} << Values(2, 5) << 2;
    QTest::newRow("ramp, zero interval") << gen<Ramp>(10, 0, 0.5) << Values{} << Values{} << 0;
    QTest::newRow("stair up, 3/4/3 ticks")
        << gen<Stair>(10, 3, Stair::Up) << Values{0, 0.5, 1} << Values{3, 4, 3} << 3;
    QTest::newRow("stair up, more steps than ticks")
        << gen<Stair>(2, 3, Stair::Up) << Values{0, 0.5, 1} << Values{1, 0, 1} << 0;
    QTest::newRow("stair up down, 4")
        << gen<UpDown>(8, 4) << Values{0, 1, 0.5, 0} << Values(4, 2) << 4;
    QTest::newRow("stair up down, 5")
        << gen<UpDown>(10, 5) << Values{0, 0.5, 1, 0.5, 0} << Values(5, 2) << 5;
    QTest::newRow("stair up down, 2") << gen<UpDown>(10, 2) << Values{0, 0} << Values(2, 5) << 2;
    QTest::newRow("exp rise, 100.9 truncates")
        << gen<Exp>(100.9, 3, 3, Exp::Rise) << Values{0, 1 - std::exp(-1.0), 1 - std::exp(-2.0)}
        << Values(3, 100) << 3;
    QTest::newRow("exp fall, rate 1 over 2")
        << gen<Exp>(1, 1, 2, Exp::Fall) << Values{1, std::exp(-0.5)} << Values(2, 1) << 2;
}

void TestWaveGenerators::generators()
{
    QFETCH(Generator, generator);
    QFETCH(Values, levels);
    QFETCH(Values, times);
    QFETCH(int, count);

    QCOMPARE(generator->count(), count);
    const std::vector<double> generated = generator->generate();
    QCOMPARE(int(generated.size()), levels.size());
    Values generatedTimes;
    for (int i = 0; i < levels.size(); ++i) {
        QCOMPARE(generated[std::size_t(i)], levels.at(i));
        generatedTimes << generator->time(i);
    }
    QCOMPARE(generatedTimes, times); // whole ticks: exact
}

QTEST_APPLESS_MAIN(TestWaveGenerators)
#include "tst_wavegenerators.moc"
