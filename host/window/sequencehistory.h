// Undo and redo of every change to one tab's sequence, and whether it changed since the last file.
#pragma once

#include "sequencecontent.h"

#include <QObject>
#include <QPointer>

class QTimer;
class QUndoStack;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class Prompter;
class SequenceFiles;

// SequenceHistory watches the tab's table model, repeat count and end state, and records what the
// sequence was before and after each change. Everything that happens in one turn of the event
// loop is one change: the dialog's Delete removes rows one at a time, a load resets the model and
// then sets the repeat count, and the user undoes either in one step. Undo and redo put a recorded
// sequence back through the host's replace path, so the table, counter and plot follow.
class SequenceHistory final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceHistory)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    // Clearing more steps than this asks first.
    static constexpr int quietClear = 10;

    SequenceHistory(UploadMode mode,
                    tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                    SequenceFiles *files);
    ~SequenceHistory() override;

    void setPrompter(Prompter *prompter) { m_prompter = prompter; }

    UploadMode mode() const { return m_mode; }
    QUndoStack *stack() const { return m_stack; }
    // Records a change still waiting for the end of the event-loop turn.
    void flush();
    bool isModified();
    void markClean();
    // Forgets the history: what the tab holds now is where undo stops, and it counts as saved.
    void restart();
    void apply(const SequenceContent &content);

signals:
    // After every recorded change, undo and redo.
    void changed();

private:
    void schedule();
    void commit();

    UploadMode m_mode;
    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    Prompter *m_prompter = nullptr;
    QUndoStack *m_stack;
    QTimer *m_timer;
    SequenceContent m_baseline;
    bool m_applying = false;
    bool m_cleanAfterCommit = false;
};

} // namespace tarn::host
