// What the tables tell without being asked: tool tips, durations and the step counter's warning.
#pragma once

#include <records.h>

#include <QObject>
#include <QPointer>

class QLabel;

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class SequenceFiles;

// SequenceHints explains the dialog's controls in tool tips, shows under each step counter how
// long the sequence runs, repeats included, and turns the counter's tool tip into a warning when
// the sequence is longer than the instrument holds. refresh() follows a change of a sequence.
class SequenceHints final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceHints)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    SequenceHints(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                  SequenceFiles *files,
                  QObject *parent = nullptr);
    ~SequenceHints() override;

    void refresh(UploadMode mode);
    // "Total 1.500 s × 3 = 4.500 s" for the tab's steps and repeat count.
    QString durationText(UploadMode mode) const;

private:
    void addDurationLabels();
    void addToolTips();

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    SequenceFiles *m_files;
    QLabel *m_listDuration = nullptr;
    QLabel *m_delayerDuration = nullptr;
};

} // namespace tarn::host
