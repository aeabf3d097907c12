// Undo and redo, the shortcuts for the tab shown, and the Edit menu over the parts that edit.
#include "sequenceeditor.h"

#include "closeguard.h"
#include "sequenceclipboard.h"
#include "sequencefiles.h"
#include "sequencehints.h"
#include "sequencehistory.h"

#include <dialogprogrammer.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QUndoStack>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

SequenceEditor::SequenceEditor(QMainWindow *window, DialogProgrammer *dialog, SequenceFiles *files)
    : QObject(window)
    , m_window(window)
    , m_dialog(dialog)
    , m_files(files)
    , m_list(new SequenceHistory(UploadMode::List, dialog, files))
    , m_delayer(new SequenceHistory(UploadMode::Delayer, dialog, files))
    , m_clipboard(new SequenceClipboard(dialog, files, m_list, m_delayer, this))
    , m_hints(new SequenceHints(dialog, files, this))
    , m_closeGuard(new CloseGuard(window, dialog, files, m_list, m_delayer))
{
    createActions();
    addEditMenu();
    for (SequenceHistory *history : {m_list, m_delayer}) {
        connect(history, &SequenceHistory::changed, this, [this, history] {
            m_hints->refresh(history->mode());
            updateActions();
        });
        connect(history->stack(), &QUndoStack::indexChanged, this, &SequenceEditor::updateActions);
    }
    if (auto *tabs = qobject_cast<QTabWidget *>(
            dialog->control(UploadMode::List, DialogProgrammer::Control::Tabs))) {
        connect(tabs, &QTabWidget::currentChanged, this, &SequenceEditor::updateActions);
    }
    // A dialog that is rejected anyway (Escape reaching it by a path the window does not see)
    // comes straight back instead of leaving an empty window.
    connect(dialog, &QDialog::finished, dialog, &QWidget::show);
    updateActions();
    window->setMinimumSize(window->minimumSizeHint());
}

SequenceEditor::~SequenceEditor() = default;

void SequenceEditor::setPrompter(Prompter *prompter)
{
    m_closeGuard->setPrompter(prompter);
    m_list->setPrompter(prompter);
    m_delayer->setPrompter(prompter);
}

SequenceHistory *SequenceEditor::history(UploadMode mode) const
{
    return mode == UploadMode::List ? m_list : m_delayer;
}

UploadMode SequenceEditor::shownMode() const
{
    return m_dialog->currentMode();
}

bool SequenceEditor::editable() const
{
    // While an upload runs the dialog is locked, and so is its sequence.
    return m_dialog && m_dialog->isEnabled();
}

void SequenceEditor::createActions()
{
    m_undo = new QAction(tr("&Undo"), this);
    m_undo->setObjectName(QStringLiteral("undoSequence"));
    m_undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    connect(m_undo, &QAction::triggered, this, [this] {
        if (editable()) {
            history(shownMode())->flush();
            history(shownMode())->stack()->undo();
        }
    });
    m_redo = new QAction(tr("&Redo"), this);
    m_redo->setObjectName(QStringLiteral("redoSequence"));
    m_redo->setShortcuts(
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    connect(m_redo, &QAction::triggered, this, [this] {
        if (editable()) {
            history(shownMode())->flush();
            history(shownMode())->stack()->redo();
        }
    });
    m_save = new QAction(tr("&Save Sequence..."), this);
    m_save->setObjectName(QStringLiteral("saveShownSequence"));
    m_save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    m_save->setToolTip(tr("Save the sequence of the tab shown to a CSV file"));
    connect(m_save, &QAction::triggered, this, [this] {
        if (editable())
            m_files->save(shownMode());
    });
    m_open = new QAction(tr("&Open Sequence..."), this);
    m_open->setObjectName(QStringLiteral("openShownSequence"));
    m_open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    m_open->setToolTip(tr("Load a CSV file into the tab shown"));
    connect(m_open, &QAction::triggered, this, [this] {
        if (editable())
            m_files->load(shownMode());
    });
    for (QAction *action : {m_undo, m_redo, m_save, m_open})
        m_window->addAction(action);
}

void SequenceEditor::addEditMenu()
{
    QMenuBar *bar = m_window->menuBar();
    const QList<QAction *> menus = bar->actions();
    if (!menus.isEmpty()) {
        if (QMenu *file = menus.first()->menu()) {
            QAction *first = file->actions().value(0);
            file->insertAction(first, m_open);
            file->insertAction(first, m_save);
            file->insertSeparator(first);
        }
    }
    auto *edit = new QMenu(tr("&Edit"), m_window);
    edit->setObjectName(QStringLiteral("editMenu"));
    edit->addAction(m_undo);
    edit->addAction(m_redo);
    edit->addSeparator();
    edit->addAction(m_clipboard->copyAction());
    edit->addAction(m_clipboard->pasteAction());
    edit->addAction(m_clipboard->deleteAction());
    bar->insertMenu(menus.value(1), edit);
}

void SequenceEditor::updateActions()
{
    QUndoStack *stack = history(shownMode())->stack();
    m_undo->setEnabled(stack->canUndo());
    m_redo->setEnabled(stack->canRedo());
    m_undo->setText(stack->canUndo() ? tr("&Undo %1").arg(stack->undoText()) : tr("&Undo"));
    m_redo->setText(stack->canRedo() ? tr("&Redo %1").arg(stack->redoText()) : tr("&Redo"));
}

QAction *SequenceEditor::deleteAction() const
{
    return m_clipboard->deleteAction();
}

QAction *SequenceEditor::copyAction() const
{
    return m_clipboard->copyAction();
}

QAction *SequenceEditor::pasteAction() const
{
    return m_clipboard->pasteAction();
}

void SequenceEditor::restoreSession()
{
    m_closeGuard->restoreSession();
}

bool SequenceEditor::confirmClose()
{
    return m_closeGuard->confirmClose();
}

void SequenceEditor::deleteSelectedRows()
{
    m_clipboard->deleteSelectedRows();
}

void SequenceEditor::copyRows()
{
    m_clipboard->copyRows();
}

void SequenceEditor::pasteRows()
{
    m_clipboard->pasteRows();
}

QString SequenceEditor::durationText(UploadMode mode) const
{
    return m_hints->durationText(mode);
}

} // namespace tarn::host
