// What the head of a sequence file says, read without the dialog and without its language.
#pragma once

#include <QString>

namespace tarn::host {

// The end state a sequence file's head names, as the key the dialog's end-state combos carry
// ("OFF", "ON", "LAST"); empty when the file cannot be read or names none.
QString sequenceFileEndState(const QString &path);

} // namespace tarn::host
