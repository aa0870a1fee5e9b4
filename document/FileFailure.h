#pragma once

#include "runtime/RunTimeError.h"

#include <QString>

/// Why a file could not be read or written.
struct FileFailure
{
    QString reason; ///< what the user is told; empty: nothing

    static FileFailure silent() { return {}; }
    static FileFailure of(RunTimeError error) { return {runTimeErrorText(error)}; }
};
