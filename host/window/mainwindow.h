// The bench host's window: the programmer dialog with a connection bar, menus and the traffic
// panel.
#pragma once

#include "benchcontroller.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QCloseEvent;
class QComboBox;
class QDockWidget;
class QLabel;
class QMenu;
class QPushButton;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class HistoryDock;
class Prompter;
class SequenceEditor;
class SequenceFiles;
class RunView;
class TrafficPanel;

class MainWindow final : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(MainWindow)

public:
    MainWindow(const sim::InstrumentDescription &description,
               const CommandSet &commands,
               QWidget *parent = nullptr);
    ~MainWindow() override;

    tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog() const { return m_dialog; }
    BenchController *controller() const { return m_controller; }
    TrafficPanel *trafficPanel() const { return m_traffic; }
    RunView *runView() const { return m_runView; }
    void showRunView();
    // Whether a verified upload brings the run view forward; a setting the user can turn off.
    bool runViewFollowsUpload() const;
    // Upload, Run and Stop as the Instrument menu offers them.
    QAction *uploadAction() const { return m_uploadAction; }
    QAction *runAction() const { return m_runAction; }
    QAction *stopAction() const { return m_stopAction; }

    void connectTo(const QString &address);
    // Why the window cannot be drawn at `size` (smaller than it can be laid out); empty if it can.
    QString sizeRefusal(QSize size) const;

    SequenceFiles *sequenceFiles() const { return m_files; }
    SequenceEditor *sequenceEditor() const { return m_editor; }
    // Who asks the user; tests put their own in. The window keeps using it until replaced.
    void setPrompter(Prompter *prompter);
    // A file named on the command line, opened in its tab through the guarded load.
    bool openSequenceFile(const QString &path);
    // Records the window's uploads and runs into the history `location` names (empty: the
    // setting, or the user's history file) and shows the History panel.
    void openHistory(const QString &location);
    HistoryDock *historyDock() const { return m_historyDock; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void createConnectionBar();
    void createMenus();
    void createInstrumentMenu();
    void arrangeDocks();
    void fitSequenceTables();
    void collapseSequencePlots(bool collapse);
    void updateTitle();
    void updateInstrumentActions();
    void createStatusBar(const sim::InstrumentDescription &description);
    void showState(BenchController::State state, const QString &message);
    void rememberAddress(const QString &address);
    void showAbout();

    tarn2::specific::orvo5000::programmer::DialogProgrammer *m_dialog;
    BenchController *m_controller;
    TrafficPanel *m_traffic;
    QDockWidget *m_trafficDock;
    RunView *m_runView;
    QDockWidget *m_runDock;
    QComboBox *m_address;
    QPushButton *m_connect;
    QPushButton *m_disconnect;
    QLabel *m_state;
    QLabel *m_progress;
    QPushButton *m_cancel;
    QAction *m_connectAction = nullptr;
    QAction *m_disconnectAction = nullptr;
    QAction *m_uploadAction = nullptr;
    QAction *m_runAction = nullptr;
    QAction *m_stopAction = nullptr;
    QAction *m_followUpload = nullptr;
    std::unique_ptr<Prompter> m_ownPrompter;
    SequenceFiles *m_files = nullptr;
    SequenceEditor *m_editor = nullptr;
    QMenu *m_viewMenu = nullptr;
    HistoryDock *m_historyDock = nullptr;
};

} // namespace tarn::host
