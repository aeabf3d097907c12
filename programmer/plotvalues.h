// Turning (level, duration) steps into the points of a step curve.
#pragma once

#include "tarn2_specific_export.h"

#include <QVector>

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

} // namespace tarn2::specific::orvo5000::programmer
