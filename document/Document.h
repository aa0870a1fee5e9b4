#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"

#include <QList>

/// The content of one parameter file, as a value: nothing here knows windows, tables or files.
struct Document
{
    MachineInfo machine;
    QList<PrRecord> rows; ///< row n of the file is entry n - 1
    int codePage = 0; ///< number of the code page that its bytes were decoded with, and are written in

    bool operator==(const Document &) const = default;
};
