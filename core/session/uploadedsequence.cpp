// Durations and titles of uploaded sequences.
#include "uploadedsequence.h"

#include <QCoreApplication>

namespace tarn::host {

double UploadedSequence::cycleSeconds() const
{
    double total = 0.0;
    for (int i = 0; i < stepCount(); ++i)
        total += stepTime(i);
    return total;
}

QString UploadedSequence::title() const
{
    const QString mode = list ? QCoreApplication::translate("tarn::host::RunView", "List")
                              : QCoreApplication::translate("tarn::host::RunView", "Delayer");
    const QString repeat
        = cycles == 0 ? QCoreApplication::translate("tarn::host::RunView", "endless")
          : cycles == 1
              ? QCoreApplication::translate("tarn::host::RunView", "1 cycle")
              : QCoreApplication::translate("tarn::host::RunView", "%1 cycles").arg(cycles);
    return QCoreApplication::translate("tarn::host::RunView", "%1 on %2: %3 steps, %4")
        .arg(mode, channelName)
        .arg(stepCount())
        .arg(repeat);
}

} // namespace tarn::host
