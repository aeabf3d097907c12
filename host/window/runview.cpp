// The run view's controls, plot and exports.
#include "runview.h"

#include "runsession.h"

#include <qcustomplot.h>

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

namespace tarn::host {

namespace {
// The plan is drawn for as many recent cycles as fit in this many points.
constexpr int planPoints = 20000;
const QColor voltageColor(QStringLiteral("#0000ff"));
const QColor currentColor(QStringLiteral("#ff0000"));
} // namespace

RunView::RunView(RunSession *session,
                 int timeDecimals,
                 int voltageDecimals,
                 int currentDecimals,
                 QWidget *parent)
    : QWidget(parent)
    , m_session(session)
    , m_timeDecimals(timeDecimals)
    , m_voltageDecimals(voltageDecimals)
    , m_currentDecimals(currentDecimals)
    , m_sequences(new QComboBox(this))
    , m_run(new QPushButton(tr("Run"), this))
    , m_stop(new QPushButton(tr("Stop"), this))
    , m_csv(new QPushButton(tr("Export Trace..."), this))
    , m_png(new QPushButton(tr("Export Plot..."), this))
    , m_note(new QLabel(this))
    , m_progress(new QLabel(this))
    , m_plot(new QCustomPlot(this))
{
    m_sequences->setObjectName(QStringLiteral("runSequence"));
    m_sequences->setToolTip(tr("The sequences uploaded and verified in this session"));
    m_run->setObjectName(QStringLiteral("runButton"));
    m_run->setToolTip(tr("Switch the output on and play the sequence on the instrument"));
    m_stop->setObjectName(QStringLiteral("stopButton"));
    m_stop->setToolTip(tr("Stop the sequence; the output goes to its end state"));
    m_csv->setToolTip(tr("Save the measured trace as CSV"));
    m_png->setToolTip(tr("Save the plot as PNG"));
    m_progress->setObjectName(QStringLiteral("runProgress"));
    m_note->setObjectName(QStringLiteral("runNote"));
    m_note->setWordWrap(true);

    auto *controls = new QHBoxLayout;
    controls->addWidget(m_sequences, 1);
    controls->addWidget(m_run);
    controls->addWidget(m_stop);
    controls->addWidget(m_csv);
    controls->addWidget(m_png);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(m_note);
    layout->addWidget(m_progress);
    layout->addWidget(m_plot, 1);
    m_plot->setMinimumHeight(220);
    m_plot->xAxis->setLabel(tr("Time (s)"));

    connect(m_run, &QPushButton::clicked, this, &RunView::runSelected);
    connect(m_stop, &QPushButton::clicked, m_session, &RunSession::stop);
    connect(m_csv, &QPushButton::clicked, this, &RunView::chooseCsv);
    connect(m_png, &QPushButton::clicked, this, &RunView::choosePng);
    connect(m_session, &RunSession::started, this, &RunView::started);
    connect(m_session, &RunSession::sampled, this, &RunView::addSample);
    connect(m_session, &RunSession::ended, this, &RunView::ended);
    refreshSequences();
}

RunView::~RunView() = default;

void RunView::refreshSequences()
{
    m_sequences->clear();
    const QPair<int, bool> last = m_session->lastUploaded();
    for (const UploadedSequence &sequence : m_session->uploaded()) {
        m_sequences->addItem(sequence.title(),
                             QVariant::fromValue(QPoint(sequence.channel, sequence.list)));
        if (sequence.channel == last.first && sequence.list == last.second)
            m_sequences->setCurrentIndex(m_sequences->count() - 1);
    }
    const bool any = m_sequences->count() > 0;
    m_note->setText(any ? QString()
                        : tr("Upload a sequence and let it be verified; it can then be run here. "
                             "What the instrument held before was not verified by this program "
                             "and is not offered."));
    m_note->setVisible(!any);
    m_run->setEnabled(any && !m_session->isRunning());
    m_stop->setEnabled(m_session->isRunning());
    m_csv->setEnabled(!m_session->trace().samples().isEmpty());
    m_png->setEnabled(!m_session->trace().samples().isEmpty());
}

void RunView::runSelected()
{
    const QPoint key = m_sequences->currentData().toPoint();
    if (key.x() == 0)
        return;
    m_progress->setText(tr("Starting..."));
    m_session->start(key.x(), key.y() != 0);
}

void RunView::started()
{
    const UploadedSequence &sequence = m_session->current();
    m_plot->clearGraphs();
    m_plot->clearItems();
    m_planVoltage = m_plot->addGraph();
    m_planVoltage->setLineStyle(QCPGraph::lsStepLeft);
    m_measuredVoltage = m_plot->addGraph();
    m_planCurrent = nullptr;
    m_measuredCurrent = nullptr;
    if (sequence.list) {
        m_planVoltage->setName(tr("Planned voltage"));
        m_planVoltage->setPen(QPen(voltageColor.lighter(170), 1, Qt::DashLine));
        m_measuredVoltage->setName(tr("Measured voltage"));
        m_measuredVoltage->setPen(QPen(voltageColor, 2));
        m_planCurrent = m_plot->addGraph(m_plot->xAxis, m_plot->yAxis2);
        m_planCurrent->setLineStyle(QCPGraph::lsStepLeft);
        m_planCurrent->setName(tr("Planned current"));
        m_planCurrent->setPen(QPen(currentColor.lighter(170), 1, Qt::DashLine));
        m_measuredCurrent = m_plot->addGraph(m_plot->xAxis, m_plot->yAxis2);
        m_measuredCurrent->setName(tr("Measured current"));
        m_measuredCurrent->setPen(QPen(currentColor, 2));
        m_plot->yAxis->setLabel(tr("Voltage (V)"));
        m_plot->yAxis2->setLabel(tr("Current (A)"));
        m_plot->yAxis2->setVisible(true);
        double vMax = 0.0;
        double cMax = 0.0;
        for (const auto &step : sequence.listSteps) {
            vMax = qMax(vMax, step.voltage);
            cMax = qMax(cMax, step.current);
        }
        m_plot->yAxis->setRange(0.0, qMax(1.0, vMax * 1.15));
        m_plot->yAxis2->setRange(0.0, qMax(0.1, cMax * 1.15));
    } else {
        m_planVoltage->setName(tr("Planned output"));
        m_planVoltage->setPen(QPen(QColor(QStringLiteral("#808080")), 1, Qt::DashLine));
        m_measuredVoltage->setName(tr("Output state"));
        m_measuredVoltage->setPen(QPen(voltageColor, 2));
        m_measuredVoltage->setLineStyle(QCPGraph::lsStepLeft);
        m_plot->yAxis->setLabel(tr("Output (1 = On)"));
        m_plot->yAxis->setRange(-0.1, 1.1);
        m_plot->yAxis2->setVisible(false);
    }
    m_plot->legend->setVisible(true);
    m_cursor = new QCPItemStraightLine(m_plot);
    m_cursor->setPen(QPen(QColor(QStringLiteral("#00a000")), 1));
    m_cursor->point1->setCoords(0.0, 0.0);
    m_cursor->point2->setCoords(0.0, 1.0);
    m_plannedCycles = 0;
    drawPlan(1);
    refreshSequences();
    m_plot->replot();
}

void RunView::drawPlan(qint64 throughCycle)
{
    const UploadedSequence &sequence = m_session->current();
    const int steps = sequence.stepCount();
    if (steps == 0)
        return;
    if (sequence.cycles > 0)
        throughCycle = qMin<qint64>(throughCycle, sequence.cycles);
    const qint64 fit = qMax(1, planPoints / (steps + 1));
    const qint64 first = qMax<qint64>(1, throughCycle - fit + 1);
    const double cycleSeconds = sequence.cycleSeconds();
    QVector<double> t;
    QVector<double> level;
    QVector<double> current;
    for (qint64 cycle = first; cycle <= throughCycle; ++cycle) {
        double at = (cycle - 1) * cycleSeconds;
        for (int i = 0; i < steps; ++i) {
            t << at;
            if (sequence.list) {
                level << sequence.listSteps.at(i).voltage;
                current << sequence.listSteps.at(i).current;
            } else {
                level << (sequence.delayerSteps.at(i).state ? 1.0 : 0.0);
            }
            at += sequence.stepTime(i);
        }
    }
    // The last step holds until the end of the last cycle shown.
    t << throughCycle * cycleSeconds;
    level << level.constLast();
    m_planVoltage->setData(t, level, true);
    if (m_planCurrent) {
        current << current.constLast();
        m_planCurrent->setData(t, current, true);
    }
    m_plannedCycles = throughCycle;
    m_plot->xAxis->setRange(0.0, qMax(throughCycle * cycleSeconds, 1e-3));
}

void RunView::addSample(const RunSample &sample)
{
    const QVector<RunSample> &samples = m_session->trace().samples();
    // The trace thins its older half when it fills; the curves follow it rather than grow.
    if (m_measuredVoltage->dataCount() + 1 != samples.size()) {
        QVector<double> t;
        QVector<double> v;
        QVector<double> c;
        for (const RunSample &s : samples) {
            t << s.time;
            v << (m_session->current().list ? s.voltage : (s.output ? 1.0 : 0.0));
            c << s.current;
        }
        m_measuredVoltage->setData(t, v, true);
        if (m_measuredCurrent)
            m_measuredCurrent->setData(t, c, true);
    } else {
        m_measuredVoltage->addData(
            sample.time, m_session->current().list ? sample.voltage : (sample.output ? 1.0 : 0.0));
        if (m_measuredCurrent)
            m_measuredCurrent->addData(sample.time, sample.current);
    }
    if (sample.cycle >= m_plannedCycles)
        drawPlan(sample.cycle + 1);
    m_cursor->point1->setCoords(sample.time, 0.0);
    m_cursor->point2->setCoords(sample.time, 1.0);
    updateLabels(&sample);
    m_plot->replot(QCustomPlot::rpQueuedReplot);
}

void RunView::updateLabels(const RunSample *sample)
{
    const UploadedSequence &sequence = m_session->current();
    const double cycleSeconds = sequence.cycleSeconds();
    const QString total = sequence.cycles == 0
                              ? tr("endless")
                              : tr("%1 s").arg(QString::number(
                                  cycleSeconds * sequence.cycles, 'f', m_timeDecimals));
    const QString cycles
        = sequence.cycles == 0 ? QStringLiteral("\u221e") : QString::number(sequence.cycles);
    if (!sample || sample->step == 0) {
        m_progress->setText(
            tr("Not running · %1 steps, %2 per cycle, %3 in all")
                .arg(sequence.stepCount())
                .arg(tr("%1 s").arg(QString::number(cycleSeconds, 'f', m_timeDecimals)))
                .arg(total));
        return;
    }
    m_progress->setText(tr("Step %1 of %2 · cycle %3 of %4 · %5 s of %6")
                            .arg(sample->step)
                            .arg(sequence.stepCount())
                            .arg(sample->cycle)
                            .arg(cycles)
                            .arg(QString::number(sample->time, 'f', m_timeDecimals))
                            .arg(total));
}

void RunView::ended(const QString &message, bool failed)
{
    refreshSequences();
    m_note->setText(message);
    m_note->setStyleSheet(failed ? QStringLiteral("color:#ff0000") : QString());
    m_note->setVisible(true);
    if (m_session->trace().samples().isEmpty())
        m_progress->clear();
    m_plot->replot();
}

QString RunView::statusText() const
{
    return m_progress->text();
}

bool RunView::exportCsv(const QString &path, QString *error) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        *error = tr("Cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    const QStringList lines
        = m_session->trace().csvLines(m_timeDecimals, m_voltageDecimals, m_currentDecimals);
    file.write(lines.join(QLatin1Char('\n')).toUtf8() + '\n');
    if (!file.commit()) {
        *error = tr("Cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

bool RunView::exportPng(const QString &path) const
{
    return m_plot->savePng(path, 0, 0, 1.0, -1);
}

void RunView::chooseCsv()
{
    const QString path
        = QFileDialog::getSaveFileName(this, tr("Export Trace"), {}, tr("CSV files (*.csv)"));
    QString error;
    if (!path.isEmpty() && !exportCsv(path, &error))
        m_note->setText(error);
}

void RunView::choosePng()
{
    const QString path
        = QFileDialog::getSaveFileName(this, tr("Export Plot"), {}, tr("PNG images (*.png)"));
    if (!path.isEmpty() && !exportPng(path))
        m_note->setText(tr("Cannot write %1").arg(path));
}

} // namespace tarn::host
