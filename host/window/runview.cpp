// The run view's controls, plot and exports.
#include "runview.h"

#include "runsession.h"

#include <qcustomplot.h>

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QSettings>
#include <QVBoxLayout>

namespace tarn::host {

namespace {
// The plan is drawn for as many recent cycles as fit in this many points.
constexpr int planPoints = 20000;
// An exported plot is never smaller than this, however small the view is on screen.
constexpr QSize smallestExport(1000, 600);
// A plot lower than this says nothing; the view shows none instead.
constexpr int smallestPlot = 90;
const QColor voltageColor(QStringLiteral("#0000ff"));
const QColor currentColor(QStringLiteral("#ff0000"));
const QString exportDirKey = QStringLiteral("Run/ExportDirectory");

QPair<int, bool> keyOf(const UploadedSequence &sequence)
{
    return {sequence.channel, sequence.list};
}
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
    m_sequences->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_sequences->setMinimumContentsLength(22);
    m_sequences->setToolTip(tr("The sequences the instrument holds as this program uploaded and "
                               "verified them since it connected"));
    m_run->setObjectName(QStringLiteral("runButton"));
    m_run->setToolTip(tr("Switch the output on and play the sequence on the instrument"));
    m_stop->setObjectName(QStringLiteral("stopButton"));
    m_stop->setToolTip(tr("Stop the sequence; the output goes to its end state"));
    m_csv->setObjectName(QStringLiteral("exportTrace"));
    m_csv->setToolTip(tr("Save the measured samples of the run shown as CSV"));
    m_png->setObjectName(QStringLiteral("exportPlot"));
    m_png->setToolTip(tr("Save the plot as a PNG image, titled with the instrument, channel, "
                         "sequence and date"));
    m_progress->setObjectName(QStringLiteral("runProgress"));
    m_note->setObjectName(QStringLiteral("runNote"));
    // The two texts give way to the buttons on a narrow window; each is whole in its tool tip.
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    m_note->setTextInteractionFlags(Qt::TextSelectableByMouse);

    // One line of controls and what they did, so that the plot keeps the height of a short
    // screen.
    auto *controls = new QHBoxLayout;
    controls->addWidget(m_sequences);
    controls->addWidget(m_run);
    controls->addWidget(m_stop);
    controls->addSpacing(8);
    controls->addWidget(m_progress, 2);
    controls->addSpacing(16);
    controls->addWidget(m_note, 1);
    controls->addWidget(m_csv);
    controls->addWidget(m_png);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(2);
    layout->addLayout(controls);
    layout->addWidget(m_plot, 1);
    m_plot->setMinimumHeight(1); // 0 would leave the plot's own hint in force
    m_plot->xAxis->setLabel(tr("Time (s)"));
    m_plot->yAxis->ticker()->setTickCount(4);
    m_plot->yAxis2->ticker()->setTickCount(4);
    // The legend gets a row of its own above the curves, so it never covers one.
    m_plot->plotLayout()->insertRow(0);
    m_plot->axisRect()->insetLayout()->take(m_plot->legend);
    m_plot->plotLayout()->addElement(0, 0, m_plot->legend);
    m_plot->plotLayout()->setRowStretchFactor(0, 0.001);
    m_plot->legend->setFillOrder(QCPLegend::foColumnsFirst);
    m_plot->legend->setBorderPen(Qt::NoPen);
    m_plot->legend->setMargins(QMargins(0, 0, 0, 0));

    connect(m_sequences,
            QOverload<int>::of(&QComboBox::currentIndexChanged),
            this,
            &RunView::selectionChanged);
    connect(m_run, &QPushButton::clicked, this, &RunView::runSelected);
    connect(m_stop, &QPushButton::clicked, this, &RunView::stop);
    connect(m_csv, &QPushButton::clicked, this, &RunView::chooseCsv);
    connect(m_png, &QPushButton::clicked, this, &RunView::choosePng);
    connect(m_session, &RunSession::uploadedChanged, this, &RunView::refreshSequences);
    connect(m_session, &RunSession::started, this, &RunView::started);
    connect(m_session, &RunSession::sampled, this, &RunView::addSample);
    connect(m_session, &RunSession::ended, this, &RunView::ended);
    refreshSequences();
}

RunView::~RunView() = default;

void RunView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // On a short screen the dock keeps the controls and the step playing; the plot comes back
    // once the dock is made taller or floated.
    m_plot->setVisible(m_plot->isVisible() ? m_plot->height() >= smallestPlot
                                           : height() - m_sequences->height() >= smallestPlot + 8);
}

