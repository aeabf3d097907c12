// The host's handlers of the dialog's file signals: guarded loads, checked saves, and the one way
// the host replaces a tab's sequence.
#pragma once

#include "sequencecontent.h"

#include <instrumentdescription.h>

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

class Prompter;
class StepLimits;

// SequenceFiles absorbs the dialog's load behaviour, which empties the sequence whenever the
// handler leaves the list empty: a cancelled, refused or unreadable load through the dialog's own
// Load hands the current sequence back, so nothing on screen is lost. The host's own loads and
// every other replacement (an undo, a paste) replace the sequence through the dialog's public
// functions, which refresh the table, the step counter and the plot as a load does.
class SequenceFiles final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceFiles)

public:
    using UploadMode = tarn2::specific::orvo5000::programmer::UploadMode;

    SequenceFiles(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog,
                  const sim::InstrumentDescription &description);

    void setPrompter(Prompter *prompter) { m_prompter = prompter; }

    // Opens a file in the tab its first line names; false, with the user told why, when refused.
    bool openFile(const QString &path);
    // Asks for a file and loads it into the tab of `mode`.
    void load(UploadMode mode);
    // Saves the tab's sequence; true when it was written.
    bool save(UploadMode mode);

    void replace(const SequenceContent &content);
    SequenceContent current(UploadMode mode) const;
    StepLimits limits(UploadMode mode) const;
    int maxCount() const { return m_description.maxCount; }
    // The file the tab's sequence was last loaded from or saved to; empty for none.
    QString filePath(UploadMode mode) const { return m_paths[mode == UploadMode::List ? 0 : 1]; }
    const sim::InstrumentDescription &description() const { return m_description; }

    // The folder file dialogs start in: the one of the last file opened or saved.
    static QString lastFolder();

signals:
    // A load or save that reached a file; the sequence now matches it.
    void loaded(tarn2::specific::orvo5000::programmer::UploadMode mode);
    void saved(tarn2::specific::orvo5000::programmer::UploadMode mode);

private:
    void handleLoad(UploadMode mode,
                    QList<tarn2::specific::orvo5000::programmer::ListData> *list,
                    QList<tarn2::specific::orvo5000::programmer::DelayerData> *delayer,
                    tarn2::specific::orvo5000::programmer::UploadParam &param);
    // A checked file's content, the user told why when it is refused; asks for a file when
    // `path` is empty.
    std::optional<SequenceContent> readForLoad(UploadMode mode, QString path);
    bool loadFrom(UploadMode mode, const QString &path);
    void handleSave(UploadMode mode,
                    int count,
                    const tarn2::specific::orvo5000::programmer::UploadParam &param,
                    const std::function<bool(const QString &)> &write);
    QString writeFailure(const QString &path) const;
    static void rememberFolder(const QString &path);

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    sim::InstrumentDescription m_description;
    Prompter *m_prompter = nullptr;
    bool m_lastSaveWritten = false;
    QString m_paths[2];
};

} // namespace tarn::host
