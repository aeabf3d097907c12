// The instrument's status reporting: the standard event status register, the status byte and the
// operation and questionable registers that feed it.
#pragma once

#include "scpierror.h"

#include <QtGlobal>

namespace tarn::sim {

// One condition / event / enable triple. The event register latches every condition bit that goes
// from 0 to 1 and keeps it until it is read, so a run that starts and ends between two looks still
// leaves its mark.
struct StatusRegister
{
    quint16 condition = 0;
    quint16 event = 0;
    quint16 enable = 0;

    void setCondition(quint16 bits);
    quint16 takeEvent();
    bool summary() const { return (event & enable) != 0; }
};

// StatusRegisters holds what *ESR?, *STB? and STATus report. The bits are the standard ones, and
// the operation and questionable bits are this instrument's own (see the command list).
class StatusRegisters
{
public:
    enum EventBit : quint8 {
        OperationComplete = 0x01,
        QueryError = 0x04,
        DeviceError = 0x08,
        ExecutionError = 0x10,
        CommandError = 0x20,
        PowerOn = 0x80,
    };
    enum StatusBit : quint8 {
        ErrorQueueNotEmpty = 0x04,
        QuestionableSummary = 0x08,
        MessageAvailable = 0x10,
        EventSummary = 0x20,
        MasterSummary = 0x40,
        OperationSummary = 0x80,
    };
    enum OperationBit : quint16 {
        ListRunning = 0x0100,
        DelayerRunning = 0x0200,
        ConstantCurrent = 0x0400
    };
    enum QuestionableBit : quint16 { OverVoltageTripped = 0x0001, OverCurrentTripped = 0x0002 };

    // The event status bit an error sets by its class: command, execution, device-dependent or
    // query error.
    static quint8 eventBitOf(ScpiError error);

    void raise(quint8 eventBits) { m_events |= eventBits; }
    // *ESR? reads the register and clears it.
    quint8 takeEvents();
    quint8 eventEnable = 0;
    quint8 serviceRequestEnable = 0;
    StatusRegister operation;
    StatusRegister questionable;

    quint8 statusByte(bool errorsWaiting, bool messageAvailable) const;
    // *CLS: every event register cleared; enables and conditions stay.
    void clearEvents();
    // STATus:PRESet: the operation and questionable enables cleared.
    void preset();

private:
    quint8 m_events = PowerOn;
};

} // namespace tarn::sim
