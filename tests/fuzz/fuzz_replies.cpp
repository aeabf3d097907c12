// Fuzzes the bench host's readers of instrument replies: read-back lines, error replies, counts,
// positions, identities and the values of a List read as arrays.
#include "replyparser.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tarn::host::reply;
    const QByteArray line
        = QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    if (const auto list = parseListData(line, 2048); list && list->size() > 2048)
        __builtin_trap();
    if (const auto delayer = parseDelayerData(line, 2048); delayer && delayer->size() > 2048)
        __builtin_trap();
    if (const auto values = parseValues(line, 100); values && values->size() != 100)
        __builtin_trap();
    if (const auto error = parseError(line); error && (error->code > 0 || error->text.size() > 512))
        __builtin_trap();
    if (const auto count = parseCount(line, 2048); count && (*count < 0 || *count > 2048))
        __builtin_trap();
    if (const auto position = parsePosition(line, 2048); position && position->step > 2048)
        __builtin_trap();
    if (const auto identity = parseIdentity(line); identity && identity->size() > 200)
        __builtin_trap();
    return 0;
}
