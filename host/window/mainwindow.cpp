// The bench host's window and its controls.
#include "mainwindow.h"

#include "drawingthrottle.h"
#include "instrumentoption.h"
#include "instrumentstatusview.h"
#include "runview.h"
#include "sequenceeditor.h"
#include "sequencefiles.h"
#include "trafficpanel.h"
#include "widgetprompter.h"

#include <dialogprogrammer.h>
#include <linkfactory.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
const QString recentKey = QStringLiteral("Connection/Recent");
constexpr int recentCount = 10;
} // namespace

MainWindow::MainWindow(const sim::InstrumentDescription &description,
                       const CommandSet &commands,
                       QWidget *parent)
    : QMainWindow(parent)
    , m_dialog(new DialogProgrammer(optionFor(description), this))
    , m_controller(new BenchController(m_dialog, description, commands, this))
    , m_traffic(new TrafficPanel(this))
    , m_trafficDock(new QDockWidget(tr("Command Traffic"), this))
    , m_runView(new RunView(m_controller->runSession(),
                            description.timeDecimals,
                            description.voltageDecimals,
                            description.currentDecimals,
                            this))
    , m_runDock(new QDockWidget(tr("Run"), this))
{
    setWindowTitle(tr("Bench Sequence Programmer"));
    // The dialog lives inside the window, not beside it.
    m_dialog->setWindowFlags(Qt::Widget);
    m_dialog->installEventFilter(this);
    // The dialog's splitters would let its editors and tables be squeezed to slivers when the run
    // view takes the lower half of a short screen; below the height it needs, it scrolls instead.
    // Its width stays whole, as the window's minimum width keeps it.
    auto *scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("dialogScrollArea"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_dialog->setMinimumHeight(m_dialog->sizeHint().height());
    scroll->setWidget(m_dialog);
    scroll->setMinimumWidth(m_dialog->minimumSizeHint().width()
                            + scroll->verticalScrollBar()->sizeHint().width());
    setCentralWidget(scroll);
    m_files = new SequenceFiles(m_dialog, description);

    m_trafficDock->setObjectName(QStringLiteral("trafficDock"));
    m_trafficDock->setWidget(m_traffic);
    addDockWidget(Qt::BottomDockWidgetArea, m_trafficDock);
    m_trafficDock->hide();
    connect(m_controller, &BenchController::traffic, m_traffic, &TrafficPanel::append);

    m_runDock->setObjectName(QStringLiteral("runDock"));
    m_runDock->setWidget(m_runView);
    addDockWidget(Qt::BottomDockWidgetArea, m_runDock);
    m_runDock->hide();
    // A verified upload is what the run view offers; it comes forward with the first one.
    connect(
        m_controller, &BenchController::uploadEnded, this, [this](const UploadOutcome &outcome) {
            m_runView->refreshSequences();
            if (outcome.verified)
                showRunView();
        });

    createConnectionBar();
    createMenus();
    createStatusBar(description);
    connect(m_controller, &BenchController::stateChanged, this, &MainWindow::showState);
    showState(BenchController::State::Disconnected, tr("Not connected"));

    m_editor = new SequenceEditor(this, m_dialog, m_files);
    m_ownPrompter = std::make_unique<WidgetPrompter>();
    setPrompter(m_ownPrompter.get());
    m_editor->restoreSession();
}

MainWindow::~MainWindow() = default;

void MainWindow::setPrompter(Prompter *prompter)
{
    m_files->setPrompter(prompter);
    m_editor->setPrompter(prompter);
    m_controller->setPrompter(prompter);
}

bool MainWindow::openSequenceFile(const QString &path)
{
    return m_files->openFile(path);
}

void MainWindow::createConnectionBar()
{
    auto *bar = addToolBar(tr("Connection"));
    bar->setObjectName(QStringLiteral("connectionBar"));
    bar->setMovable(false);
    bar->addWidget(new QLabel(tr("Instrument:"), bar));
    m_address = new QComboBox(bar);
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setEditable(true);
    m_address->setMinimumContentsLength(28);
    m_address->setToolTip(tr("tcp://HOST[:PORT] or TCPIP0::HOST::PORT::SOCKET for a LAN "
                             "instrument's raw socket, vxi11://HOST[:PORT][/DEVICE] or "
                             "TCPIP0::HOST[::DEVICE]::INSTR for a VXI-11 one, "
                             "serial:DEVICE[?baud=N] or ASRL/DEVICE::INSTR for a serial "
                             "one, usbtmc:DEVICE or USB0::VENDOR::PRODUCT::SERIAL::INSTR for a USB "
                             "one, sim: for the simulated supply"));
    m_address->addItems(QSettings().value(recentKey).toStringList());
    // The instruments attached now, after the ones used lately.
    for (const QString &address :
         QStringList{QStringLiteral("sim:")} + attachedInstrumentAddresses())
        if (m_address->findText(address) < 0)
            m_address->addItem(address);
    bar->addWidget(m_address);
    m_connect = new QPushButton(tr("Connect"), bar);
    m_connect->setObjectName(QStringLiteral("connectButton"));
    m_disconnect = new QPushButton(tr("Disconnect"), bar);
    m_disconnect->setObjectName(QStringLiteral("disconnectButton"));
    bar->addWidget(m_connect);
    bar->addWidget(m_disconnect);
    bar->addSeparator();
    m_state = new QLabel(bar);
    m_state->setObjectName(QStringLiteral("connectionState"));
    bar->addWidget(m_state);
    bar->addSeparator();
    m_identity = new QLabel(bar);
    m_identity->setObjectName(QStringLiteral("identity"));
    m_identity->setTextInteractionFlags(Qt::TextSelectableByMouse);
    bar->addWidget(m_identity);

    connect(
        m_connect, &QPushButton::clicked, this, [this] { connectTo(m_address->currentText()); });
    connect(m_address->lineEdit(), &QLineEdit::returnPressed, this, [this] {
        connectTo(m_address->currentText());
    });
    connect(m_disconnect,
            &QPushButton::clicked,
            m_controller,
            &BenchController::disconnectFromInstrument);
}

void MainWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Save List..."), this, [this] { m_files->save(UploadMode::List); });
    file->addAction(tr("Load List..."), this, [this] { m_files->load(UploadMode::List); });
    file->addAction(tr("Save Delayer..."), this, [this] { m_files->save(UploadMode::Delayer); });
    file->addAction(tr("Load Delayer..."), this, [this] { m_files->load(UploadMode::Delayer); });
    file->addSeparator();
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu *view = menuBar()->addMenu(tr("&View"));
    QAction *traffic = m_trafficDock->toggleViewAction();
    traffic->setText(tr("Command &Traffic"));
    view->addAction(traffic);
    QAction *run = m_runDock->toggleViewAction();
    run->setText(tr("&Run View"));
    view->addAction(run);

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &MainWindow::showAbout);
}