void RunView::refreshSequences()
{
    const QVariant before = m_sequences->currentData();
    {
        const QSignalBlocker blocker(m_sequences);
        m_sequences->clear();
        for (const UploadedSequence &sequence : m_session->uploaded())
            m_sequences->addItem(sequence.title(),
                                 QVariant::fromValue(QPoint(sequence.channel, sequence.list)));
        // What was verified last comes forward; otherwise the choice stays where it was.
        const QPair<int, bool> last = m_session->lastUploaded();
        int index = m_sequences->findData(QVariant::fromValue(QPoint(last.first, last.second)));
        if (index < 0)
            index = m_sequences->findData(before);
        m_sequences->setCurrentIndex(index < 0 ? 0 : index);
    }
    if (m_sequences->count() == 0)
        showNote(m_session->trace().samples().isEmpty()
                     ? tr("Upload a sequence and let it be verified; it can then be run here.")
                     : tr("The instrument holds nothing this program verified since it "
                          "connected; the last run stays here to export."),
                 false);
    else if (!m_session->isRunning())
        showNote(QString(), false);
    selectionChanged();
}

QPair<int, bool> RunView::shownSequence() const
{
    const UploadedSequence *sequence = shown();
    return sequence ? keyOf(*sequence) : QPair<int, bool>{0, true};
}

void RunView::showSequence(int channel, bool list)
{
    const int index = m_sequences->findData(QVariant::fromValue(QPoint(channel, list)));
    if (index >= 0)
        m_sequences->setCurrentIndex(index);
}

const UploadedSequence *RunView::shown() const
{
    if (m_session->isRunning())
        return &m_session->current();
    const QPoint key = m_sequences->currentData().toPoint();
    if (key.x() != 0)
        return m_session->find(key.x(), key.y() != 0);
    // Nothing is offered (the link went), but the last run's trace is still the user's.
    if (!m_session->trace().samples().isEmpty())
        return &m_session->current();
    return nullptr;
}

void RunView::selectionChanged()
{
    if (m_session->isRunning()) {
        // The selector stays on the sequence that plays.
        showSequence(m_session->current().channel, m_session->current().list);
        updateButtons();
        return;
    }
    const UploadedSequence *sequence = shown();
    m_plot->clearGraphs();
    m_plot->clearItems();
    m_planVoltage = m_planCurrent = m_measuredVoltage = m_measuredCurrent = nullptr;
    m_cursor = nullptr;
    if (!sequence) {
        showProgress(QString());
        m_plot->legend->setVisible(false);
        m_plot->yAxis->setLabel(QString());
        m_plot->yAxis2->setVisible(false);
        m_plot->replot(QCustomPlot::rpQueuedReplot);
        updateButtons();
        return;
    }
    setUpPlot(*sequence);
    const bool traced = !m_session->trace().samples().isEmpty()
                        && sequence->serial == m_session->current().serial;
    qint64 cycles = 1;
    if (traced) {
        for (const RunSample &s : m_session->trace().samples())
            cycles = qMax(cycles, s.cycle);
        addSample(m_session->trace().samples().constLast());
    }
    drawPlan(*sequence, cycles);
    updateLabels(*sequence, nullptr);
    // Queued: an upload's start and end both change what is offered, and the plot is drawn once
    // when the event loop next has time.
    m_plot->replot(QCustomPlot::rpQueuedReplot);
    updateButtons();
}

void RunView::updateButtons()
{
    const bool running = m_session->isRunning();
    const UploadedSequence *sequence = shown();
    const bool traced = sequence && !m_session->trace().samples().isEmpty()
                        && sequence->serial == m_session->current().serial;
    m_sequences->setEnabled(!running && m_sequences->count() > 0);
    m_run->setEnabled(canRun());
    m_stop->setEnabled(running);
    m_csv->setEnabled(traced);
    m_png->setEnabled(sequence != nullptr);
    emit runnableChanged();
}

bool RunView::canRun() const
{
    return !m_session->isRunning() && m_sequences->currentData().toPoint().x() != 0;
}

void RunView::runSelected()
{
    const QPoint key = m_sequences->currentData().toPoint();
    if (key.x() == 0 || m_session->isRunning())
        return;
    showProgress(tr("Starting..."));
    showNote(QString(), false);
    m_session->start(key.x(), key.y() != 0);
}

