#include "runtime/Failure.h"

#include <cerrno>

Failure Failure::lastSystemCall()
{
    return system(errno == 0 ? EIO : errno); // a failure without a number is still one
}

QString Failure::reason() const
{
    return qt_error_string(systemError);
}

bool Failure::isSilent() const
{
    return code == FailureCode::NoParameterSection || code == FailureCode::NoFileName || code == FailureCode::Declined;
}
