#include "runtime/RunTimeError.h"

QString runTimeErrorText(RunTimeError error)
{
    switch (error) {
    case RunTimeError::Overflow:
        return QStringLiteral("Overflow");
    case RunTimeError::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case RunTimeError::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case RunTimeError::InputPastEnd:
        return QStringLiteral("Input past end of file");
    case RunTimeError::PrinterError:
        return QStringLiteral("Printer error");
    }
    return {};
}
