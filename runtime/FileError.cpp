#include "runtime/FileError.h"

#include <cerrno>

FileError FileError::last()
{
    return {Kind::System, errno == 0 ? EIO : errno}; // a failure without a number is still one
}

QString FileError::reason() const
{
    return qt_error_string(code);
}

QString lastSystemReason()
{
    return FileError::last().reason();
}
