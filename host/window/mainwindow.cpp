// The bench host's window and its controls.
#include "mainwindow.h"
#include "historydock.h"

#include "drawingthrottle.h"
#include "instrumentoption.h"
#include "instrumentstatusview.h"
#include "runview.h"
#include "sequenceeditor.h"
#include "sequencefiles.h"
#include "sequencehistory.h"
#include "tabmessages.h"
#include "trafficpanel.h"
#include "widgetprompter.h"

#include <dialogprogrammer.h>
#include <linkfactory.h>
#include <qcustomplot.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QToolBar>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
const QString recentKey = QStringLiteral("Connection/Recent");
const QString stateKey = QStringLiteral("Window/State");
const QString geometryKey = QStringLiteral("Window/Geometry");
const QString followKey = QStringLiteral("Window/RunViewFollowsUpload");
constexpr int recentCount = 10;
// Rows of each sequence table in sight however short the window, with the run view open.
constexpr int rowsInSight = 10;
// The plots above the tables shrink to this before the dialog scrolls.
constexpr int plotHeightInSight = 40;
constexpr int stateWidth = 240;
// The run view's height when the window has it to give.
constexpr int runViewHeight = 260;
// A sequence plot lower than this is collapsed rather than shown.
constexpr int legiblePlot = 80;
// Below this the run view has no room for its plot.
constexpr int smallestRunView = 150;
constexpr UploadMode modes[] = {UploadMode::List, UploadMode::Delayer};
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
    fitSequenceTables();
    // The dialog's splitters would let its editors and tables be squeezed to slivers when the run
    // view takes much of a short screen; below the height it needs, it scrolls instead. Its width
    // stays whole, as the window's minimum width keeps it.
    auto *scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("dialogScrollArea"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(m_dialog);
    scroll->setMinimumWidth(m_dialog->minimumSizeHint().width()
                            + scroll->verticalScrollBar()->sizeHint().width());
    setCentralWidget(scroll);
    m_files = new SequenceFiles(m_dialog, description);

    arrangeDocks();
    connect(m_controller, &BenchController::traffic, m_traffic, &TrafficPanel::append);
    // A verified upload is what the run view offers; it comes forward with it, unless the user
    // chose otherwise.
    connect(
        m_controller, &BenchController::uploadEnded, this, [this](const UploadOutcome &outcome) {
            if (outcome.verified && runViewFollowsUpload())
                showRunView();
        });

    createConnectionBar();
    createMenus();
    createStatusBar(description);
    connect(m_controller, &BenchController::stateChanged, this, &MainWindow::showState);
    showState(BenchController::State::Disconnected, tr("Not connected"));

    m_editor = new SequenceEditor(this, m_dialog, m_files);
    new TabMessages(m_dialog);
    createInstrumentMenu();
    for (UploadMode mode : modes)
        connect(m_editor->history(mode), &SequenceHistory::changed, this, &MainWindow::updateTitle);
    connect(m_files, &SequenceFiles::loaded, this, &MainWindow::updateTitle);
    connect(m_files, &SequenceFiles::saved, this, &MainWindow::updateTitle);
    connect(qobject_cast<QTabWidget *>(
                m_dialog->control(UploadMode::List, DialogProgrammer::Control::Tabs)),
            &QTabWidget::currentChanged,
            this,
            &MainWindow::updateTitle);
    m_ownPrompter = std::make_unique<WidgetPrompter>();
    setPrompter(m_ownPrompter.get());
    m_editor->restoreSession();
    // Only now, with the hints' labels in place, is the height the dialog needs known.
    m_dialog->setMinimumHeight(m_dialog->minimumSizeHint().height());
    updateTitle();
}

