// Drawing recorded plans and traces.
#include "traceoverlay.h"

#include <qcustomplot.h>

namespace tarn::host {

using history::HistoryRecord;
using namespace tarn2::specific::orvo5000::programmer;

namespace {

// The first run in the run view's own colours, the second in colours that tell it apart.
const QColor voltageColors[]
    = {QColor(QStringLiteral("#0000ff")), QColor(QStringLiteral("#00a0a0"))};
const QColor currentColors[]
    = {QColor(QStringLiteral("#ff0000")), QColor(QStringLiteral("#c08000"))};

void drawPlan(QCustomPlot *plot, const HistoryRecord &run, double until)
{
    const SequenceContent &sequence = run.sequence;
    const bool list = sequence.mode == List;
    const int steps = sequence.size();
    double cycleSeconds = 0.0;
    for (int i = 0; i < steps; ++i)
        cycleSeconds += list ? sequence.list.at(i).time : sequence.delayer.at(i).time;
    if (steps == 0 || cycleSeconds <= 0.0)
        return;
    QVector<double> t;
    QVector<double> level;
    QVector<double> current;
    const int cycles = qMax(1, static_cast<int>(std::ceil(until / cycleSeconds)));
    // Bounded as the live plan is: a long trace of a short sequence shows its latest cycles.
    const int first = qMax(1, cycles - qMax(1, 20000 / (steps + 1)) + 1);
    for (int cycle = first; cycle <= cycles; ++cycle) {
        double at = (cycle - 1) * cycleSeconds;
        for (int i = 0; i < steps; ++i) {
            t << at;
            level << (list ? sequence.list.at(i).voltage
                           : (sequence.delayer.at(i).state ? 1.0 : 0.0));
            current << (list ? sequence.list.at(i).current : 0.0);
            at += list ? sequence.list.at(i).time : sequence.delayer.at(i).time;
        }
    }
    t << cycles * cycleSeconds;
    level << level.constLast();
    current << current.constLast();
    QCPGraph *voltage = plot->addGraph();
    voltage->setLineStyle(QCPGraph::lsStepLeft);
    voltage->setName(TraceOverlay::tr("Plan of %1").arg(run.name()));
    voltage->setPen(QPen(voltageColors[0].lighter(170), 1, Qt::DashLine));
    voltage->setData(t, level, true);
    if (list) {
        QCPGraph *amperes = plot->addGraph(plot->xAxis, plot->yAxis2);
        amperes->setLineStyle(QCPGraph::lsStepLeft);
        amperes->setName(TraceOverlay::tr("Planned current of %1").arg(run.name()));
        amperes->setPen(QPen(currentColors[0].lighter(170), 1, Qt::DashLine));
        amperes->setData(t, current, true);
    }
}

} // namespace

void TraceOverlay::draw(QCustomPlot *plot, const QList<HistoryRecord> &runs)
{
    plot->clearGraphs();
    plot->clearItems();
    if (runs.isEmpty()) {
        plot->replot();
        return;
    }
    const bool list = runs.first().sequence.mode == List;
    double until = 0.0;
    double vMax = list ? 1.0 : 1.0;
    double cMax = 0.1;
    for (const HistoryRecord &run : runs) {
        if (!run.samples.isEmpty())
            until = qMax(until, run.samples.constLast().time);
        for (const ListData &step : run.sequence.list) {
            vMax = qMax(vMax, step.voltage);
            cMax = qMax(cMax, step.current);
        }
    }
    drawPlan(plot, runs.first(), until);
    for (int i = 0; i < runs.size() && i < 2; ++i) {
        const HistoryRecord &run = runs.at(i);
        QVector<double> t;
        QVector<double> v;
        QVector<double> c;
        for (const RunSample &s : run.samples) {
            t << s.time;
            v << (list ? s.voltage : (s.output ? 1.0 : 0.0));
            c << s.current;
            vMax = qMax(vMax, s.voltage);
            cMax = qMax(cMax, s.current);
        }
        QCPGraph *voltage = plot->addGraph();
        voltage->setName(list ? TraceOverlay::tr("Voltage of %1").arg(run.name())
                              : TraceOverlay::tr("Output of %1").arg(run.name()));
        voltage->setPen(QPen(voltageColors[i], 2));
        if (!list)
            voltage->setLineStyle(QCPGraph::lsStepLeft);
        voltage->setData(t, v, true);
        if (list) {
            QCPGraph *current = plot->addGraph(plot->xAxis, plot->yAxis2);
            current->setName(TraceOverlay::tr("Current of %1").arg(run.name()));
            current->setPen(QPen(currentColors[i], 2));
            current->setData(t, c, true);
        }
    }
    plot->legend->setVisible(true);
    plot->xAxis->setRange(0.0, qMax(until, 1e-3));
    plot->yAxis->setLabel(list ? TraceOverlay::tr("Voltage (V)")
                               : TraceOverlay::tr("Output (1 = On)"));
    plot->yAxis->setRange(list ? 0.0 : -0.1, list ? vMax * 1.15 : 1.1);
    plot->yAxis2->setVisible(list);
    plot->yAxis2->setLabel(TraceOverlay::tr("Current (A)"));
    plot->yAxis2->setRange(0.0, cMax * 1.15);
    plot->replot();
}

} // namespace tarn::host
