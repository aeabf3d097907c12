// The curve that shows a step sequence in the dialog's plots.
#pragma once

#include "tarn2_specific_export.h"

#include <qcustomplot.h>

#include <functional>

namespace tarn2::specific::orvo5000::programmer {

// A StepCurve holds the points of make_plot_values() in its two-point form: each step a horizontal
// segment from its start to its end, the start truncated to a whole tick after every step. It
// fills them without building one vector per step, and after an edit it recomputes only the steps
// from the first one that changed, so a long sequence costs little more to edit than a short one.
// Every point is kept exactly; only drawing is thinned: when there are far more points than the
// plot has pixel columns, each column is drawn from its first, lowest, highest and last point,
// which covers the same pixels as drawing them all but for a line moved by one pixel where a point
// sits on a column's edge.
class TARN2_SPECIFIC_EXPORT StepCurve final : public QCPCurve
{
    Q_OBJECT
    Q_DISABLE_COPY(StepCurve)

public:
    // Step i's level and its duration in ticks.
    using StepReader = std::function<void(int i, double &level, double &duration)>;

    StepCurve(QCPAxis *keyAxis, QCPAxis *valueAxis);
    ~StepCurve() override;

    // Makes the points those of `count` steps read through `step`. The points of the steps before
    // `from` are kept as they are, so they must not have changed since the last call; a `from`
    // beyond the points held is lowered to what is held.
    void setSteps(int count, int from, const StepReader &step);

    // Takes x and y as the points in their order (as setData() would, without sorting them).
    void setPoints(const QVector<double> &x, const QVector<double> &y);

protected:
    void draw(QCPPainter *painter) override;

private:
    bool thinnedLines(QVector<QPointF> &lines) const;
};

} // namespace tarn2::specific::orvo5000::programmer
