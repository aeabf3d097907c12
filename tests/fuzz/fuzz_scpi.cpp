// Fuzzes the simulated supply's command parser and engine with whole sessions: the input is cut
// into lines as the server cuts them, and a line starting with '@' moves the clock instead.
#include <commandinterpreter.h>
#include <linebuffer.h>
#include <supplyengine.h>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tarn::sim;
    // One supply for the whole run, put back to its power-on state for every input.
    static qint64 now = 0;
    static SupplyEngine engine(InstrumentDescription::builtIn(), [] { return now; });
    static CommandInterpreter interpreter(&engine);
    now = 0;
    engine.reset();
    engine.errors().clear();
    engine.setSpeed(1000.0);
    LineBuffer lines(4096);
    lines.feed(
        reinterpret_cast<const char *>(data),
        static_cast<qint64>(size),
        [](const QByteArray &line) {
            if (line.startsWith('@')) {
                now += static_cast<qint64>(line.mid(1).toUInt()) * 1000000;
                return;
            }
            interpreter.execute(line);
        },
        [] { engine.errors().push(ScpiError::InputBufferOverrun); });
    for (int channel = 0; channel < engine.channelCount(); ++channel) {
        if (engine.stepCount(channel, SequenceMode::List) > engine.description().maxCount
            || engine.stepCount(channel, SequenceMode::Delayer) > engine.description().maxCount)
            __builtin_trap();
    }
    if (engine.errors().size() > ErrorQueue::capacity)
        __builtin_trap();
    return 0;
}
