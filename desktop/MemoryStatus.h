#pragma once

#include <QtGlobal>

/// The machine's physical memory in bytes; 0 when the system does not tell.
quint64 totalPhysicalMemory();
