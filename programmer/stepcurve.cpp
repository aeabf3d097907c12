// Step curves: points kept exactly, recomputed from the first changed step, drawn per pixel column.
#include "stepcurve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarn2::specific::orvo5000::programmer {

namespace {

// Below this many points per pixel column the curve draws every point as QCPCurve always has.
constexpr int kThinningPointsPerColumn = 4;

} // namespace

StepCurve::StepCurve(QCPAxis *keyAxis, QCPAxis *valueAxis)
    : QCPCurve(keyAxis, valueAxis)
{}

StepCurve::~StepCurve() = default;

void StepCurve::setSteps(int count, int from, const StepReader &step)
{
    QCPCurveDataContainer &points = *data();
    count = qMax(count, 0);
    const int wanted = 2 * count;
    from = qBound(0, from, qMin(count, points.size() / 2));

    // The sort key t counts the points, so resizing at the end keeps them sorted.
    if (points.size() > wanted) {
        points.removeAfter(wanted - 1);
    } else if (points.size() < wanted) {
        QVector<QCPCurveData> added(wanted - points.size());
        for (int i = 0; i < added.size(); ++i)
            added[i].t = points.size() + i;
        points.add(added, true);
    }
    if (count == 0)
        return;

    // The same arithmetic as make_plot_values(): a whole number kept in a double, truncated
    // after every step. The end of the step before `from` is where its recomputation starts.
    double t = from == 0 ? 0.0 : (points.constBegin() + (qsizetype{2} * from - 1))->key;
    auto it = points.begin() + qsizetype{2} * from;
    for (int i = from; i < count; ++i) {
        double level = 0.0;
        double duration = 0.0;
        step(i, level, duration);
        *it = QCPCurveData(2.0 * i, t, level);
        ++it;
        t = std::trunc(t + duration);
        *it = QCPCurveData(2.0 * i + 1.0, t, level);
        ++it;
    }
}

void StepCurve::setPoints(const QVector<double> &x, const QVector<double> &y)
{
    const int n = qMin(x.size(), y.size());
    QVector<QCPCurveData> points(n);
    for (int i = 0; i < n; ++i)
        points[i] = QCPCurveData(i, x.at(i), y.at(i));
    data()->set(points, true);
}

void StepCurve::draw(QCPPainter *painter)
{
    QVector<QPointF> lines;
    if (!thinnedLines(lines)) {
        QCPCurve::draw(painter);
        return;
    }
    painter->setPen(mPen);
    painter->setBrush(Qt::NoBrush);
    drawCurveLine(painter, lines);
}

// The pixel polyline per column, or false when the curve is better drawn the usual way: few points,
// a fill, scatters or a selection to show, or axes it does not expect.
bool StepCurve::thinnedLines(QVector<QPointF> &lines) const
{
    QCPAxis *keyAxis = mKeyAxis.data();
    QCPAxis *valueAxis = mValueAxis.data();
    if (!keyAxis || !valueAxis || keyAxis->orientation() != Qt::Horizontal
        || keyAxis->scaleType() != QCPAxis::stLinear || valueAxis->scaleType() != QCPAxis::stLinear
        || mLineStyle == lsNone || !mScatterStyle.isNone() || mBrush.style() != Qt::NoBrush
        || selected()) {
        return false;
    }
    const QRect rect = keyAxis->axisRect()->rect();
    const int size = mDataContainer->size();
    if (rect.width() <= 0 || size < kThinningPointsPerColumn * rect.width())
        return false;

    // Pixels far outside the plot are pulled in to a margin: QPainter copes badly with huge
    // coordinates, and a step curve's segments are level or upright, so they stay where they were
    // drawn.
    const double margin = rect.width() + rect.height();
    const auto pixel = [&](const QCPCurveData &point) {
        const double x = keyAxis->coordToPixel(point.key);
        const double y = valueAxis->coordToPixel(point.value);
        return QPointF(qBound(rect.left() - margin, x, rect.right() + margin),
                       qBound(rect.top() - margin, y, rect.bottom() + margin));
    };
    // Columns are found with the axis's linear map worked out once; only the points that are
    // drawn go through coordToPixel().
    const double keyOrigin = keyAxis->coordToPixel(0.0);
    const double keySlope = keyAxis->coordToPixel(1.0) - keyOrigin;

    lines.reserve(4 * (rect.width() + 2));
    const auto begin = mDataContainer->constBegin();
    const auto end = mDataContainer->constEnd();
    auto first = begin;
    auto lowest = begin;
    auto highest = begin;
    auto last = begin;
    const auto flush = [&] {
        lines.append(pixel(*first));
        // Lowest and highest in the order they came, so the line runs as the points did.
        const auto early = lowest < highest ? lowest : highest;
        const auto late = lowest < highest ? highest : lowest;
        if (early != first && early != last)
            lines.append(pixel(*early));
        if (late != early && late != first && late != last)
            lines.append(pixel(*late));
        if (last != first)
            lines.append(pixel(*last));
    };
    double column = std::floor(keyOrigin + keySlope * begin->key);
    for (auto it = begin; it != end; ++it) {
        if (std::isnan(it->key) || std::isnan(it->value))
            return false;
        const double c = std::floor(keyOrigin + keySlope * it->key);
        if (c != column) {
            flush();
            column = c;
            first = lowest = highest = last = it;
            continue;
        }
        last = it;
        if (it->value < lowest->value)
            lowest = it;
        if (it->value > highest->value)
            highest = it;
    }
    flush();
    return true;
}

} // namespace tarn2::specific::orvo5000::programmer
