// The standard instrument error numbers the simulated supply reports, and their texts.
#pragma once

#include <QString>

namespace tarn::sim {

enum class ScpiError {
    None = 0,
    SyntaxError = -102,
    DataTypeError = -104,
    ParameterNotAllowed = -108,
    MissingParameter = -109,
    UndefinedHeader = -113,
    SettingsConflict = -221,
    DataOutOfRange = -222,
    TooMuchData = -223,
    IllegalParameterValue = -224,
    DeviceSpecificError = -300,
    QueueOverflow = -350,
    InputBufferOverrun = -363,
};

// The standard text of an error, as SYST:ERR? reports it before any detail.
QString scpiErrorText(ScpiError error);

} // namespace tarn::sim
