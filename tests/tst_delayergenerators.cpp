// Tests of the Delayer generators: state order by pattern, step times and validity.
#include "generator/delayergenerator.h"

#include <QtTest>

#include <limits>
#include <memory>

using namespace tarn2::specific::orvo5000;

namespace {

std::unique_ptr<DelayerGenerator>
makeGenerator(const QString &kind, int pattern, int count, double first, double second)
{
    const auto p = static_cast<DelayerGenerator::Pattern>(pattern);
    if (kind == QLatin1String("fix"))
        return std::make_unique<FixTimeGenerator>(p, count, first, second);
    if (kind == QLatin1String("increase"))
        return std::make_unique<IncreaseGenerator>(p, count, first, second);
    return std::make_unique<DecreaseGenerator>(p, count, first, second);
}

} // namespace

class TestDelayerGenerators : public QObject
{
    Q_OBJECT

private slots:
    void generators_data();
    void generators();
    void declineValidityDoesNotOverflow();
};

void TestDelayerGenerators::generators_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("first");  // onTime, or the base value
    QTest::addColumn<double>("second"); // offTime, or the step
    QTest::addColumn<QList<double>>("levels");
    QTest::addColumn<QList<double>>("times");
    QTest::addColumn<bool>("valid");

    QTest::newRow("fix, 01 pattern: off, on, off")
        << "fix" << 1 << 3 << 20.0 << 10.0 << QList<double>{0, 1, 0} << QList<double>{10, 20, 10}
        << true;
    QTest::newRow("fix, 10 pattern: one On step")
        << "fix" << 10 << 1 << 20.0 << 10.0 << QList<double>{1} << QList<double>{20} << true;
    QTest::newRow("fix, 10 pattern: on, off, on, off")
        << "fix" << 10 << 4 << 2000.0 << 1000.0 << QList<double>{1, 0, 1, 0}
        << QList<double>{2000, 1000, 2000, 1000} << true;
    QTest::newRow("fix, pattern 0 counts as 01")
        << "fix" << 0 << 2 << 2000.0 << 1000.0 << QList<double>{0, 1} << QList<double>{1000, 2000}
        << true;
    QTest::newRow("fix: ticks stay unrounded")
        << "fix" << 10 << 2 << 1.5 << 0.25 << QList<double>{1, 0} << QList<double>{1.5, 0.25}
        << true;
    QTest::newRow("fix: no steps")
        << "fix" << 10 << 0 << 1.0 << 1.0 << QList<double>{} << QList<double>{} << true;

    QTest::newRow("increase, 10 pattern")
        << "increase" << 10 << 3 << 1000.0 << 500.0 << QList<double>{1, 0, 1}
        << QList<double>{1000, 1500, 2000} << true;
    QTest::newRow("increase, 01 pattern")
        << "increase" << 1 << 2 << 1000.0 << 500.0 << QList<double>{0, 1}
        << QList<double>{1000, 1500} << true;
    QTest::newRow("increase: negative step shrinks")
        << "increase" << 10 << 5 << 1000.0 << -300.0 << QList<double>{1, 0, 1, 0, 1}
        << QList<double>{1000, 700, 400, 100, -200} << true;

    QTest::newRow("decline: last step above zero")
        << "decline" << 10 << 3 << 1000.0 << 400.0 << QList<double>{1, 0, 1}
        << QList<double>{1000, 600, 200} << true;
    QTest::newRow("decline: last step at zero")
        << "decline" << 10 << 3 << 1000.0 << 500.0 << QList<double>{1, 0, 1}
        << QList<double>{1000, 500, 0} << false;
    QTest::newRow("decline: last step below zero")
        << "decline" << 1 << 4 << 1000.0 << 400.0 << QList<double>{0, 1, 0, 1}
        << QList<double>{1000, 600, 200, -200} << false;
    QTest::newRow("decline: negative step grows")
        << "decline" << 10 << 3 << 100.0 << -50.0 << QList<double>{1, 0, 1}
        << QList<double>{100, 150, 200} << true;
    QTest::newRow("decline: no steps, positive values")
        << "decline" << 10 << 0 << 1000.0 << 400.0 << QList<double>{} << QList<double>{} << true;
    QTest::newRow("decline: one step of zero")
        << "decline" << 10 << 1 << 0.0 << 0.0 << QList<double>{1} << QList<double>{0} << false;
}

void TestDelayerGenerators::generators()
{
    QFETCH(QString, kind);
    QFETCH(int, pattern);
    QFETCH(int, count);
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(QList<double>, levels);
    QFETCH(QList<double>, times);
    QFETCH(bool, valid);

    const auto generator = makeGenerator(kind, pattern, count, first, second);
    QCOMPARE(generator->isValid(), valid);

    const std::vector<double> generated = generator->generate();
    const QList<double> generatedLevels(generated.begin(), generated.end());
    QCOMPARE(generatedLevels, levels);

    QList<double> generatedTimes;
    for (int i = 0; i < levels.size(); ++i)
        generatedTimes << generator->time(i);
    QCOMPARE(generatedTimes, times);
}

void TestDelayerGenerators::declineValidityDoesNotOverflow()
{
    const int min = std::numeric_limits<int>::min();
    const int max = std::numeric_limits<int>::max();
    QVERIFY(DecreaseGenerator(DelayerGenerator::Pattern10, min, 5.0, 1.0).isValid());
    QVERIFY(!DecreaseGenerator(DelayerGenerator::Pattern10, max, 5.0, 1.0).isValid());
    QCOMPARE(IncreaseGenerator(DelayerGenerator::Pattern01, 1, 0.0, 2.0).time(max), 4294967294.0);
}

QTEST_APPLESS_MAIN(TestDelayerGenerators)
#include "tst_delayergenerators.moc"
