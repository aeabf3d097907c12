// Undo, rows to and from the clipboard, durations, tooltips and the question before closing.
#include "sequenceeditor.h"

#include "prompter.h"
#include "sequencefiles.h"
#include "sequencehistory.h"
#include "sequencereader.h"
#include "sessionstore.h"
#include "steplimits.h"

#include <dialogprogrammer.h>
#include <helper.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QUndoStack>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

constexpr int messageMs = 8000;
const UploadMode modes[] = {UploadMode::List, UploadMode::Delayer};

QString tabName(UploadMode mode)
{
    return mode == UploadMode::List ? QObject::tr("List") : QObject::tr("Delayer");
}

} // namespace

SequenceEditor::SequenceEditor(QMainWindow *window, DialogProgrammer *dialog, SequenceFiles *files)
    : QObject(window)
    , m_window(window)
    , m_dialog(dialog)
    , m_files(files)
    , m_list(new SequenceHistory(UploadMode::List, dialog, files))
    , m_delayer(new SequenceHistory(UploadMode::Delayer, dialog, files))
{
    createActions();
    addEditMenu();
    addDurationLabels();
    addToolTips();
    for (SequenceHistory *history : {m_list, m_delayer}) {
        connect(history, &SequenceHistory::changed, this, [this, history] {
            refresh(history->mode());
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
    window->installEventFilter(this);
    refresh(UploadMode::List);
    refresh(UploadMode::Delayer);
    updateActions();
    window->setMinimumSize(window->minimumSizeHint());
}

SequenceEditor::~SequenceEditor() = default;

void SequenceEditor::setPrompter(Prompter *prompter)
{
    m_prompter = prompter;
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

QTableView *SequenceEditor::view(UploadMode mode) const
{
    return m_dialog->sequenceView(mode);
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

    // Only in the tables: elsewhere these keys belong to the editor that has the focus.
    m_delete = new QAction(tr("&Delete Rows"), this);
    m_delete->setObjectName(QStringLiteral("deleteRows"));
    m_delete->setShortcut(QKeySequence(Qt::Key_Delete));
    connect(m_delete, &QAction::triggered, this, &SequenceEditor::deleteSelectedRows);
    m_copy = new QAction(tr("&Copy Rows"), this);
    m_copy->setObjectName(QStringLiteral("copyRows"));
    m_copy->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
    connect(m_copy, &QAction::triggered, this, &SequenceEditor::copyRows);
    m_paste = new QAction(tr("&Paste Rows"), this);
    m_paste->setObjectName(QStringLiteral("pasteRows"));
    m_paste->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_V));
    connect(m_paste, &QAction::triggered, this, &SequenceEditor::pasteRows);
    for (QAction *action : {m_delete, m_copy, m_paste}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        for (UploadMode mode : modes)
            view(mode)->addAction(action);
    }
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
    edit->addAction(m_copy);
    edit->addAction(m_paste);
    edit->addAction(m_delete);
    bar->insertMenu(menus.value(1), edit);
}

void SequenceEditor::addDurationLabels()
{
    for (UploadMode mode : modes) {
        QWidget *counter = m_dialog->control(mode, DialogProgrammer::Control::StepCount);
        auto *label = new QLabel(counter->parentWidget());
        label->setObjectName(mode == UploadMode::List ? QStringLiteral("listDuration")
                                                      : QStringLiteral("delayerDuration"));
        // Under the counter, across the whole row: translated totals run longer than the
        // counter's own columns are wide. Words wrap only where even the row is too narrow.
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setToolTip(tr("How long the sequence runs on the instrument, repeats included"));
        if (auto *grid = qobject_cast<QGridLayout *>(counter->parentWidget()->layout())) {
            int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
            grid->getItemPosition(grid->indexOf(counter), &row, &column, &rowSpan, &columnSpan);
            grid->addWidget(label, row + 1, 0, 1, grid->columnCount());
        }
        (mode == UploadMode::List ? m_listDuration : m_delayerDuration) = label;
    }
}

void SequenceEditor::addToolTips()
{
    using Control = DialogProgrammer::Control;
    struct Tip
    {
        UploadMode mode;
        Control control;
        QString text;
    };
    const UploadMode list = UploadMode::List;
    const UploadMode delayer = UploadMode::Delayer;
    const Tip tips[] = {
        {list, Control::Channel, tr("The channel the List sequence is uploaded to")},
        {delayer, Control::Channel, tr("The channel the Delayer sequence is uploaded to")},
        {list,
         Control::Cycles,
         tr("How often the instrument runs the sequence; Infinite repeats it until stopped")},
        {delayer,
         Control::Cycles,
         tr("How often the instrument runs the sequence; Infinite repeats it until stopped")},
        {list, Control::EndState, tr("The output's state after the last step")},
        {delayer, Control::EndState, tr("The output's state after the last step")},
        {list,
         Control::Steps,
         tr("The List sequence: double-click a cell to edit it; right-click to add or remove "
            "steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows")},
        {delayer,
         Control::Steps,
         tr("The Delayer sequence: double-click a cell to edit it; right-click to add or remove "
            "steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows")},
        {list, Control::TemplateSteps, tr("The steps the template makes")},
        {delayer, Control::TemplateSteps, tr("The steps the template makes")},
        {list, Control::TemplateType, tr("The waveform the template makes")},
        {list, Control::TemplateObject, tr("Whether the waveform shapes voltage or current")},
        {delayer, Control::TemplateType, tr("How the step times develop")},
        {delayer, Control::TemplateObject, tr("Whether the pattern starts On or Off")},
        {list, Control::TemplateReset, tr("Put this template back to its defaults")},
        {list, Control::TemplateResetAll, tr("Put every List template back to its defaults")},
        {list, Control::TemplateAppend, tr("Add the template's steps after the last step")},
        {list, Control::TemplateInsert, tr("Add the template's steps before the selected step")},
        {delayer, Control::TemplateAppend, tr("Add the template's steps after the last step")},
        {delayer, Control::TemplateInsert, tr("Add the template's steps before the selected step")},
        {list, Control::Save, tr("Save the List sequence to a CSV file (Ctrl+S)")},
        {delayer, Control::Save, tr("Save the Delayer sequence to a CSV file (Ctrl+S)")},
        {list, Control::Load, tr("Load a List sequence from a CSV file (Ctrl+O)")},
        {delayer, Control::Load, tr("Load a Delayer sequence from a CSV file (Ctrl+O)")},
        {list, Control::Upload, tr("Check the List sequence and send it to the instrument")},
        {delayer, Control::Upload, tr("Check the Delayer sequence and send it to the instrument")},
    };
    for (const Tip &tip : tips) {
        if (QWidget *widget = m_dialog->control(tip.mode, tip.control);
            widget && widget->toolTip().isEmpty()) {
            widget->setToolTip(tip.text);
        }
    }
    // The template editors are explained by the label beside them.
    m_dialog->explainEditorsByTheirLabels();
}

QString SequenceEditor::durationText(UploadMode mode) const
{
    double total = 0.0;
    if (mode == UploadMode::List) {
        for (const ListData &step : m_dialog->listSequence())
            total += step.time;
    } else {
        for (const DelayerData &step : m_dialog->delayerSequence())
            total += step.time;
    }
    const int decimals = Helper::getInstance().option.timeDecimals;
    const int cycles = m_dialog->getUploadParamFromUI(mode).cycles;
    const QString once = QString::number(total, 'f', decimals);
    if (cycles == 0)
        return tr("Total %1 s, repeated endlessly").arg(once);
    if (cycles == 1)
        return tr("Total %1 s").arg(once);
    return tr("Total %1 s × %2 = %3 s")
        .arg(once)
        .arg(cycles)
        .arg(QString::number(total * cycles, 'f', decimals));
}

void SequenceEditor::refresh(UploadMode mode)
{
    if (!m_dialog)
        return;
    QLabel *label = mode == UploadMode::List ? m_listDuration : m_delayerDuration;
    if (label)
        label->setText(durationText(mode));
    auto *counter
        = qobject_cast<QSpinBox *>(m_dialog->control(mode, DialogProgrammer::Control::StepCount));
    const int count = counter->value();
    const int most = m_files->maxCount();
    counter->setToolTip(count > most ? tr("Red: %1 steps are more than the %2 this instrument "
                                          "holds. An upload sends only the first %2, after "
                                          "asking, and a file of this sequence would not load "
                                          "back.")
                                           .arg(count)
                                           .arg(most)
                                     : tr("Steps in the sequence; red above the %1 this "
                                          "instrument holds")
                                           .arg(most));
}

void SequenceEditor::updateActions()
{
    QUndoStack *stack = history(shownMode())->stack();
    m_undo->setEnabled(stack->canUndo());
    m_redo->setEnabled(stack->canRedo());
    m_undo->setText(stack->canUndo() ? tr("&Undo %1").arg(stack->undoText()) : tr("&Undo"));
    m_redo->setText(stack->canRedo() ? tr("&Redo %1").arg(stack->redoText()) : tr("&Redo"));
}

QList<int> SequenceEditor::selectedRows(UploadMode mode) const
{
    QList<int> rows;
    const QModelIndexList selected = view(mode)->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : selected) {
        if (!rows.contains(index.row()))
            rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void SequenceEditor::selectRows(UploadMode mode, int first, int count)
{
    QTableView *table = view(mode);
    QAbstractItemModel *model = table->model();
    if (count <= 0 || first < 0 || first >= model->rowCount()) {
        table->selectionModel()->clearSelection();
        return;
    }
    const int last = qMin(first + count, model->rowCount()) - 1;
    m_dialog->selectTvItems(
        table, model->index(first, 0), model->index(last, model->columnCount() - 1));
}

void SequenceEditor::deleteSelectedRows()
{
    const UploadMode mode = shownMode();
    const QList<int> rows = selectedRows(mode);
    if (!editable() || rows.isEmpty())
        return;
    history(mode)->flush();
    SequenceContent content = m_files->current(mode);
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (mode == UploadMode::List)
            content.list.removeAt(*row);
        else
            content.delayer.removeAt(*row);
    }
    m_files->replace(content);
    history(mode)->flush();
    selectRows(mode, qMin(rows.first(), content.size() - 1), 1);
}

void SequenceEditor::copyRows()
{
    const UploadMode mode = shownMode();
    QList<int> rows = selectedRows(mode);
    if (rows.isEmpty() && view(mode)->currentIndex().isValid())
        rows.append(view(mode)->currentIndex().row());
    if (rows.isEmpty())
        return;
    const Option &option = Helper::getInstance().option;
    QStringList lines;
    for (int row : rows) {
        if (mode == UploadMode::List) {
            const ListData &step = m_dialog->listSequence().at(row);
            lines << QStringLiteral("%1\t%2\t%3")
                         .arg(QString::number(step.voltage, 'f', option.voltageDecimals),
                              QString::number(step.current, 'f', option.currentDecimals),
                              QString::number(step.time, 'f', option.timeDecimals));
        } else {
            const DelayerData &step = m_dialog->delayerSequence().at(row);
            lines << QStringLiteral("%1\t%2").arg(
                step.state ? QStringLiteral("On") : QStringLiteral("Off"),
                QString::number(step.time, 'f', option.timeDecimals));
        }
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    m_dialog->showInfo(tr("Copied %n steps", nullptr, rows.size()), messageMs);
}

void SequenceEditor::pasteRows()
{
    const UploadMode mode = shownMode();
    if (!editable())
        return;
    const ReadResult read = SequenceReader::readPasted(
        QApplication::clipboard()->text(), mode, m_files->limits(mode));
    if (!read.ok) {
        m_dialog->showError(tr("Not pasted: %1").arg(read.error), messageMs);
        return;
    }
    history(mode)->flush();
    SequenceContent content = m_files->current(mode);
    const QModelIndex current = view(mode)->currentIndex();
    const int at = current.isValid() ? current.row() : content.size();
    if (mode == UploadMode::List) {
        for (int i = 0; i < read.content.list.size(); ++i)
            content.list.insert(at + i, read.content.list.at(i));
    } else {
        for (int i = 0; i < read.content.delayer.size(); ++i)
            content.delayer.insert(at + i, read.content.delayer.at(i));
    }
    m_files->replace(content);
    history(mode)->flush();
    selectRows(mode, at, read.content.size());
    m_dialog->showInfo(tr("Pasted %n steps", nullptr, read.content.size()), messageMs);
}

void SequenceEditor::restoreSession()
{
    for (UploadMode mode : modes) {
        if (const std::optional<SequenceContent> content = SessionStore::restore(mode))
            m_files->replace(*content);
        history(mode)->restart();
        view(mode)->selectionModel()->clearSelection();
    }
}

bool SequenceEditor::confirmClose()
{
    QList<UploadMode> changed;
    for (UploadMode mode : modes) {
        if (history(mode)->isModified())
            changed.append(mode);
    }
    if (!changed.isEmpty()) {
        QStringList names;
        for (UploadMode mode : changed)
            names << tabName(mode);
        const QString text = changed.size() == 1
                                 ? tr("The %1 sequence has changed since it was last saved or "
                                      "loaded. Save it before closing?")
                                       .arg(names.first())
                                 : tr("The List and Delayer sequences have changed since they "
                                      "were last saved or loaded. Save them before closing?");
        const Prompter::Answer answer
            = m_prompter ? m_prompter->unsavedChanges(m_window, text) : Prompter::Answer::Cancel;
        if (answer == Prompter::Answer::Cancel)
            return false;
        if (answer == Prompter::Answer::Discard) {
            SessionStore::forget();
            return true;
        }
        for (UploadMode mode : changed) {
            if (!m_files->save(mode))
                return false;
        }
    }
    for (UploadMode mode : modes)
        SessionStore::store(m_files->current(mode));
    return true;
}

bool SequenceEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Close && !confirmClose()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarn::host
