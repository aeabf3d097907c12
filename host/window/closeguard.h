// The question before the window closes, and the sequences kept from one start to the next.
#pragma once

#include <records.h>

#include <QObject>
#include <QPointer>

class QWidget;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class Prompter;
class SequenceFiles;
class SequenceHistory;

// CloseGuard keeps the user's work when the window closes: a sequence changed since it was last
// saved or loaded is saved, discarded or the close cancelled, as the user answers; either way
// both sequences are stored for the next start, which restoreSession() puts back as if nothing
// had changed since.
class CloseGuard final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(CloseGuard)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    CloseGuard(QWidget *window,
               tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
               SequenceFiles *files,
               SequenceHistory *list,
               SequenceHistory *delayer);
    ~CloseGuard() override;

    void setPrompter(Prompter *prompter) { m_prompter = prompter; }
    void restoreSession();
    // False when the user chose to stay; otherwise the sequences are stored or forgotten.
    bool confirmClose();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    SequenceHistory *history(UploadMode mode) const;

    QWidget *m_window;
    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    SequenceHistory *m_list;
    SequenceHistory *m_delayer;
    Prompter *m_prompter = nullptr;
};

} // namespace tarn::host
