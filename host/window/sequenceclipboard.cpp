// Rows of the sequence tables to and from the clipboard, and deleted, each as one undoable change.
#include "sequenceclipboard.h"

#include "sequencefiles.h"
#include "sequencehistory.h"
#include "sequencereader.h"
#include "steplimits.h"

#include <dialogprogrammer.h>
#include <helper.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QTableView>
#include <QUndoStack>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
constexpr int messageMs = 8000;
const UploadMode modes[] = {UploadMode::List, UploadMode::Delayer};
} // namespace

SequenceClipboard::SequenceClipboard(DialogProgrammer *dialog,
                                     SequenceFiles *files,
                                     SequenceHistory *list,
                                     SequenceHistory *delayer,
                                     QObject *parent)
    : QObject(parent)
    , m_dialog(dialog)
    , m_files(files)
    , m_list(list)
    , m_delayer(delayer)
{
    // Only in the tables: elsewhere these keys belong to the editor that has the focus.
    m_delete = new QAction(tr("&Delete Rows"), this);
    m_delete->setObjectName(QStringLiteral("deleteRows"));
    m_delete->setShortcut(QKeySequence(Qt::Key_Delete));
    connect(m_delete, &QAction::triggered, this, &SequenceClipboard::deleteSelectedRows);
    m_copy = new QAction(tr("&Copy Rows"), this);
    m_copy->setObjectName(QStringLiteral("copyRows"));
    m_copy->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
    connect(m_copy, &QAction::triggered, this, &SequenceClipboard::copyRows);
    m_paste = new QAction(tr("&Paste Rows"), this);
    m_paste->setObjectName(QStringLiteral("pasteRows"));
    m_paste->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_V));
    connect(m_paste, &QAction::triggered, this, &SequenceClipboard::pasteRows);
    for (QAction *action : {m_delete, m_copy, m_paste}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        for (UploadMode mode : modes)
            m_dialog->sequenceView(mode)->addAction(action);
    }
}

SequenceClipboard::~SequenceClipboard() = default;

SequenceHistory *SequenceClipboard::history(UploadMode mode) const
{
    return mode == UploadMode::List ? m_list : m_delayer;
}

bool SequenceClipboard::editable() const
{
    // While an upload runs the dialog is locked, and so is its sequence.
    return m_dialog && m_dialog->isEnabled();
}

QList<int> SequenceClipboard::selectedRows(UploadMode mode) const
{
    QList<int> rows;
    const QModelIndexList selected
        = m_dialog->sequenceView(mode)->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : selected) {
        if (!rows.contains(index.row()))
            rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void SequenceClipboard::selectRows(UploadMode mode, int first, int count)
{
    QTableView *table = m_dialog->sequenceView(mode);
    QAbstractItemModel *model = table->model();
    if (count <= 0 || first < 0 || first >= model->rowCount()) {
        table->selectionModel()->clearSelection();
        return;
    }
    const int last = qMin(first + count, model->rowCount()) - 1;
    m_dialog->selectTvItems(
        table, model->index(first, 0), model->index(last, model->columnCount() - 1));
}

void SequenceClipboard::deleteSelectedRows()
{
    const UploadMode mode = m_dialog->currentMode();
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

void SequenceClipboard::copyRows()
{
    const UploadMode mode = m_dialog->currentMode();
    QList<int> rows = selectedRows(mode);
    if (rows.isEmpty() && m_dialog->sequenceView(mode)->currentIndex().isValid())
        rows.append(m_dialog->sequenceView(mode)->currentIndex().row());
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

void SequenceClipboard::pasteRows()
{
    const UploadMode mode = m_dialog->currentMode();
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
    const QModelIndex current = m_dialog->sequenceView(mode)->currentIndex();
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

} // namespace tarn::host
