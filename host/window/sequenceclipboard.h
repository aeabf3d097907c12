// Rows of the sequence tables to and from the clipboard, and deleted.
#pragma once

#include <records.h>

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class SequenceFiles;
class SequenceHistory;

// SequenceClipboard gives the tables Delete, Copy and Paste of whole rows, as tab-separated text
// that spreadsheets read and write. Its keys work only in the tables, where they cannot be meant
// for a cell editor; each change is one step of the tab's undo history, and pasted rows are
// checked like a loaded file.
class SequenceClipboard final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceClipboard)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    SequenceClipboard(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                      SequenceFiles *files,
                      SequenceHistory *list,
                      SequenceHistory *delayer,
                      QObject *parent = nullptr);
    ~SequenceClipboard() override;

    QAction *deleteAction() const { return m_delete; }
    QAction *copyAction() const { return m_copy; }
    QAction *pasteAction() const { return m_paste; }

    void deleteSelectedRows();
    void copyRows();
    void pasteRows();

private:
    SequenceHistory *history(UploadMode mode) const;
    bool editable() const;
    QList<int> selectedRows(UploadMode mode) const;
    void selectRows(UploadMode mode, int first, int count);

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    SequenceHistory *m_list;
    SequenceHistory *m_delayer;
    QAction *m_delete = nullptr;
    QAction *m_copy = nullptr;
    QAction *m_paste = nullptr;
};

} // namespace tarn::host
