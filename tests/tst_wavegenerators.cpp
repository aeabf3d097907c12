// Tests of the List wave generators and their timing objects: levels, tick times and counts.
#include "generator/expwavegenerator.h"
#include "generator/pulsewavegenerator.h"
#include "generator/rampwavegenerator.h"
#include "generator/sinewavegenerator.h"
#include "generator/stairupdownwavegenerator.h"
#include "generator/stairwavegenerator.h"
#include "generator/waveinfo.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace tarn2::specific::orvo5000;

namespace {

constexpr double twoPi = 6.283185307179586;

// Builds a generator from a kind name and its arguments in constructor order.
std::unique_ptr<ListGenerator> makeGenerator(const QString &kind, const QVector<double> &a)
{
    if (kind == QLatin1String("sine"))
        return std::make_unique<SineWaveGenerator>(a[0], a[1], int(a[2]));
    if (kind == QLatin1String("pulse"))
        return std::make_unique<PulseWaveGenerator>(a[0], a[1], int(a[2]));
    if (kind == QLatin1String("ramp"))
        return std::make_unique<RampWaveGenerator>(a[0], a[1], a[2]);
    if (kind == QLatin1String("stair up"))
        return std::make_unique<StairWaveGenerator>(a[0], int(a[1]), StairWaveGenerator::Up);
    if (kind == QLatin1String("stair down"))
        return std::make_unique<StairWaveGenerator>(a[0], int(a[1]), StairWaveGenerator::Down);
    if (kind == QLatin1String("stair up down"))
        return std::make_unique<StairUpDownWaveGenerator>(a[0], int(a[1]));
    if (kind == QLatin1String("exp rise"))
        return std::make_unique<ExpWaveGenerator>(
            a[0], int(a[1]), int(a[2]), ExpWaveGenerator::Rise);
    if (kind == QLatin1String("exp fall"))
        return std::make_unique<ExpWaveGenerator>(
            a[0], int(a[1]), int(a[2]), ExpWaveGenerator::Fall);
    return nullptr;
}

QList<double> sineLevels(int period, int interval, int steps)
{
    QList<double> levels;
    for (int k = 0; k < steps; ++k)
        levels << 0.5 + 0.5 * std::sin(twoPi * ((k * interval) % period) / period);
    return levels;
}

QList<double> repeated(double value, int count)
{
    QList<double> list;
    for (int i = 0; i < count; ++i)
        list << value;
    return list;
}

} // namespace

class TestWaveGenerators : public QObject
{
    Q_OBJECT

private slots:
    void generators_data();
    void generators();
    void sineWaveInfoAccessors();
    void outOfRangeTicksSaturate();
    void countsBeyondIntStayDefined();
};