void RunView::stop()
{
    m_session->stop();
}

void RunView::setUpPlot(const UploadedSequence &sequence)
{
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
        m_plot->yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
        m_plot->yAxis->ticker()->setTickCount(4);
        m_plot->yAxis2->setLabel(tr("Current (A)"));
        m_plot->yAxis2->setVisible(true);
        double vMax = 0.0;
        double cMax = 0.0;
        for (const auto &step : sequence.listSteps) {
            vMax = qMax(vMax, step.voltage);
            cMax = qMax(cMax, step.current);
        }
        m_plot->yAxis->setRange(0.0, vMax > 0.0 ? vMax * 1.1 : 1.0);
        m_plot->yAxis2->setRange(0.0, cMax > 0.0 ? cMax * 1.1 : 0.1);
    } else {
        m_planVoltage->setName(tr("Planned output"));
        m_planVoltage->setPen(QPen(QColor(QStringLiteral("#808080")), 1, Qt::DashLine));
        m_measuredVoltage->setName(tr("Output state"));
        m_measuredVoltage->setPen(QPen(voltageColor, 2));
        m_measuredVoltage->setLineStyle(QCPGraph::lsStepLeft);
        m_plot->yAxis->setLabel(tr("Output"));
        QSharedPointer<QCPAxisTickerText> states(new QCPAxisTickerText);
        states->addTick(0.0, tr("Off"));
        states->addTick(1.0, tr("On"));
        m_plot->yAxis->setTicker(states);
        m_plot->yAxis->setRange(-0.15, 1.15);
        m_plot->yAxis2->setVisible(false);
    }
    m_plot->legend->setVisible(true);
    m_cursor = new QCPItemStraightLine(m_plot);
    m_cursor->setPen(QPen(QColor(QStringLiteral("#00a000")), 1));
    m_cursor->setVisible(false);
}

void RunView::started()
{
    setUpPlot(m_session->current());
    m_plannedCycles = 0;
    drawPlan(m_session->current(), 1);
    selectionChanged();
    m_plot->replot();
}

void RunView::drawPlan(const UploadedSequence &sequence, qint64 throughCycle)
{
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
    if (!m_measuredVoltage)
        return;
    const UploadedSequence &sequence = m_session->current();
    const QVector<RunSample> &samples = m_session->trace().samples();
    // The trace thins its older half when it fills; the curves follow it rather than grow.
    if (m_measuredVoltage->dataCount() + 1 != samples.size()) {
        QVector<double> t;
        QVector<double> v;
        QVector<double> c;
        for (const RunSample &s : samples) {
            t << s.time;
            v << (sequence.list ? s.voltage : (s.output ? 1.0 : 0.0));
            c << s.current;
        }
        m_measuredVoltage->setData(t, v, true);
        if (m_measuredCurrent)
            m_measuredCurrent->setData(t, c, true);
    } else {
        m_measuredVoltage->addData(sample.time,
                                   sequence.list ? sample.voltage : (sample.output ? 1.0 : 0.0));
        if (m_measuredCurrent)
            m_measuredCurrent->addData(sample.time, sample.current);
    }
    // What was measured stays inside the frame, even above the plan.
    if (sequence.list) {
        if (sample.voltage > m_plot->yAxis->range().upper)
            m_plot->yAxis->setRangeUpper(sample.voltage * 1.1);
        if (sample.current > m_plot->yAxis2->range().upper)
            m_plot->yAxis2->setRangeUpper(sample.current * 1.1);
    }
    if (sample.cycle >= m_plannedCycles)
        drawPlan(sequence, sample.cycle + 1);
    m_cursor->setVisible(m_session->isRunning());
    m_cursor->point1->setCoords(sample.time, 0.0);
    m_cursor->point2->setCoords(sample.time, 1.0);
    if (m_session->isRunning())
        updateLabels(sequence, &sample);
    m_plot->replot(QCustomPlot::rpQueuedReplot);
}

