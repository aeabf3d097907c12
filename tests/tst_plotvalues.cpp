// Tests of the step-curve points built from (level, duration) steps.
#include "plotvalues.h"

#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

using Steps = QVector<QVector<double>>;

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
    QTest::addColumn<QList<double>>("x");
    QTest::addColumn<QList<double>>("y");

    const int right = Qt::AlignRight;
    const int left = Qt::AlignLeft;

    QTest::newRow("no steps, one point") << Steps{} << left << QList<double>{} << QList<double>{};
    QTest::newRow("no steps, two points") << Steps{} << right << QList<double>{} << QList<double>{};

    const Steps two{{2.0, 1000}, {5.0, 500}};
    QTest::newRow("one point per step")
        << two << left << QList<double>{0, 1000} << QList<double>{2, 5};
    QTest::newRow("two points per step")
        << two << right << QList<double>{0, 1000, 1000, 1500} << QList<double>{2, 2, 5, 5};
    QTest::newRow("right combined with top is one point")
        << two << int(Qt::AlignRight | Qt::AlignTop) << QList<double>{0, 1000}
        << QList<double>{2, 5};
    QTest::newRow("centre is one point")
        << two << int(Qt::AlignCenter) << QList<double>{0, 1000} << QList<double>{2, 5};

    const Steps fractional{{1.0, 999.9999}, {0.0, 999.9999}, {1.0, 1}};
    QTest::newRow("fractions are dropped at every step, one point")
        << fractional << left << QList<double>{0, 999, 1998} << QList<double>{1, 0, 1};
    QTest::newRow("fractions are dropped at every step, two points")
        << fractional << right << QList<double>{0, 999, 999, 1998, 1998, 1999}
        << QList<double>{1, 1, 0, 0, 1, 1};
    const Steps scaled{{3.0, 299.99999999999994}, {4.0, 299.9999}, {5.0, 10}};
    QTest::newRow("scaled seconds short of a tick")
        << scaled << right << QList<double>{0, 299, 299, 598, 598, 608}
        << QList<double>{3, 3, 4, 4, 5, 5};

    QTest::newRow("extra elements are ignored")
        << Steps{{1.0, 10, 99, 7}, {2.0, 5, -3}} << right << QList<double>{0, 10, 10, 15}
        << QList<double>{1, 1, 2, 2};
    QTest::newRow("missing duration is zero")
        << Steps{{4.0}, {6.0, 20}} << right << QList<double>{0, 0, 0, 20}
        << QList<double>{4, 4, 6, 6};
    QTest::newRow("empty step is level 0 for no time")
        << Steps{{}, {6.0, 20}} << left << QList<double>{0, 0} << QList<double>{0, 6};
    QTest::newRow("times beyond 32 bits")
        << Steps{{1.0, 3e9}, {2.0, 3e9}} << left << QList<double>{0, 3e9} << QList<double>{1, 2};
}

void TestPlotValues::points()
{
    QFETCH(Steps, steps);
    QFETCH(int, alignment);
    QFETCH(QList<double>, x);
    QFETCH(QList<double>, y);

    // Whatever the outputs held before is replaced.
    QVector<double> actualX{42, 43, 44};
    QVector<double> actualY{7};
    make_plot_values(steps, actualX, actualY, Qt::Alignment(QFlag(alignment)));
    QCOMPARE(actualX.toList(), x);
    QCOMPARE(actualY.toList(), y);
}

QTEST_APPLESS_MAIN(TestPlotValues)
#include "tst_plotvalues.moc"
