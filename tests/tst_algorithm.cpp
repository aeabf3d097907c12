// Tests of the linear maps between physical values and normalised levels.
#include "algorithm.h"

#include <QtTest>

using tarn::core::algorithm::normalize;
using tarn::core::algorithm::unnormalize;

class TestAlgorithm : public QObject
{
    Q_OBJECT

private slots:
    void maps_data();
    void maps();
};

void TestAlgorithm::maps_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<double>("level");

    QTest::newRow("minimum is 0") << 0.0 << 0.0 << 3.0 << 0.0;
    QTest::newRow("maximum is 1") << 3.0 << 0.0 << 3.0 << 1.0;
    QTest::newRow("inside") << 0.75 << 0.0 << 3.0 << 0.25;
    QTest::newRow("offset range") << 2.5 << 2.0 << 4.0 << 0.25;
    QTest::newRow("sine range centre") << 0.0 << -1.0 << 1.0 << 0.5;
    QTest::newRow("sine range bottom") << -1.0 << -1.0 << 1.0 << 0.0;
    QTest::newRow("beyond the range") << 6.0 << 0.0 << 3.0 << 2.0;
    QTest::newRow("below the range") << -1.5 << 0.0 << 3.0 << -0.5;
    QTest::newRow("mirrored: max is level 0") << 3.0 << 3.0 << 0.0 << 0.0;
    QTest::newRow("mirrored: min is level 1") << 0.0 << 3.0 << 0.0 << 1.0;
    QTest::newRow("mirrored: inside") << 2.25 << 3.0 << 0.0 << 0.25;
    QTest::newRow("mirrored negative range") << -0.5 << 1.0 << -1.0 << 0.75;
}

void TestAlgorithm::maps()
{
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(double, level);

    QCOMPARE(normalize(value, min, max), level);
    QCOMPARE(unnormalize(level, min, max), value);
}

QTEST_APPLESS_MAIN(TestAlgorithm)
#include "tst_algorithm.moc"
