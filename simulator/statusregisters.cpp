// Status registers as instruments of the standard model keep them.
#include "statusregisters.h"

namespace tarn::sim {

void StatusRegister::setCondition(quint16 bits)
{
    event |= bits & ~condition;
    condition = bits;
}

quint16 StatusRegister::takeEvent()
{
    const quint16 bits = event;
    event = 0;
    return bits;
}

quint8 StatusRegisters::eventBitOf(ScpiError error)
{
    const int code = static_cast<int>(error);
    if (code <= -100 && code > -200)
        return CommandError;
    if (code <= -200 && code > -300)
        return ExecutionError;
    if (code <= -400 && code > -500)
        return QueryError;
    // -300..-399 and the positive, instrument-defined numbers.
    return code != 0 ? DeviceError : 0;
}

quint8 StatusRegisters::takeEvents()
{
    const quint8 bits = m_events;
    m_events = 0;
    return bits;
}

quint8 StatusRegisters::statusByte(bool errorsWaiting, bool messageAvailable) const
{
    quint8 byte = 0;
    if (errorsWaiting)
        byte |= ErrorQueueNotEmpty;
    if (questionable.summary())
        byte |= QuestionableSummary;
    if (messageAvailable)
        byte |= MessageAvailable;
    if (m_events & eventEnable)
        byte |= EventSummary;
    if (operation.summary())
        byte |= OperationSummary;
    if (byte & serviceRequestEnable)
        byte |= MasterSummary;
    return byte;
}

void StatusRegisters::clearEvents()
{
    m_events = 0;
    operation.event = 0;
    questionable.event = 0;
}

void StatusRegisters::preset()
{
    operation.enable = 0;
    questionable.enable = 0;
}

} // namespace tarn::sim
