#pragma once

#include <QtGlobal>

/// What this process has in memory, in bytes.
qint64 residentBytes();
/// The most that it has had there since forgetPeak().
qint64 peakBytes();
void forgetPeak();
