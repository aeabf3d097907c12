// Turning (level, duration) steps into the points of a step curve.
#pragma once

#include "tarn2_specific_export.h"

#include <QVector>

#include <functional>

namespace tarn2::specific::orvo5000::programmer {

// Fills x and y (cleared first) from `steps`, each holding a level at index 0 and a duration in
// ticks at index 1; further elements are ignored and missing ones read as 0. The running start
// time is truncated to a whole tick after every step, so fractions left over from scaling seconds
// are dropped step by step instead of adding up.
// Qt::AlignRight gives two points per step (its start and its end, so steps join with vertical
// jumps); any other alignment gives one point per step, at its start.
TARN2_SPECIFIC_EXPORT void make_plot_values(const QVector<QVector<double>> &steps,
                                            QVector<double> &x,
                                            QVector<double> &y,
                                            Qt::Alignment alignment);

// Step i's level and its duration in ticks, as element 0 and 1 of a step of make_plot_values().
using PlotStepReader = std::function<void(int i, double &level, double &duration)>;

// The points make_plot_values() gives in its two-point form (Qt::AlignRight) for `count` steps
// read through `step`, bit for bit, without building a vector per step.
TARN2_SPECIFIC_EXPORT void make_step_plot_values(int count,
                                                 const PlotStepReader &step,
                                                 QVector<double> &x,
                                                 QVector<double> &y);

} // namespace tarn2::specific::orvo5000::programmer
