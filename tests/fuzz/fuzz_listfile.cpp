// Fuzzes the List sequence file loader through the dialog's own load function.
#include "sequencefileharness.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static fuzzing::SequenceFileHarness harness;
    const auto steps = harness.dialog->listLoadData(harness.write(data, size));
    // A load never yields more steps than the instrument holds.
    if (steps.size() > 2048)
        __builtin_trap();
    return 0;
}
