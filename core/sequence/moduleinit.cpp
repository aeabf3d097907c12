// Registers the module's meta-types as the library is loaded, so that a host needs no set-up call.
#include "templatestream.h"

#include <QtGlobal>

namespace {
void registerProgrammerMetaTypesOnLoad()
{
    tarn2::specific::orvo5000::programmer::registerProgrammerMetaTypes();
}
} // namespace

Q_CONSTRUCTOR_FUNCTION(registerProgrammerMetaTypesOnLoad)
