#pragma once

#include <cerrno>

/// Makes a call of the system until no signal interrupts it. Not for closing: that is done, interrupted or not.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}
