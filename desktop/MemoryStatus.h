#pragma once

#include <QtGlobal>

/// The machine's physical memory in bytes; 0 if it is not known.
quint64 totalPhysicalMemory();
