// The question before the window closes, and the sequences kept from one start to the next.
#include "closeguard.h"

#include "prompter.h"
#include "sequencefiles.h"
#include "sequencehistory.h"
#include "sessionstore.h"

#include <dialogprogrammer.h>

#include <QCloseEvent>
#include <QItemSelectionModel>
#include <QTableView>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

const UploadMode modes[] = {UploadMode::List, UploadMode::Delayer};

QString tabName(UploadMode mode)
{
    return mode == UploadMode::List ? QObject::tr("List") : QObject::tr("Delayer");
}

} // namespace

CloseGuard::CloseGuard(QWidget *window,
                       DialogProgrammer *dialog,
                       SequenceFiles *files,
                       SequenceHistory *list,
                       SequenceHistory *delayer)
    : QObject(window)
    , m_window(window)
    , m_dialog(dialog)
    , m_files(files)
    , m_list(list)
    , m_delayer(delayer)
{
    window->installEventFilter(this);
}

CloseGuard::~CloseGuard() = default;

SequenceHistory *CloseGuard::history(UploadMode mode) const
{
    return mode == UploadMode::List ? m_list : m_delayer;
}

void CloseGuard::restoreSession()
{
    for (UploadMode mode : modes) {
        if (const std::optional<SequenceContent> content = SessionStore::restore(mode))
            m_files->replace(*content);
        history(mode)->restart();
        m_dialog->sequenceView(mode)->selectionModel()->clearSelection();
    }
}

bool CloseGuard::confirmClose()
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

bool CloseGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Close && !confirmClose()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarn::host