void TestWaveGenerators::generators_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVector<double>>("args");
    QTest::addColumn<QList<double>>("levels");
    QTest::addColumn<QList<double>>("times");
    QTest::addColumn<int>("count");

    const double nan = std::numeric_limits<double>::quiet_NaN();

    QTest::newRow("sine: ten steps of one period")
        << "sine" << QVector<double>{1000, 100, 1} << sineLevels(1000, 100, 10) << repeated(100, 10)
        << 10;
    QTest::newRow("sine: ticks round half up")
        << "sine" << QVector<double>{999.5, 99.5, 1} << sineLevels(1000, 100, 10)
        << repeated(100, 10) << 10;
    QTest::newRow("sine: shorter last step of P x C = 1050")
        << "sine" << QVector<double>{350, 100, 3} << sineLevels(350, 100, 11)
        << (repeated(100, 10) << 50) << 11;
    QTest::newRow("sine: interval longer than the span")
        << "sine" << QVector<double>{100, 300, 2} << sineLevels(100, 300, 1) << QList<double>{200}
        << 1;
    QTest::newRow("sine: zero interval")
        << "sine" << QVector<double>{1000, 0, 1} << QList<double>{} << QList<double>{} << 0;
    QTest::newRow("sine: zero period, negative interval")
        << "sine" << QVector<double>{0, -2, 1} << QList<double>{} << QList<double>{} << 2;
    QTest::newRow("sine: negative interval")
        << "sine" << QVector<double>{1000, -100, 1} << QList<double>{} << QList<double>{} << -9;

    QTest::newRow("pulse: width equals period")
        << "pulse" << QVector<double>{100, 100, 3} << repeated(1.0, 3) << repeated(100, 3) << 3;
    QTest::newRow("pulse: width beyond period")
        << "pulse" << QVector<double>{100, 150, 2} << repeated(1.0, 2) << repeated(100, 2) << 2;
    QTest::newRow("pulse: width below period")
        << "pulse" << QVector<double>{100, 29.5, 3} << QList<double>{1, 0, 1, 0, 1, 0}
        << QList<double>{30, 70, 30, 70, 30, 70} << 6;
    QTest::newRow("pulse: no pulses")
        << "pulse" << QVector<double>{100, 30, 0} << QList<double>{} << QList<double>{} << 0;

    QTest::newRow("ramp: symmetry 0.5")
        << "ramp" << QVector<double>{10, 1, 0.5}
        << QList<double>{0, 0.2, 0.4, 0.6, 0.8, 1.0, 0.8, 0.6, 0.4, 0.2} << repeated(1, 10) << 10;
    QTest::newRow("ramp: symmetry 0 falls")
        << "ramp" << QVector<double>{10, 2, 0} << QList<double>{1, 0.8, 0.6, 0.4, 0.2}
        << repeated(2, 5) << 5;
    QTest::newRow("ramp: symmetry 1 rises")
        << "ramp" << QVector<double>{10, 2, 1} << QList<double>{0, 0.2, 0.4, 0.6, 0.8}
        << repeated(2, 5) << 5;
    QTest::newRow("ramp: shorter last step")
        << "ramp" << QVector<double>{10, 4, 0.5} << QList<double>{0, 0.8, 0.4}
        << QList<double>{4, 4, 2} << 3;
    QTest::newRow("ramp: one-tick peak rises over the period")
        << "ramp" << QVector<double>{10, 1, 0.05}
        << QList<double>{0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9} << repeated(1, 10) << 10;
    QTest::newRow("ramp: two-tick peak rises and falls")
        << "ramp" << QVector<double>{10, 2, 0.2} << QList<double>{0, 1, 0.75, 0.5, 0.25}
        << repeated(2, 5) << 5;
    QTest::newRow("ramp: peak rounding to 0 falls")
        << "ramp" << QVector<double>{10, 5, 0.04} << QList<double>{1, 0.5} << repeated(5, 2) << 2;
    QTest::newRow("ramp: symmetry above 1 clamps")
        << "ramp" << QVector<double>{10, 5, 7} << QList<double>{0, 0.5} << repeated(5, 2) << 2;
    QTest::newRow("ramp: NaN symmetry is 0")
        << "ramp" << QVector<double>{10, 5, nan} << QList<double>{1, 0.5} << repeated(5, 2) << 2;
    QTest::newRow("ramp: zero interval")
        << "ramp" << QVector<double>{10, 0, 0.5} << QList<double>{} << QList<double>{} << 0;

    QTest::newRow("stair up: five steps")
        << "stair up" << QVector<double>{10, 5} << QList<double>{0, 0.25, 0.5, 0.75, 1}
        << repeated(2, 5) << 5;
    QTest::newRow("stair up: boundaries 3/4/3")
        << "stair up" << QVector<double>{10, 3} << QList<double>{0, 0.5, 1}
        << QList<double>{3, 4, 3} << 3;
    QTest::newRow("stair down: one step")
        << "stair down" << QVector<double>{10, 1} << QList<double>{1} << QList<double>{10} << 1;
    QTest::newRow("stair down: period truncates")
        << "stair down" << QVector<double>{10.9, 2} << QList<double>{1, 0} << repeated(5, 2) << 2;
    QTest::newRow("stair up: more steps than ticks")
        << "stair up" << QVector<double>{2, 5} << QList<double>{0, 0.25, 0.5, 0.75, 1}
        << QList<double>{0, 1, 0, 1, 0} << 0;
    QTest::newRow("stair up: no steps")
        << "stair up" << QVector<double>{10, 0} << QList<double>{} << QList<double>{} << 0;

    QTest::newRow("stair up down: 4") << "stair up down" << QVector<double>{8, 4}
                                      << QList<double>{0, 1, 0.5, 0} << repeated(2, 4) << 4;
    QTest::newRow("stair up down: 5") << "stair up down" << QVector<double>{10, 5}
                                      << QList<double>{0, 0.5, 1, 0.5, 0} << repeated(2, 5) << 5;
    QTest::newRow("stair up down: 6")
        << "stair up down" << QVector<double>{6, 6}
        << QList<double>{0, 0.5, 1, 1 - 1.0 / 3, 1 - 2.0 / 3, 0} << repeated(1, 6) << 6;
    QTest::newRow("stair up down: 2")
        << "stair up down" << QVector<double>{10, 2} << QList<double>{0, 0} << repeated(5, 2) << 2;
    QTest::newRow("stair up down: none")
        << "stair up down" << QVector<double>{10, -1} << QList<double>{} << QList<double>{} << -1;

    QList<double> rise;
    QList<double> fall;
    for (int k = 0; k < 5; ++k) {
        rise << 1 - std::exp(-k);
        fall << std::exp(-k);
    }
    QTest::newRow("exp rise") << "exp rise" << QVector<double>{100.9, 5, 5} << rise
                              << repeated(100, 5) << 5;
    QTest::newRow("exp fall") << "exp fall" << QVector<double>{100, 5, 5} << fall
                              << repeated(100, 5) << 5;
    QTest::newRow("exp fall: rate 2 over 4")
        << "exp fall" << QVector<double>{1, 2, 4}
        << QList<double>{1, std::exp(-0.5), std::exp(-1.0), std::exp(-1.5)} << repeated(1, 4) << 4;
    QTest::newRow("exp: no groups")
        << "exp rise" << QVector<double>{100, 5, 0} << QList<double>{} << QList<double>{} << 0;
}