// Rows a little tighter than the style's, so that ten of them and every button of the tab fit
// beside the run view at 1280×800; the plots above the tables give way first.
void MainWindow::fitSequenceTables()
{
    const int rowHeight = fontMetrics().height() + 2;
    for (UploadMode mode : modes) {
        for (auto control :
             {DialogProgrammer::Control::Steps, DialogProgrammer::Control::TemplateSteps}) {
            auto *view = qobject_cast<QTableView *>(m_dialog->control(mode, control));
            view->verticalHeader()->setMinimumSectionSize(rowHeight);
            view->verticalHeader()->setDefaultSectionSize(rowHeight);
        }
        QTableView *steps = m_dialog->sequenceView(mode);
        steps->setMinimumHeight(steps->horizontalHeader()->sizeHint().height()
                                + rowsInSight * rowHeight + 2 * steps->frameWidth());
        for (auto control : {DialogProgrammer::Control::SequenceSplitter,
                             DialogProgrammer::Control::TemplateSplitter}) {
            auto *splitter = qobject_cast<QSplitter *>(m_dialog->control(mode, control));
            const bool sequence = control == DialogProgrammer::Control::SequenceSplitter;
            // The sequence's own plot is what the run view shows larger; it gives way entirely.
            // (A minimum of 0 would mean "none", and the plot's own hint would hold.)
            splitter->widget(0)->setMinimumHeight(sequence ? 1 : plotHeightInSight);
            splitter->setStretchFactor(0, 1);
            splitter->setStretchFactor(1, sequence ? 2 : 1);
            splitter->setCollapsible(1, false);
            // Where there is room, the plot starts at a readable height; only the run view's
            // need squeezes it.
            splitter->setSizes({legiblePlot * 2, steps->minimumHeight()});
        }
    }
}

void MainWindow::collapseSequencePlots(bool collapse)
{
    for (UploadMode mode : modes) {
        auto *splitter = qobject_cast<QSplitter *>(
            m_dialog->control(mode, DialogProgrammer::Control::SequenceSplitter));
        const int total = splitter->sizes().value(0) + splitter->sizes().value(1);
        if (collapse)
            splitter->setSizes({0, total});
        else if (splitter->sizes().value(0) == 0)
            splitter->setSizes({total / 3, total - total / 3});
    }
}

// The run view and the traffic panel share the space below the dialog as tabs of one dock area;
// where the user moves, sizes or closes them is remembered between sessions.
void MainWindow::arrangeDocks()
{
    m_trafficDock->setObjectName(QStringLiteral("trafficDock"));
    m_trafficDock->setWidget(m_traffic);
    m_runDock->setObjectName(QStringLiteral("runDock"));
    m_runDock->setWidget(m_runView);
    addDockWidget(Qt::BottomDockWidgetArea, m_runDock);
    tabifyDockWidget(m_runDock, m_trafficDock);
    m_runDock->hide();
    m_trafficDock->hide();
    // The sequence's plot, collapsed for the run view on a short screen, comes back with the room.
    connect(m_runDock, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (!visible && m_runDock->isHidden())
            collapseSequencePlots(false);
    });
    const QSettings settings;
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QMainWindow::closeEvent(event);
    if (!event->isAccepted())
        return;
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState());
}

QString MainWindow::sizeRefusal(QSize size) const
{
    const QSize smallest = minimumSizeHint().expandedTo(minimumSize());
    if (size.width() >= smallest.width() && size.height() >= smallest.height())
        return {};
    return QStringLiteral("--size %1x%2: the window needs at least %3x%4")
        .arg(size.width())
        .arg(size.height())
        .arg(smallest.width())
        .arg(smallest.height());
}

bool MainWindow::runViewFollowsUpload() const
{
    return m_followUpload->isChecked();
}

void MainWindow::updateTitle()
{
    if (!m_editor)
        return;
    const UploadMode mode = m_dialog->currentMode();
    const QString path = m_files->filePath(mode);
    const QString name
        = path.isEmpty() ? (mode == UploadMode::List ? tr("Untitled List") : tr("Untitled Delayer"))
                         : QFileInfo(path).fileName();
    setWindowTitle(tr("%1[*] — Bench Sequence Programmer").arg(name));
    setWindowModified(m_editor->history(mode)->isModified());
}