void RunView::updateLabels(const UploadedSequence &sequence, const RunSample *sample)
{
    const double cycleSeconds = sequence.cycleSeconds();
    const QString total = sequence.cycles == 0
                              ? tr("endless")
                              : tr("%1 s").arg(QString::number(
                                  cycleSeconds * sequence.cycles, 'f', m_timeDecimals));
    const QString cycles
        = sequence.cycles == 0 ? QStringLiteral("\u221e") : QString::number(sequence.cycles);
    if (!sample || sample->step == 0) {
        showProgress(tr("Not running · %1 steps, %2 per cycle, %3 in all")
                         .arg(sequence.stepCount())
                         .arg(tr("%1 s").arg(QString::number(cycleSeconds, 'f', m_timeDecimals)))
                         .arg(total));
        return;
    }
    // The instrument counts its steps from 1; the editor's "No." column from 0.
    showProgress(tr("Step No. %1 of %2 steps · cycle %3 of %4 · %5 s of %6")
                     .arg(sample->step - 1)
                     .arg(sequence.stepCount())
                     .arg(sample->cycle)
                     .arg(cycles)
                     .arg(QString::number(sample->time, 'f', m_timeDecimals))
                     .arg(total));
}

void RunView::ended(const QString &message, bool failed)
{
    showNote(message, failed);
    if (m_session->trace().samples().isEmpty())
        showProgress(QString());
    else
        updateLabels(m_session->current(), nullptr);
    if (m_cursor)
        m_cursor->setVisible(false);
    updateButtons();
    m_plot->replot();
}

void RunView::showProgress(const QString &text)
{
    m_progress->setText(text);
    m_progress->setToolTip(text);
}

void RunView::showNote(const QString &text, bool failed)
{
    m_note->setText(text);
    m_note->setToolTip(text);
    m_note->setStyleSheet(failed ? QStringLiteral("color:#ff0000") : QString());
}

QString RunView::statusText() const
{
    return m_progress->text();
}

QString RunView::title() const
{
    const UploadedSequence *sequence = shown();
    QStringList parts;
    if (!m_instrument.isEmpty())
        parts << m_instrument;
    if (sequence)
        parts << sequence->title();
    parts << QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
    return parts.join(QStringLiteral(" \u2014 "));
}

QString RunView::suggestedName() const
{
    const UploadedSequence *sequence = shown();
    QString name = sequence ? QStringLiteral("%1-%2-").arg(
                       QLatin1String(sequence->list ? "list" : "delayer"), sequence->channelName)
                            : QStringLiteral("run-");
    return name + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmm"));
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

bool RunView::exportPng(const QString &path, QSize size) const
{
    if (size.isEmpty())
        size = m_plot->size().expandedTo(smallestExport);
    // The title is part of the picture only, not of the view.
    m_plot->plotLayout()->insertRow(0);
    auto *heading = new QCPTextElement(m_plot, title(), QFont(font().family(), 11, QFont::Bold));
    m_plot->plotLayout()->addElement(0, 0, heading);
    const bool written = m_plot->savePng(path, size.width(), size.height(), 1.0, -1);
    m_plot->plotLayout()->remove(heading);
    m_plot->plotLayout()->simplify();
    m_plot->replot();
    return written;
}

QString
RunView::chooseExportPath(const QString &caption, const QString &filter, const QString &suffix)
{
    QSettings settings;
    const QString folder = settings.value(exportDirKey, QDir::homePath()).toString();
    QString path = QFileDialog::getSaveFileName(
        this, caption, QDir(folder).filePath(suggestedName() + suffix), filter);
    if (path.isEmpty())
        return {};
    if (!path.endsWith(suffix, Qt::CaseInsensitive))
        path += suffix;
    settings.setValue(exportDirKey, QFileInfo(path).absolutePath());
    return path;
}

void RunView::chooseCsv()
{
    const QString path
        = chooseExportPath(tr("Export Trace"), tr("CSV files (*.csv)"), QStringLiteral(".csv"));
    if (path.isEmpty())
        return;
    QString error;
    if (exportCsv(path, &error))
        showNote(tr("Saved %1 samples to %2")
                     .arg(m_session->trace().samples().size())
                     .arg(QDir::toNativeSeparators(path)),
                 false);
    else
        showNote(error, true);
}

void RunView::choosePng()
{
    const QString path
        = chooseExportPath(tr("Export Plot"), tr("PNG images (*.png)"), QStringLiteral(".png"));
    if (path.isEmpty())
        return;
    if (exportPng(path))
        showNote(tr("Saved the plot to %1").arg(QDir::toNativeSeparators(path)), false);
    else
        showNote(tr("Cannot write %1").arg(QDir::toNativeSeparators(path)), true);
}

} // namespace tarn::host
