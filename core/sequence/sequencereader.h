// Reads sequence files and pasted rows the way the dialog's loader does, but says why it refuses.
#pragma once

#include "sequencecontent.h"

#include <optional>

namespace tarn::host {

class StepLimits;

// SequenceReader applies the file format's head checks and, beyond them, the checks an instrument
// would apply to each step, so that nothing the loader would silently skip, cut or read as 0
// reaches the table. Errors name the 1-based line and the reason.
class TARN2_SPECIFIC_EXPORT SequenceReader final
{
public:
    // List or Delayer by the file's first line; nothing for any other file.
    static std::optional<tarn2::specific::orvo5000::programmer::UploadMode>
    modeOf(const QList<QString> &lines);

    // The lines of a file no larger than a sequence of `maxCount` steps can be, with room for
    // long numbers: a larger one is refused before it is read, so that no file can make the
    // program huge. Nothing, with *error telling why, when the file is refused or unreadable.
    static std::optional<QList<QString>>
    readLines(const QString &path, int maxCount, QString *error);

    static ReadResult readFile(const QList<QString> &lines,
                               tarn2::specific::orvo5000::programmer::UploadMode mode,
                               const StepLimits &limits);

    // Rows of tab-separated cells as spreadsheets copy them: List "V A s" or "No. V A s",
    // Delayer "state s" or "No. state s"; a decimal comma is read as a point, a first row of
    // column titles is skipped.
    static ReadResult readPasted(const QString &text,
                                 tarn2::specific::orvo5000::programmer::UploadMode mode,
                                 const StepLimits &limits);
};

} // namespace tarn::host