void TestWaveGenerators::generators()
{
    QFETCH(QString, kind);
    QFETCH(QVector<double>, args);
    QFETCH(QList<double>, levels);
    QFETCH(QList<double>, times);
    QFETCH(int, count);

    const std::unique_ptr<ListGenerator> generator = makeGenerator(kind, args);
    QVERIFY(generator);
    QCOMPARE(generator->count(), count);

    const std::vector<double> generated = generator->generate();
    QCOMPARE(int(generated.size()), levels.size());
    QList<double> generatedTimes;
    for (int i = 0; i < levels.size(); ++i) {
        QCOMPARE(generated[std::size_t(i)], levels.at(i));
        generatedTimes << generator->time(i);
    }
    // Tick times are whole numbers and must match exactly.
    QCOMPARE(generatedTimes, times);
}

void TestWaveGenerators::sineWaveInfoAccessors()
{
    SineWaveInfo info(99.5, 9.5, 2);
    QCOMPARE(info.period(), 100);
    QCOMPARE(info.interval(), 10.0);
    QCOMPARE(info.cycles(), 2);
    QCOMPARE(info.count(), 20);

    // The setters truncate where the constructor rounds.
    info.setInterval(29.9);
    QCOMPARE(info.interval(), 29.0);
    info.setCycles(3.7);
    QCOMPARE(info.cycles(), 3);
    info.setPeriod(50);
    QCOMPARE(info.period(), 50);
    QCOMPARE(info.count(), 6);
    QCOMPARE(info.time(4), 29.0);
    QCOMPARE(info.time(5), 5.0);
}

void TestWaveGenerators::outOfRangeTicksSaturate()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();

    // NaN ticks are 0, so a NaN interval has no steps at all.
    SineWaveInfo sine(1e300, nan, 1);
    QCOMPARE(sine.period(), std::numeric_limits<int>::max());
    QCOMPARE(sine.interval(), 0.0);
    QCOMPARE(sine.count(), 0);
    QVERIFY(SineWaveGenerator(nan, 100, 1).generate().empty());

    // Saturated at both ends: the low part is wider than an int, and still exact.
    const PulseWaveInfo pulse(1e12, -1e12, 2);
    QCOMPARE(pulse.count(), 4);
    QCOMPARE(pulse.time(0), -2147483648.0);
    QCOMPARE(pulse.time(1), 4294967295.0);

    const StairWaveInfo stair(-1e300, 2);
    QCOMPARE(stair.count(), 0);
    QCOMPARE(ExpWaveInfo(1e300, 3).time(2), 2147483647.0);
}

void TestWaveGenerators::countsBeyondIntStayDefined()
{
    // P x C and (i + 1) x I exceed an int here; the counts are worked out in 64 bits and clamped.
    const SineWaveInfo sine(2000000000, 1, 2);
    QCOMPARE(sine.count(), std::numeric_limits<int>::max());
    QCOMPARE(sine.time(std::numeric_limits<int>::max()), 1.0);

    const SineWaveInfo last(2000000000, 2000000000, 1);
    QCOMPARE(last.count(), 1);
    QCOMPARE(last.time(0), 2000000000.0);
    QCOMPARE(last.time(1), 0.0);

    const RampWaveInfo ramp(2147483647, 2147483647);
    QCOMPARE(ramp.count(), 1);
    QCOMPARE(ramp.time(0), 2147483647.0);

    const PulseWaveInfo pulses(10, 5, std::numeric_limits<int>::max());
    QCOMPARE(pulses.count(), std::numeric_limits<int>::max());
    QCOMPARE(pulses.time(std::numeric_limits<int>::max()), 5.0);
}

QTEST_APPLESS_MAIN(TestWaveGenerators)
#include "tst_wavegenerators.moc"
