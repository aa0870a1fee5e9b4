#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"

#include <QList>

/// What the program remembers of a document slot.
struct DocFlag
{
    bool free = false; ///< the slot's window was closed: the slot may be reused
    bool changed = false; ///< unsaved changes

    bool operator==(const DocFlag &) const = default;
};

/// Machine information and flags by document number, which counts from 1: entry 0 is never used. Both tables only
/// grow, and always together (growDocumentTables()).
extern QList<MachineInfo> MachineInfos;
extern QList<DocFlag> DocFlags;

/// The one transfer buffer between file and grid, by row index from 0. Any read or save overwrites it.
extern QList<PrRecord> PrRecords;

/// Where ParsePrCondText() leaves its conditions, from position 0; emptied by its users.
extern QList<PrCondition> PrConditions;

/// The highest document number that the tables hold; 0 when there is none.
int documentUpperBound();

/// Makes the tables hold document number docNo, keeping what they hold.
void growDocumentTables(int docNo);

/// Empties every table, and forgets what documents know of their files, as at start-up. For tests.
void resetDocumentTables();