MainWindow::~MainWindow()
{
    // The docks and tabs go on signalling while QWidget's destructor deletes them, when this is no
    // longer a MainWindow; nothing of theirs may reach its handlers then.
    for (QObject *child : findChildren<QObject *>())
        child->disconnect(this);
}

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
    // In the menu bar's row: a line of its own would cost the tables two rows.
    auto *bar = new QToolBar(tr("Connection"), this);
    bar->setObjectName(QStringLiteral("connectionBar"));
    bar->setMovable(false);
    menuBar()->setCornerWidget(bar, Qt::TopRightCorner);
    bar->addWidget(new QLabel(tr("Instrument:"), bar));
    m_address = new QComboBox(bar);
    m_address->setObjectName(QStringLiteral("address"));
    m_address->setEditable(true);
    m_address->setMinimumContentsLength(18);
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
    // Of a fixed width: the menu bar sizes its corner once, not as the text changes.
    m_state->setFixedWidth(stateWidth);
    bar->addWidget(m_state);

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

    m_viewMenu = menuBar()->addMenu(tr("&View"));
    QAction *traffic = m_trafficDock->toggleViewAction();
    traffic->setText(tr("Command &Traffic"));
    m_viewMenu->addAction(traffic);
    QAction *run = m_runDock->toggleViewAction();
    run->setText(tr("&Run View"));
    m_viewMenu->addAction(run);
    m_viewMenu->addSeparator();
    m_followUpload = m_viewMenu->addAction(tr("Show the Run View After Each &Verified Upload"));
    m_followUpload->setCheckable(true);
    m_followUpload->setChecked(QSettings().value(followKey, true).toBool());
    connect(m_followUpload, &QAction::toggled, this, [](bool on) {
        QSettings().setValue(followKey, on);
    });
    m_viewMenu->addSeparator();

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &MainWindow::showAbout);
}

// The instrument's commands have keys that the dialog and the Edit menu leave free; Stop is one
// key, F6 or Escape, for the moment an output must go off now.
void MainWindow::createInstrumentMenu()
{
    QMenu *menu = new QMenu(tr("&Instrument"), this);
    menuBar()->insertMenu(menuBar()->actions().constLast(), menu);
    m_connectAction
        = menu->addAction(tr("&Connect"), this, [this] { connectTo(m_address->currentText()); });
    m_connectAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    m_connectAction->setToolTip(tr("Connect to the instrument at the address in the bar"));
    m_disconnectAction = menu->addAction(
        tr("&Disconnect"), m_controller, &BenchController::disconnectFromInstrument);
    m_disconnectAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));
    menu->addSeparator();
    m_uploadAction = menu->addAction(tr("&Upload the Tab's Sequence"), this, [this] {
        m_dialog->uploaderStart(m_dialog->currentMode());
    });
    m_uploadAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_U));
    m_runAction = menu->addAction(tr("&Run"), this, [this] {
        showRunView();
        m_runView->runSelected();
    });
    m_runAction->setShortcut(QKeySequence(Qt::Key_F5));
    m_stopAction = menu->addAction(tr("&Stop"), m_runView, &RunView::stop);
    m_stopAction->setShortcuts({QKeySequence(Qt::Key_F6), QKeySequence(Qt::Key_Escape)});
    connect(m_runView, &RunView::runnableChanged, this, &MainWindow::updateInstrumentActions);
    connect(
        m_controller, &BenchController::uploadRunning, this, &MainWindow::updateInstrumentActions);
    updateInstrumentActions();
}

