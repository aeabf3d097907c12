// The scripted, headless session for CI and the README: generate, append, upload, verify, show.
#pragma once

#include <QSize>
#include <QString>

namespace tarn::sim {
struct InstrumentDescription;
}

namespace tarn::host {

class CommandSet;

// Runs with settings of its own, so the user's stored templates neither change it nor are changed
// by it. Uploads the sequence of `sequencePath` when given, else the default Sine. Prints the
// verification line and the screenshot's path; returns 0 only when the read-back matched, and 1
// with the reason when the file or the check before the upload refused the sequence.
int runDemo(const sim::InstrumentDescription &description,
            const CommandSet &commands,
            const QString &address,
            const QString &screenshotPath,
            QSize size,
            const QString &sequencePath = QString());

} // namespace tarn::host
