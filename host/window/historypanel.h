// The History panel: the recorded uploads and runs, searched, opened, compared and exported.
#pragma once

#include <historyrecord.h>
#include <instrumentdescription.h>

#include <QWidget>

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableView;

namespace tarn::history {
class History;
}

namespace tarn::host {

class HistoryModel;

// HistoryPanel lists what the history holds, newest first, narrowed by instrument, channel,
// outcome, date and text as the user types. It reads full records (steps and samples) only for
// what the user asks of them: Open puts a record's sequence into the editor, Plot draws a run on
// its plan or two runs on each other, Export writes the sequence file and the trace. What is done
// with a record is the window's business; the panel says so through its signals.
class HistoryPanel final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryPanel)

public:
    HistoryPanel(history::History *history,
                 const sim::InstrumentDescription &description,
                 QWidget *parent = nullptr);
    ~HistoryPanel() override;

    HistoryModel *model() const { return m_model; }
    // Searches again with the filters as they stand.
    void refresh();
    // Selects the rows of these records, by name ("R12").
    void select(const QStringList &names);
    // Writes the selected record's sequence to `sequencePath` and, for a run, its trace to
    // `tracePath`; false with *error telling why.
    bool exportSelected(const QString &sequencePath, const QString &tracePath, QString *error);

signals:
    void openRequested(const tarn::history::HistoryRecord &record);
    // One run to draw on its plan, or two to draw on each other.
    void plotRequested(const QList<tarn::history::HistoryRecord> &runs);

private:
    QList<history::HistoryRecord> selectedRecords(bool full);
    void updateButtons();
    void chooseExport();

    history::History *m_history;
    sim::InstrumentDescription m_description;
    HistoryModel *m_model;
    QLineEdit *m_instrument;
    QSpinBox *m_channel;
    QComboBox *m_outcome;
    QDateEdit *m_since;
    QLineEdit *m_text;
    QTableView *m_table;
    QPushButton *m_open;
    QPushButton *m_plot;
    QPushButton *m_export;
    QLabel *m_note;
};

} // namespace tarn::host
