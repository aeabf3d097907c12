// The editing comforts around the dialog's two sequence tables, and the guard on closing.
#pragma once

#include <records.h>

#include <QObject>
#include <QPointer>

class QAction;
class QLabel;
class QMainWindow;
class QTableView;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class Prompter;
class SequenceFiles;
class SequenceHistory;

// SequenceEditor gives the tables what users of tables expect: undo and redo, Delete, Copy and
// Paste of rows as tab-separated text, Ctrl+S and Ctrl+O for the tab shown, the total duration
// beside the step counter, tooltips. It also keeps the user's work when the window closes: it
// asks about unsaved changes and stores the sequences for the next start.
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
    QAction *deleteAction() const { return m_delete; }
    QAction *copyAction() const { return m_copy; }
    QAction *pasteAction() const { return m_paste; }
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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createActions();
    void addEditMenu();
    void addDurationLabels();
    void addToolTips();
    void refresh(UploadMode mode);
    void updateActions();
    QTableView *view(UploadMode mode) const;
    QList<int> selectedRows(UploadMode mode) const;
    void selectRows(UploadMode mode, int first, int count);
    bool editable() const;

    QMainWindow *m_window;
    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    Prompter *m_prompter = nullptr;
    SequenceHistory *m_list;
    SequenceHistory *m_delayer;
    QLabel *m_listDuration = nullptr;
    QLabel *m_delayerDuration = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_delete = nullptr;
    QAction *m_copy = nullptr;
    QAction *m_paste = nullptr;
    QAction *m_save = nullptr;
    QAction *m_open = nullptr;
};

} // namespace tarn::host
