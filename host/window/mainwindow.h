// The bench host's window: the programmer dialog with a connection bar, menus and the traffic
// panel.
#pragma once

#include "benchcontroller.h"

#include <QMainWindow>

class QComboBox;
class QDockWidget;
class QLabel;
class QPushButton;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

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

    void connectTo(const QString &address);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createConnectionBar();
    void createMenus();
    void createStatusBar();
    void showState(BenchController::State state, const QString &message);
    void rememberAddress(const QString &address);
    void triggerDialogAction(const char *name);
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
    QLabel *m_identity;
    QLabel *m_progress;
    QPushButton *m_cancel;
};

} // namespace tarn::host
