// Comparing sequences, for the history of edits and the question before closing.
#include "sequencecontent.h"

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

bool SequenceContent::sameAs(const SequenceContent &other) const
{
    if (mode != other.mode || cycles != other.cycles || endState != other.endState
        || size() != other.size()) {
        return false;
    }
    // Exact comparison on purpose: any edit, however small, is a change the user made.
    for (int i = 0; i < list.size(); ++i) {
        const ListData &a = list.at(i);
        const ListData &b = other.list.at(i);
        if (a.voltage != b.voltage || a.current != b.current || a.time != b.time)
            return false;
    }
    for (int i = 0; i < delayer.size(); ++i) {
        if (delayer.at(i).state != other.delayer.at(i).state
            || delayer.at(i).time != other.delayer.at(i).time) {
            return false;
        }
    }
    return true;
}

} // namespace tarn::host
