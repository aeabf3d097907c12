// Fuzzes the instrument description reader: a description it accepts writes out and reads back
// as the same description.
#include <instrumentdescription.h>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using tarn::sim::InstrumentDescription;
    QString error;
    const auto description = InstrumentDescription::fromJson(
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size)),
        &error);
    if (!description) {
        if (error.isEmpty())
            __builtin_trap(); // a refusal always says why
        return 0;
    }
    if (description->channels.isEmpty() || description->channels.size() > 64)
        __builtin_trap();
    const auto again = InstrumentDescription::fromJson(description->toJson(), &error);
    if (!again || again->toJson() != description->toJson())
        __builtin_trap();
    return 0;
}