void MainWindow::updateInstrumentActions()
{
    if (!m_uploadAction)
        return;
    const BenchController::State state = m_controller->state();
    m_connectAction->setEnabled(state == BenchController::State::Disconnected);
    m_disconnectAction->setEnabled(state != BenchController::State::Disconnected);
    m_uploadAction->setEnabled(state == BenchController::State::Connected
                               && !m_controller->isUploading());
    m_runAction->setEnabled(m_runView->canRun());
    m_stopAction->setEnabled(m_controller->runSession()->isRunning());
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
            // The dialog selects each step's row as it hands it out; following it with the
            // table would ask the window system where the mouse is at every step. The outcome's
            // row is scrolled to when the upload ends.
            for (UploadMode mode : modes)
                m_dialog->sequenceView(mode)->setAutoScroll(!running);
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
}

void MainWindow::openHistory(const QString &location)
{
    delete m_historyDock;
    m_historyDock = new HistoryDock(this, m_files->description(), location);
    addDockWidget(Qt::BottomDockWidgetArea, m_historyDock);
    // A tab beside the run view and the traffic panel, so the tables keep their rows.
    tabifyDockWidget(m_runDock, m_historyDock);
    m_historyDock->hide();
    QAction *toggle = m_historyDock->toggleViewAction();
    toggle->setText(tr("&History"));
    m_viewMenu->addAction(toggle);
}

void MainWindow::showRunView()
{
    if (m_runDock->isHidden() && !m_runDock->isFloating()) {
        // It opens with a useful plot's height where the dialog can give that, and with its
        // controls alone where it cannot; either way the dialog keeps the height it needs, so the
        // table's rows and every button of the tab stay in sight.
        m_dialog->setMinimumHeight(m_dialog->minimumSizeHint().height());
        const int room = height() - menuBar()->height() - statusBar()->height()
                         - 2 * style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent)
                         - m_dialog->minimumHeight();
        m_runDock->show();
        resizeDocks(
            {m_runDock}, {room < smallestRunView ? 1 : qMin(room, runViewHeight)}, Qt::Vertical);
        // A sequence plot squeezed to a sliver says nothing; the table takes its place.
        QTimer::singleShot(0, this, [this] {
            auto *shown = qobject_cast<QSplitter *>(m_dialog->control(
                m_dialog->currentMode(), DialogProgrammer::Control::SequenceSplitter));
            if (shown->sizes().value(0) < legiblePlot)
                collapseSequencePlots(true);
        });
    }
    m_runDock->show();
    m_runDock->raise();
}

void MainWindow::connectTo(const QString &address)
{
    m_controller->connectTo(address);
}

// The connection bar is the one place that tells the connection: to whom, or why not.
void MainWindow::showState(BenchController::State state, const QString &message)
{
    const bool connected = state == BenchController::State::Connected;
    if (state == BenchController::State::Connected)
        rememberAddress(m_controller->address());
    const QString text = connected ? tr("Connected to %1").arg(m_controller->identity()) : message;
    // The bar shares its row with the menus; the whole text is in the tool tip.
    m_state->setText(m_state->fontMetrics().elidedText(text, Qt::ElideRight, stateWidth));
    m_state->setToolTip(text);
    m_connect->setEnabled(state == BenchController::State::Disconnected);
    m_disconnect->setEnabled(state != BenchController::State::Disconnected);
    m_runView->setInstrument(connected ? m_controller->identity() : QString());
    updateInstrumentActions();
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
    QMessageBox::about(
        this,
        tr("About the Bench Sequence Programmer"),
        tr("<p><b>Bench Sequence Programmer %1</b></p>"
           "<p>Programs the List and Delayer sequences of multi-channel bench supplies, uploads "
           "them with read-back verification and keeps them in CSV files.</p>"
           "<p>Built with Qt %2 (running on Qt %3) and QCustomPlot %4.</p><p>Instrument: %5</p>")
            .arg(QCoreApplication::applicationVersion(),
                 QStringLiteral(QT_VERSION_STR),
                 QString::fromLatin1(qVersion()),
                 QStringLiteral(QCUSTOMPLOT_VERSION_STR),
                 m_controller->identity().isEmpty() ? tr("not connected")
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
