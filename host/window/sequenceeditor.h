// The editing comforts around the dialog's two sequence tables: undo, the clipboard, hints and the
// guard on closing, put together.
#pragma once

#include <records.h>

#include <QObject>
#include <QPointer>

class QAction;
class QMainWindow;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class CloseGuard;
class Prompter;
class SequenceClipboard;
class SequenceFiles;
class SequenceHints;
class SequenceHistory;

// SequenceEditor gives the tables what users of tables expect: undo and redo (one history per tab),
// Ctrl+S and Ctrl+O for the tab shown, and an Edit menu. The clipboard, the hints and the guard on
// closing are parts of their own, which it puts together.
class SequenceEditor final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceEditor)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    SequenceEditor(QMainWindow *window,
                   tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                   SequenceFiles *files);
    ~SequenceEditor() override;

    void setPrompter(Prompter *prompter);
    SequenceHistory *history(UploadMode mode) const;
    UploadMode shownMode() const;

    QAction *undoAction() const { return m_undo; }
    QAction *redoAction() const { return m_redo; }
    QAction *deleteAction() const;
    QAction *copyAction() const;
    QAction *pasteAction() const;
    QAction *saveAction() const { return m_save; }
    QAction *openAction() const { return m_open; }

    // Puts back what the last run left, as if nothing had changed since.
    void restoreSession();
    // False when the user chose to stay; otherwise the sequences are stored or forgotten.
    bool confirmClose();

    void deleteSelectedRows();
    void copyRows();
    void pasteRows();
    // "Total 1.500 s × 3 = 4.500 s" for the tab's steps and repeat count.
    QString durationText(UploadMode mode) const;

private:
    void createActions();
    void addEditMenu();
    void updateActions();
    bool editable() const;

    QMainWindow *m_window;
    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    SequenceHistory *m_list;
    SequenceHistory *m_delayer;
    SequenceClipboard *m_clipboard;
    SequenceHints *m_hints;
    CloseGuard *m_closeGuard;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_save = nullptr;
    QAction *m_open = nullptr;
};

} // namespace tarn::host
