// A sequence as a tab holds it: its steps, repeat count and end state.
#pragma once

#include "records.h"
#include "tarn2_specific_export.h"

#include <QList>
#include <QString>

namespace tarn::host {

// One of the two step lists is used, by `mode`. `endState` is the end-state combo's item data
// ("OFF", "ON", "LAST"), as an upload carries it; `cycles` 0 repeats endlessly.
struct TARN2_SPECIFIC_EXPORT SequenceContent
{
    tarn2::specific::orvo5000::programmer::UploadMode mode
        = tarn2::specific::orvo5000::programmer::UploadMode::List;
    int cycles = 1;
    QString endState = QStringLiteral("OFF");
    QList<tarn2::specific::orvo5000::programmer::ListData> list;
    QList<tarn2::specific::orvo5000::programmer::DelayerData> delayer;

    int size() const
    {
        return mode == tarn2::specific::orvo5000::programmer::UploadMode::List ? list.size()
                                                                               : delayer.size();
    }
    bool sameAs(const SequenceContent &other) const;
};

// How a file or a pasted block was read: refused ones say on which line and why.
struct ReadResult
{
    bool ok = false;
    // A List file refused only because it ends in Output On; `content` holds its steps.
    bool refusedOnlyForEndState = false;
    QString error;
    SequenceContent content;
};

} // namespace tarn::host
