// Recorded runs drawn in the run view's plot: one on its plan, or two on each other.
#pragma once

#include <historyrecord.h>

#include <QCoreApplication>
#include <QList>

class QCustomPlot;

namespace tarn::host {

// TraceOverlay replaces what a plot shows by recorded runs: the first run's plan as a dashed
// staircase through the cycles its trace covers, and each run's measured voltage and current
// (the output state for a Delayer) in a colour of its own, named by its record in the legend.
class TraceOverlay final
{
    Q_DECLARE_TR_FUNCTIONS(TraceOverlay)

public:
    static void draw(QCustomPlot *plot, const QList<history::HistoryRecord> &runs);
};

} // namespace tarn::host
