// The run view: Run and Stop for an uploaded sequence, and its live plot against the plan.
#pragma once

#include <QWidget>

class QComboBox;
class QCPGraph;
class QCPItemStraightLine;
class QCustomPlot;
class QLabel;
class QPushButton;

namespace tarn::host {

class RunSession;
struct RunSample;
struct UploadedSequence;

// RunView draws the measured voltage and current (List) or output state (Delayer) over the
// planned staircase of the uploaded sequence, cycles repeated, with a cursor at the step now
// playing, and offers the trace as CSV and the plot as PNG.
class RunView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(RunView)

public:
    RunView(RunSession *session,
            int timeDecimals,
            int voltageDecimals,
            int currentDecimals,
            QWidget *parent = nullptr);
    ~RunView() override;

    // Offers the sequences the session holds; called after each verified upload.
    void refreshSequences();
    bool exportCsv(const QString &path, QString *error) const;
    bool exportPng(const QString &path) const;
    QString statusText() const;
    // For drawing recorded runs while no run goes on; the next run draws its own again.
    QCustomPlot *plot() const { return m_plot; }

private:
    void runSelected();
    void started();
    void addSample(const RunSample &sample);
    void ended(const QString &message, bool failed);
    void drawPlan(qint64 throughCycle);
    void updateLabels(const RunSample *sample);
    void chooseCsv();
    void choosePng();

    RunSession *m_session;
    int m_timeDecimals;
    int m_voltageDecimals;
    int m_currentDecimals;
    QComboBox *m_sequences;
    QPushButton *m_run;
    QPushButton *m_stop;
    QPushButton *m_csv;
    QPushButton *m_png;
    QLabel *m_note;
    QLabel *m_progress;
    QCustomPlot *m_plot;
    QCPGraph *m_planVoltage = nullptr;
    QCPGraph *m_planCurrent = nullptr;
    QCPGraph *m_measuredVoltage = nullptr;
    QCPGraph *m_measuredCurrent = nullptr;
    QCPItemStraightLine *m_cursor = nullptr;
    qint64 m_plannedCycles = 0;
};

} // namespace tarn::host
