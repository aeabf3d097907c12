// The checks and the one question before an upload.
#include "uploadgate.h"

#include "instrumentconnection.h"
#include "preflight.h"
#include "prompter.h"

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

template<class Step>
std::optional<UploadOutcome> UploadGate::decide(const InstrumentConnection &connection,
                                                const UploadParam &param,
                                                const QList<Step> &steps,
                                                Prompter *prompter,
                                                QWidget *parent)
{
    // The limits the instrument gave are read while connecting; an upload does not go ahead of
    // them, nor compete with their replies.
    if (connection.state() == InstrumentConnection::State::Connecting)
        return UploadOutcome{false,
                             tr("Not uploaded: still connecting; upload once connected"),
                             -1,
                             -1,
                             UploadEnd::NotConnected};
    const Preflight check = Preflight::check(steps, connection.stepLimits(param.channel));
    if (!check.passed())
        return UploadOutcome{false, check.refusal(), check.firstBad, -1};
    if (steps.size() > param.maxCount && prompter
        && prompter->question(parent,
                              tr("Upload"),
                              tr("The sequence has %1 steps; this instrument holds %2.\n\n"
                                 "Upload only the first %2 steps?")
                                  .arg(steps.size())
                                  .arg(param.maxCount))
               != Prompter::Answer::Yes) {
        return UploadOutcome{
            false, tr("Not uploaded: the sequence is longer than the instrument holds"), -1, -1};
    }
    return std::nullopt;
}

std::optional<UploadOutcome> UploadGate::check(const InstrumentConnection &connection,
                                               const UploadParam &param,
                                               const QList<ListData> &steps,
                                               Prompter *prompter,
                                               QWidget *parent)
{
    return decide(connection, param, steps, prompter, parent);
}

std::optional<UploadOutcome> UploadGate::check(const InstrumentConnection &connection,
                                               const UploadParam &param,
                                               const QList<DelayerData> &steps,
                                               Prompter *prompter,
                                               QWidget *parent)
{
    return decide(connection, param, steps, prompter, parent);
}

} // namespace tarn::host
