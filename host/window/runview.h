// The run view: Run and Stop for an uploaded sequence, and its live plot against the plan.
#pragma once

#include <QPair>
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

// RunView offers the sequences the instrument holds as verified on this connection, and draws
// the one selected: its planned staircase, cycles repeated, and while it runs the measured voltage
// and current (List) or output state (Delayer) with a cursor at the step now playing. Its
// selector, status line and plot always describe the same sequence; while one runs, the selector
// stays on it. It exports the trace as CSV and the plot as PNG under names it suggests.
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

    // Named in the exported plot's title; empty when not connected.
    void setInstrument(const QString &identity) { m_instrument = identity; }
    bool exportCsv(const QString &path, QString *error) const;
    // At `size`, or the size on screen (never below a readable size) when it is empty.
    bool exportPng(const QString &path, QSize size = {}) const;
    // "list-CH1-2026-11-25-0412": the sequence shown, its channel and now.
    QString suggestedName() const;
    QString statusText() const;
    // For drawing recorded runs while no run goes on; the next run draws its own again.
    QCustomPlot *plot() const { return m_plot; }
    // The channel (from 1) and mode of the sequence the view shows; {0, true} for none.
    QPair<int, bool> shownSequence() const;
    void showSequence(int channel, bool list);

    // Run and Stop as the window's menu offers them.
    void runSelected();
    void stop();
    bool canRun() const;

signals:
    void runnableChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void refreshSequences();
    void selectionChanged();
    void showNote(const QString &text, bool failed);
    void showProgress(const QString &text);
    const UploadedSequence *shown() const;
    void started();
    void addSample(const RunSample &sample);
    void ended(const QString &message, bool failed);
    void setUpPlot(const UploadedSequence &sequence);
    void drawPlan(const UploadedSequence &sequence, qint64 throughCycle);
    void updateLabels(const UploadedSequence &sequence, const RunSample *sample);
    void updateButtons();
    QString title() const;
    void chooseCsv();
    void choosePng();
    QString chooseExportPath(const QString &caption, const QString &filter, const QString &suffix);

    RunSession *m_session;
    int m_timeDecimals;
    int m_voltageDecimals;
    int m_currentDecimals;
    QString m_instrument;
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
