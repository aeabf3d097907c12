// The host's handlers of the dialog's file signals: file dialogs, then the dialog's own CSV
// functions.
#pragma once

#include <QObject>
#include <QPointer>

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class SequenceFiles final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceFiles)

public:
    explicit SequenceFiles(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog);

private:
    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
};

} // namespace tarn::host