void MainWindow::createStatusBar(const sim::InstrumentDescription &description)
{
    QStringList channelNames;
    for (const sim::ChannelDescription &channel : description.channels)
        channelNames << channel.name;
    auto *status = new InstrumentStatusView(m_controller->statusMonitor(), channelNames, this);
    status->setObjectName(QStringLiteral("instrumentStatusView"));
    statusBar()->addPermanentWidget(status);
    m_progress = new QLabel(this);
    m_progress->setObjectName(QStringLiteral("uploadProgress"));
    m_cancel = new QPushButton(tr("Cancel Upload"), this);
    m_cancel->setObjectName(QStringLiteral("cancelUpload"));
    m_cancel->setToolTip(tr("End the upload now; the instrument keeps the steps it has taken"));
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_cancel);
    m_progress->hide();
    m_cancel->hide();
    connect(m_cancel, &QPushButton::clicked, m_controller, &BenchController::cancelUpload);
    auto *dialogDrawing = new DrawingThrottle(m_dialog, 100, this);
    connect(
        m_controller, &BenchController::uploadRunning, this, [this, dialogDrawing](bool running) {
            dialogDrawing->setActive(running);
            m_cancel->setVisible(running);
            m_progress->setVisible(running);
            m_progress->clear();
        });
    connect(m_controller,
            &BenchController::uploadProgress,
            this,
            [this](int confirmed, int total, qint64 msecLeft) {
                m_progress->setText(msecLeft >= 0
                                        ? tr("%1 of %2 steps confirmed, %3 s left")
                                              .arg(confirmed)
                                              .arg(total)
                                              .arg((msecLeft + 999) / 1000)
                                        : tr("%1 of %2 steps confirmed").arg(confirmed).arg(total));
            });
    connect(m_controller,
            &BenchController::uploadEnded,
            this,
            [this](const UploadOutcome &outcome) { statusBar()->showMessage(outcome.message); });
}

void MainWindow::showRunView()
{
    m_runDock->show();
    m_runDock->raise();
}

void MainWindow::connectTo(const QString &address)
{
    m_controller->connectTo(address);
}

void MainWindow::showState(BenchController::State state, const QString &message)
{
    const bool connected = state == BenchController::State::Connected;
    switch (state) {
    case BenchController::State::Disconnected:
        m_state->setText(tr("Disconnected"));
        break;
    case BenchController::State::Connecting:
        m_state->setText(tr("Connecting..."));
        break;
    case BenchController::State::Connected:
        m_state->setText(tr("Connected"));
        rememberAddress(m_controller->address());
        break;
    }
    m_identity->setText(connected ? m_controller->identity() : QString());
    m_connect->setEnabled(state == BenchController::State::Disconnected);
    m_disconnect->setEnabled(state != BenchController::State::Disconnected);
    statusBar()->showMessage(message);
}

void MainWindow::rememberAddress(const QString &address)
{
    QSettings settings;
    QStringList recent = settings.value(recentKey).toStringList();
    recent.removeAll(address);
    recent.prepend(address);
    while (recent.size() > recentCount)
        recent.removeLast();
    settings.setValue(recentKey, recent);
    const int index = m_address->findText(address);
    if (index > 0)
        m_address->removeItem(index);
    if (m_address->findText(address) < 0)
        m_address->insertItem(0, address);
    m_address->setCurrentIndex(0);
}

void MainWindow::showAbout()
{
    QMessageBox::about(this,
                       tr("About the Bench Sequence Programmer"),
                       tr("<p><b>Bench Sequence Programmer</b></p>"
                          "<p>Programs the List and Delayer sequences of multi-channel bench "
                          "supplies, uploads them with read-back verification and keeps them in "
                          "CSV files.</p><p>Instrument: %1</p>")
                           .arg(m_controller->identity().isEmpty() ? tr("not connected")
                                                                   : m_controller->identity()));
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Escape would reject the embedded dialog and leave an empty window behind.
    if (watched == m_dialog && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        return true;
    return QMainWindow::eventFilter(watched, event);
}

} // namespace tarn::host
