// Turning (level, duration) steps into the points of a step curve.
#include "plotvalues.h"

#include <cmath>
#include <cstddef>

namespace tarn2::specific::orvo5000::programmer {

void make_plot_values(const QVector<QVector<double>> &steps,
                      QVector<double> &x,
                      QVector<double> &y,
                      Qt::Alignment alignment)
{
    x.clear();
    y.clear();
    const bool twoPoints = alignment == Qt::AlignRight;
    const int points = twoPoints ? 2 * steps.size() : steps.size();
    x.reserve(points);
    y.reserve(points);

    // A whole number kept in a double: no int to overflow on long sequences, and exactly the
    // same truncation for any time a plot can show.
    double t = 0.0;
    for (const QVector<double> &step : steps) {
        const double level = step.value(0);
        const double duration = step.value(1);
        x.append(t);
        y.append(level);
        t = std::trunc(t + duration);
        if (twoPoints) {
            x.append(t);
            y.append(level);
        }
    }
}

void make_step_plot_values(int count,
                           const PlotStepReader &step,
                           QVector<double> &x,
                           QVector<double> &y)
{
    count = qMax(count, 0);
    x.resize(2 * count);
    y.resize(2 * count);
    double *xs = x.data();
    double *ys = y.data();
    double t = 0.0;
    for (int i = 0; i < count; ++i) {
        double level = 0.0;
        double duration = 0.0;
        step(i, level, duration);
        const std::ptrdiff_t at = std::ptrdiff_t{2} * i;
        xs[at] = t;
        ys[at] = level;
        t = std::trunc(t + duration);
        xs[at + 1] = t;
        ys[at + 1] = level;
    }
}

} // namespace tarn2::specific::orvo5000::programmer
