// The History panel in the window: its dock, and the window's uploads and runs recorded.
#pragma once

#include <historyrecord.h>
#include <instrumentdescription.h>

#include <QDockWidget>

#include <memory>

namespace tarn::history {
class History;
class HistoryRecorder;
} // namespace tarn::history

namespace tarn::host {

class HistoryPanel;
class MainWindow;

// HistoryDock opens the history a location names (a file, or a shared server with its local
// queue), records what the window's sessions do through the same recorder the command line uses,
// and carries out what the History panel asks: a recorded sequence into the editor as one change
// to undo, recorded runs into the run view's plot. What goes wrong is told in the status bar and
// never stops the bench's work.
class HistoryDock final : public QDockWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(HistoryDock)

public:
    HistoryDock(MainWindow *window,
                const sim::InstrumentDescription &description,
                const QString &location);
    ~HistoryDock() override;

    // False when nothing is recorded: the location is wrong or its file cannot be used.
    bool isRecording() const { return m_recorder != nullptr; }
    history::History *history() const { return m_history.get(); }
    HistoryPanel *panel() const { return m_panel; }

    void open(const history::HistoryRecord &record);
    void plot(const QList<history::HistoryRecord> &runs);

    // How often records waiting for a shared server are offered to it again.
    static constexpr int retryMs = 30000;

private:
    void tell(const QString &message);

    MainWindow *m_window;
    std::unique_ptr<history::History> m_history;
    history::HistoryRecorder *m_recorder = nullptr;
    HistoryPanel *m_panel = nullptr;
};

} // namespace tarn::host
