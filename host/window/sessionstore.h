// The sequences kept between runs of the host.
#pragma once

#include "sequencecontent.h"

#include <optional>

namespace tarn::host {

// SessionStore keeps each tab's sequence, repeat count and end state in the application's
// settings when the window closes, and gives them back when it opens again. Steps are stored as
// exact doubles: what comes back is what was there, not a rounded copy.
class SessionStore final
{
public:
    static void store(const SequenceContent &content);
    static std::optional<SequenceContent>
    restore(tarn2::specific::orvo5000::programmer::UploadMode mode);
    // The user declined to keep the sequences: nothing comes back next time.
    static void forget();
};

} // namespace tarn::host
