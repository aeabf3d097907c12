// Out-of-line destructors anchor the step records' virtual tables in the module.
#include "records.h"

namespace tarn2::specific::orvo5000::programmer {

ProgrammerData::~ProgrammerData() = default;
ListData::~ListData() = default;
DelayerData::~DelayerData() = default;

} // namespace tarn2::specific::orvo5000::programmer
