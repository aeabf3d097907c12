// Whether a sequence may go to the instrument, decided before any of its steps is sent.
#pragma once

#include "uploadsession.h"

#include <records.h>

#include <QCoreApplication>
#include <QList>

#include <optional>

class QWidget;

namespace tarn::host {

class InstrumentConnection;
class Prompter;

// UploadGate refuses an upload while the connection is still reading the instrument's limits,
// refuses a sequence with steps the channel would not take (naming the first), and asks before
// sending only the part of a sequence that the instrument holds; without a prompter it sends
// that part.
class UploadGate final
{
    Q_DECLARE_TR_FUNCTIONS(tarn::host::UploadGate)

public:
    // Nothing when the upload may go ahead; otherwise the outcome that ends it unsent.
    static std::optional<UploadOutcome>
    check(const InstrumentConnection &connection,
          const tarn2::specific::orvo5000::programmer::UploadParam &param,
          const QList<tarn2::specific::orvo5000::programmer::ListData> &steps,
          Prompter *prompter,
          QWidget *parent);
    static std::optional<UploadOutcome>
    check(const InstrumentConnection &connection,
          const tarn2::specific::orvo5000::programmer::UploadParam &param,
          const QList<tarn2::specific::orvo5000::programmer::DelayerData> &steps,
          Prompter *prompter,
          QWidget *parent);

private:
    template<class Step>
    static std::optional<UploadOutcome>
    decide(const InstrumentConnection &connection,
           const tarn2::specific::orvo5000::programmer::UploadParam &param,
           const QList<Step> &steps,
           Prompter *prompter,
           QWidget *parent);
};

} // namespace tarn::host
