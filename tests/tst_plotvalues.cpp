// Tests of the step-curve points built from (level, duration) steps.
#include "plotvalues.h"

#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;
using Steps = QVector<QVector<double>>;
using Values = QVector<double>;

class TestPlotValues : public QObject
{
    Q_OBJECT

private slots:
    void points_data();
    void points();
};

void TestPlotValues::points_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<Values>("x");
    QTest::addColumn<Values>("y");

    const int right = Qt::AlignRight;
    const Steps fractional{{1, 999.9999, 7}, {0, 999.9999}, {1, 1}}; // extra elements are ignored
    QTest::newRow("no steps") << Steps{} << right << Values{} << Values{};
    QTest::newRow("right with top is one point") << fractional << int(Qt::AlignRight | Qt::AlignTop)
                                                 << Values{0, 999, 1998} << Values{1, 0, 1};
    QTest::newRow("fractions dropped at every step, one point")
        << fractional << int(Qt::AlignLeft) << Values{0, 999, 1998} << Values{1, 0, 1};
    QTest::newRow("fractions dropped at every step, two points")
        << fractional << right << Values{0, 999, 999, 1998, 1998, 1999} << Values{1, 1, 0, 0, 1, 1};
}

void TestPlotValues::points()
{
    QFETCH(Steps, steps);
    QFETCH(int, alignment);
    QFETCH(Values, x);
    QFETCH(Values, y);

    Values actualX{42, 43, 44}; // whatever the outputs held before is replaced
    Values actualY{7};
    make_plot_values(steps, actualX, actualY, Qt::Alignment(QFlag(alignment)));
    QCOMPARE(actualX, x);
    QCOMPARE(actualY, y);
}

QTEST_APPLESS_MAIN(TestPlotValues)
#include "tst_plotvalues.moc"
