#include "document/FileFailure.h"

FileFailure FileFailure::of(RunTimeError error)
{
    switch (error) {
    case RunTimeError::Overflow:
        return {OwnText::Overflow};
    case RunTimeError::TypeMismatch:
        return {OwnText::TypeMismatch};
    case RunTimeError::SubscriptOutOfRange:
        return {OwnText::SubscriptOutOfRange};
    case RunTimeError::InputPastEnd:
        return {OwnText::InputPastEnd};
    case RunTimeError::PrinterError:
        return {OwnText::PrinterError};
    }
    return {};
}
