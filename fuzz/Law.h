#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process, which the fuzzer reports with the input, unless the law holds.
inline void require(bool holds, const char *law)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", law);
        std::abort();
    }
}
