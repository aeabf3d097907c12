// Fuzzes the Delayer sequence file loader through the dialog's own load function.
#include "sequencefileharness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static fuzzing::SequenceFileHarness harness;
    const auto steps = harness.dialog->delayerLoadData(harness.write(data, size));
    if (steps.size() > 2048)
        __builtin_trap();
    return 0;
}
