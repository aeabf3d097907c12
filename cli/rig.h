// One instrument as a script drives it: connected, uploaded to, run, and stopped on Ctrl-C.
#pragma once

#include "exitstatus.h"

#include <instrumentconnection.h>
#include <listreader.h>
#include <runsession.h>
#include <sequencecontent.h>
#include <sequenceupload.h>
#include <uploadsession.h>

#include <QObject>

#include <optional>

namespace tarn::history {
class History;
} // namespace tarn::history

namespace tarn::cli {

class Reporter;

// Rig holds the sessions of one connection and waits for each step of a script's work in an event
// loop of its own, turning every outcome into an exit status. Ctrl-C (SIGINT) during an upload
// cancels it; during a run it stops the instrument's sequence, which leaves the output as the end
// state says, and the work ends as Interrupted.
class Rig final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Rig)

public:
    Rig(const sim::InstrumentDescription &description,
        const host::CommandSet &commands,
        Reporter &reporter);
    ~Rig() override;

    ExitStatus connectTo(const QString &address);
    host::InstrumentConnection &connection() { return m_connection; }
    const sim::InstrumentDescription &description() const { return m_description; }

    // Records every upload and run from here on into `history`, which outlives the rig.
    void recordInto(history::History *history);

    ExitStatus upload(const host::SequenceContent &content, int channel);
    // Runs what the channel holds: the sequence just uploaded, or the one read back from it.
    // `seconds` > 0 stops the run after that long; otherwise it runs until its end.
    ExitStatus run(int channel, bool list, double seconds, const QString &tracePath);
    ExitStatus stop(int channel);
    // The answer to one query line; nothing when the instrument did not answer.
    std::optional<QByteArray> ask(const QByteArray &line, ExitStatus *status);

    // Installs the SIGINT handler; before that Ctrl-C ends the process as usual.
    static void catchInterrupt();

signals:
    void interrupted();

private:
    ExitStatus readBackHeld(int channel, bool list);
    std::optional<host::ListReader::Steps> readList(ExitStatus *status);
    ExitStatus writeTrace(const QString &path);

    sim::InstrumentDescription m_description;
    host::CommandSet m_commands;
    Reporter &m_reporter;
    host::InstrumentConnection m_connection;
    host::UploadSession m_upload;
    host::RunSession m_run;
    host::SequenceUpload m_feeder;
    ExitStatus m_linkStatus = Success;
};

} // namespace tarn::cli
