// A stand-in for a bench supply: it takes uploads and sequence files from the programmer dialog.
#pragma once

#include <records.h>

#include <QObject>

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

// SimulatedInstrument answers the dialog the way a host with a real instrument would: it asks
// for each step after a short "write" delay, stops the run when it is finished or fails, and
// handles the file signals with file dialogs. It keeps the last uploaded sequence.
class SimulatedInstrument final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SimulatedInstrument)

public:
    explicit SimulatedInstrument(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog);

    static tarn2::specific::orvo5000::programmer::Option defaultOption();

    int stepsReceived() const { return m_steps; }

private:
    void requestNext();

    tarn2::specific::orvo5000::programmer::DialogProgrammer *m_dialog;
    tarn2::specific::orvo5000::programmer::UploadParam m_param;
    int m_steps = 0;
};

} // namespace tarn::host
