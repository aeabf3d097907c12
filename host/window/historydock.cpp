// Opening the history, recording the window's sessions, and the panel's requests carried out.
#include "historydock.h"

#include "historypanel.h"
#include "mainwindow.h"
#include "runview.h"
#include "sequenceeditor.h"
#include "sequencefiles.h"
#include "sequencehistory.h"
#include "traceoverlay.h"

#include <history.h>
#include <historyrecorder.h>

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

namespace tarn::host {

using history::HistoryRecord;

HistoryDock::HistoryDock(MainWindow *window,
                         const sim::InstrumentDescription &description,
                         const QString &location)
    : QDockWidget(tr("History"), window)
    , m_window(window)
{
    setObjectName(QStringLiteral("historyDock"));
    QString error;
    const std::optional<history::HistoryLocation> where
        = history::HistoryLocation::parse(location, &error);
    if (where) {
        m_history = std::make_unique<history::History>(*where);
        if (!m_history->open())
            error = m_history->error();
    }
    if (!where || !error.isEmpty()) {
        m_history.reset();
        auto *label = new QLabel(tr("Nothing is recorded: %1").arg(error), this);
        label->setWordWrap(true);
        setWidget(label);
        tell(label->text());
        return;
    }
    for (const QString &notice : m_history->takeNotices())
        tell(notice);

    BenchController *controller = window->controller();
    m_recorder = new history::HistoryRecorder(m_history.get(), description, this);
    m_recorder->watch(
        controller->connection(), controller->uploadSession(), controller->runSession());
    m_panel = new HistoryPanel(m_history.get(), description, this);
    setWidget(m_panel);
    connect(m_recorder, &history::HistoryRecorder::problem, this, &HistoryDock::tell);
    connect(m_recorder, &history::HistoryRecorder::recorded, m_panel, &HistoryPanel::refresh);
    connect(m_panel, &HistoryPanel::openRequested, this, &HistoryDock::open);
    connect(m_panel, &HistoryPanel::plotRequested, this, &HistoryDock::plot);
    if (where->server) {
        auto *retry = new QTimer(this);
        connect(retry, &QTimer::timeout, this, [this] {
            m_history->forward();
            for (const QString &notice : m_history->takeNotices())
                tell(notice);
        });
        retry->start(retryMs);
    }
}

HistoryDock::~HistoryDock()
{
    // The recorder goes before the history it writes to.
    delete m_recorder;
}

void HistoryDock::tell(const QString &message)
{
    m_window->statusBar()->showMessage(message);
}

void HistoryDock::open(const HistoryRecord &record)
{
    m_window->sequenceFiles()->replace(record.sequence);
    // Recorded now, so that one Undo puts back what the tab held.
    m_window->sequenceEditor()->history(record.sequence.mode)->flush();
    tell(tr("The sequence of %1 is in the %2 tab; Undo puts back what was there")
             .arg(record.name(),
                  record.sequence.mode == tarn2::specific::orvo5000::programmer::List
                      ? tr("List")
                      : tr("Delayer")));
}

void HistoryDock::plot(const QList<HistoryRecord> &runs)
{
    if (m_window->controller()->runSession()->isRunning()) {
        tell(tr("A run is going on; plot recorded runs once it has ended"));
        return;
    }
    TraceOverlay::draw(m_window->runView()->plot(), runs);
    m_window->showRunView();
}

} // namespace tarn::host
