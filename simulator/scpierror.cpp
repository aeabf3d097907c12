// Texts of the standard error numbers.
#include "scpierror.h"

namespace tarn::sim {

QString scpiErrorText(ScpiError error)
{
    switch (error) {
    case ScpiError::None:
        return QStringLiteral("No error");
    case ScpiError::SyntaxError:
        return QStringLiteral("Syntax error");
    case ScpiError::DataTypeError:
        return QStringLiteral("Data type error");
    case ScpiError::ParameterNotAllowed:
        return QStringLiteral("Parameter not allowed");
    case ScpiError::MissingParameter:
        return QStringLiteral("Missing parameter");
    case ScpiError::UndefinedHeader:
        return QStringLiteral("Undefined header");
    case ScpiError::SettingsConflict:
        return QStringLiteral("Settings conflict");
    case ScpiError::DataOutOfRange:
        return QStringLiteral("Data out of range");
    case ScpiError::TooMuchData:
        return QStringLiteral("Too much data");
    case ScpiError::IllegalParameterValue:
        return QStringLiteral("Illegal parameter value");
    case ScpiError::DeviceSpecificError:
        return QStringLiteral("Device-specific error");
    case ScpiError::QueueOverflow:
        return QStringLiteral("Queue overflow");
    case ScpiError::InputBufferOverrun:
        return QStringLiteral("Input buffer overrun");
    }
    return QStringLiteral("Unknown error");
}

} // namespace tarn::sim
