#pragma once

#include "document/PrRecord.h"

#include <QByteArrayView>

class FieldReader;

/// The line after which the rows begin.
inline constexpr QByteArrayView rowsLine("[Paramater]");

/// Reads the next row. After a failure, which in has then, record holds what was read before.
void readRecord(FieldReader &in, PrRecord &record);
