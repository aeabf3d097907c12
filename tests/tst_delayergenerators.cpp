// Tests of the Delayer generators: state order by pattern, step times and validity, where the
// templates' tests do not already show them through a template.
#include "generator/delayergenerator.h"

#include <QtTest>

#include <memory>

using namespace tarn2::specific::orvo5000;
using Generator = std::shared_ptr<DelayerGenerator>;
using Values = QList<double>;
using Fix = FixTimeGenerator;
using Inc = IncreaseGenerator;
using Dec = DecreaseGenerator;
Q_DECLARE_METATYPE(Generator)

// The two doubles are onTime and offTime, or the base value and the step.
template<typename G> static Generator gen(int pattern, int count, double first, double second)
{
    return std::make_shared<G>(DelayerGenerator::Pattern(pattern), count, first, second);
}

class TestDelayerGenerators : public QObject
{
    Q_OBJECT

private slots:
    void generators_data();
    void generators();
};

void TestDelayerGenerators::generators_data()
{
    QTest::addColumn<Generator>("generator");
    QTest::addColumn<QString>("states"); // 1 On, 0 Off
    QTest::addColumn<Values>("times");
    QTest::addColumn<bool>("valid");

    QTest::newRow("fix, pattern 0 is 01")
        << gen<Fix>(0, 2, 20, 10) << "01" << Values{10, 20} << true;
    QTest::newRow("increase, 01") << gen<Inc>(1, 3, 10, 5) << "010" << Values{10, 15, 20} << true;
    QTest::newRow("decline, 01, count 4")
        << gen<Dec>(1, 4, 1000, 400) << "0101" << Values{1000, 600, 200, -200} << false;
    QTest::newRow("decline, no steps") << gen<Dec>(10, 0, 10, 5) << "" << Values{} << true;
}

void TestDelayerGenerators::generators()
{
    QFETCH(Generator, generator);
    QFETCH(QString, states);
    QFETCH(Values, times);
    QFETCH(bool, valid);

    QCOMPARE(generator->isValid(), valid);
    QString generated;
    Values generatedTimes;
    for (const double level : generator->generate()) {
        generated += QString::number(level, 'g', 17);
        generatedTimes << generator->time(generatedTimes.size());
    }
    QCOMPARE(generated, states);
    QCOMPARE(generatedTimes, times);
}

QTEST_APPLESS_MAIN(TestDelayerGenerators)
#include "tst_delayergenerators.moc"
