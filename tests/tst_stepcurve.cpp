// Tests that the dialog's step curves hold exactly the points make_plot_values() gives, however the
// sequence got there, and that thinning the drawing leaves the picture as it was.
#include "plotvalues.h"
#include "stepcurve.h"

#include <QtTest>

#include <cstring>

using namespace tarn2::specific::orvo5000::programmer;
using Steps = QVector<QPair<double, double>>; // level, duration in ticks
using Values = QVector<double>;

// Doubles as their bits, so that a comparison fails on any difference at all.
static QVector<quint64> bits(const Values &values)
{
    QVector<quint64> out;
    for (double value : values) {
        quint64 word = 0;
        std::memcpy(&word, &value, sizeof word);
        out.append(word);
    }
    return out;
}

static void documentedPoints(const Steps &steps, Values &x, Values &y)
{
    QVector<QVector<double>> vectors;
    for (const auto &step : steps)
        vectors.append({step.first, step.second});
    make_plot_values(vectors, x, y, Qt::AlignRight);
}

static PlotStepReader reader(const Steps &steps)
{
    return [&steps](int i, double &level, double &duration) {
        level = steps.at(i).first;
        duration = steps.at(i).second;
    };
}

// Fractions left by scaling seconds, negative and huge durations, and levels of every sign.
static Steps awkwardSteps(int count)
{
    Steps steps;
    for (int i = 0; i < count; ++i) {
        const double duration = i % 7 == 3 ? 0.3 * 1000 : (i % 11 == 5 ? -2.5 : 1000.0 / 3);
        steps.append({(i % 5) * 0.1 - 0.2, i == count / 2 ? 1e15 + 0.75 : duration});
    }
    return steps;
}

class TestStepCurve : public QObject
{
    Q_OBJECT

private slots:
    void pointsFromReader_data();
    void pointsFromReader();
    void pointsAfterEdit_data();
    void pointsAfterEdit();
    void thinnedDrawingLooksTheSame();
};

void TestStepCurve::pointsFromReader_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::newRow("no steps") << Steps{};
    QTest::newRow("one step") << Steps{{2.0, 1000}};
    QTest::newRow("fractions dropped at every step") << Steps{{1, 999.9999}, {0, 999.9999}, {1, 1}};
    QTest::newRow("awkward durations") << awkwardSteps(200);
}

void TestStepCurve::pointsFromReader()
{
    QFETCH(Steps, steps);
    Values expectedX, expectedY;
    documentedPoints(steps, expectedX, expectedY);

    Values x{42, 43}; // whatever the outputs held before is replaced
    Values y{7};
    make_step_plot_values(steps.size(), reader(steps), x, y);
    QCOMPARE(bits(x), bits(expectedX));
    QCOMPARE(bits(y), bits(expectedY));
}

void TestStepCurve::pointsAfterEdit_data()
{
    QTest::addColumn<Steps>("before");
    QTest::addColumn<Steps>("after");
    QTest::addColumn<int>("firstChanged");

    const Steps start = awkwardSteps(60);
    Steps cell = start;
    cell[20].second = 0.3 * 1000 + 1;
    Steps level = start;
    level[59].first = 9.5;
    Steps appended = start + awkwardSteps(30);
    Steps deleted = start;
    deleted.remove(31);
    Steps inserted = start;
    inserted.insert(0, {3.0, 12.5});
    const Steps shortened = start.mid(0, 10);

    QTest::newRow("from nothing") << Steps{} << start << 0;
    QTest::newRow("time of one cell") << start << cell << 20;
    QTest::newRow("level of the last cell") << start << level << 59;
    QTest::newRow("append 30") << start << appended << 60;
    QTest::newRow("delete one row") << start << deleted << 31;
    QTest::newRow("insert at the top") << start << inserted << 0;
    QTest::newRow("rows removed at the end") << start << shortened << 10;
    QTest::newRow("clear") << start << Steps{} << 0;
    QTest::newRow("nothing changed, told so") << start << start << std::numeric_limits<int>::max();
}

void TestStepCurve::pointsAfterEdit()
{
    QFETCH(Steps, before);
    QFETCH(Steps, after);
    QFETCH(int, firstChanged);

    QCustomPlot plot;
    auto *curve = new StepCurve(plot.xAxis, plot.yAxis);
    curve->setSteps(before.size(), 0, reader(before));
    curve->setSteps(after.size(), firstChanged, reader(after));

    Values expectedX, expectedY;
    documentedPoints(after, expectedX, expectedY);
    Values x, y, t;
    for (const QCPCurveData &point : *curve->data()) {
        t.append(point.t);
        x.append(point.key);
        y.append(point.value);
    }
    QCOMPARE(bits(x), bits(expectedX));
    QCOMPARE(bits(y), bits(expectedY));
    for (int i = 0; i < t.size(); ++i) // the points in their order
        QCOMPARE(t.at(i), double(i));
}

// A long sequence drawn per pixel column against the same points drawn one by one.
void TestStepCurve::thinnedDrawingLooksTheSame()
{
    Steps steps;
    for (int i = 0; i < 20000; ++i)
        steps.append({1.5 + std::sin(i / 2000.0) + (i * 7919) % 31 * 0.01, 1.0 + i % 3});

    QImage pictures[2];
    for (int thinned = 0; thinned < 2; ++thinned) {
        QCustomPlot plot;
        plot.resize(640, 300);
        plot.setAntialiasedElements(QCP::aeNone);
        plot.setNotAntialiasedElements(QCP::aeAll);
        QCPCurve *curve = nullptr;
        if (thinned) {
            auto *stepCurve = new StepCurve(plot.xAxis, plot.yAxis);
            stepCurve->setSteps(steps.size(), 0, reader(steps));
            curve = stepCurve;
        } else {
            Values x, y;
            documentedPoints(steps, x, y);
            curve = new QCPCurve(plot.xAxis, plot.yAxis);
            curve->setData(x, y);
        }
        curve->setPen(QPen(Qt::blue));
        plot.rescaleAxes();
        pictures[thinned] = plot.toPixmap(640, 300).toImage();
    }
    // Thinning may move a line by one pixel where a point sits on a column's edge, nothing more.
    int curvePixels = 0;
    int differing = 0;
    for (int y = 0; y < pictures[0].height(); ++y) {
        for (int x = 0; x < pictures[0].width(); ++x) {
            curvePixels += pictures[0].pixel(x, y) == QColor(Qt::blue).rgb();
            differing += pictures[0].pixel(x, y) != pictures[1].pixel(x, y);
        }
    }
    QVERIFY(curvePixels > 10000);
    QVERIFY2(differing * 100 < curvePixels, qPrintable(QString::number(differing)));
}

QTEST_MAIN(TestStepCurve)
#include "tst_stepcurve.moc"
