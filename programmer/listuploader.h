// Uploads a List sequence: voltage, current and time steps.
#pragma once

#include "stepuploader.h"

namespace tarn2::specific::orvo5000::programmer {

// ListUploader hands out the elements of the caller's List sequence themselves, not copies. The
// list is referenced: it must outlive the uploader. Should it shrink during a run, the steps it
// no longer holds are simply not handed out.
class TARN2_SPECIFIC_EXPORT ListUploader final : public StepUploader<ListData>
{
    Q_OBJECT
    Q_DISABLE_COPY(ListUploader)

public:
    ListUploader(const QList<ListData> &data, QObject *parent);
    ~ListUploader() override;
};

} // namespace tarn2::specific::orvo5000::programmer
