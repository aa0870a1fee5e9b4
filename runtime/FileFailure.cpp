#include "runtime/FileFailure.h"

#include "runtime/WholeFile.h"

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

FileFailure FileFailure::of(const FileError &error)
{
    constexpr qint64 megabyte = 1024 * 1024;
    switch (error.kind) {
    case FileError::Kind::System:
        return ofSystem(error.reason());
    case FileError::Kind::NotAFile:
        return {OwnText::NotAFile};
    case FileError::Kind::TooLarge:
        return {OwnText::FileTooLarge, {QString::number(largestFile / megabyte)}};
    case FileError::Kind::Changing:
        return {OwnText::FileChanging};
    }
    return {};
}
