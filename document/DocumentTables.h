#pragma once

#include "document/DocumentFile.h"
#include "document/MachineInfo.h"
#include "document/PrRecord.h"

#include <QList>

#include <limits>
#include <map>

/// What the program remembers of a document slot.
struct DocFlag
{
    bool free = false; ///< the slot's window was closed: the slot may be reused
    bool changed = false; ///< unsaved changes

    bool operator==(const DocFlag &) const = default;
};

/// Flags by document number, which counts from 1: entry 0 is never used. The table only grows (growDocumentTables()).
extern QList<DocFlag> DocFlags;

/// Machine information by document number. Every number that the tables hold has one, unless forgetDocument() took
/// it. An entry stays where it is while the tables grow.
extern std::map<int, MachineInfo> MachineInfos;

/// Document numbers have 16 bits.
constexpr int highestDocNo = std::numeric_limits<qint16>::max();

/// The one transfer buffer between file and grid, by row index from 0. Any read or save overwrites it.
extern QList<PrRecord> PrRecords;

/// Where ParsePrCondText() leaves its conditions, from position 0; emptied by its users.
extern QList<PrCondition> PrConditions;

/// The highest document number that the tables hold; 0 when there is none.
int documentUpperBound();

/// Makes the tables hold document number docNo, keeping what they hold.
void growDocumentTables(int docNo);

/// What the document of that number knows of its file.
DocumentOrigin &documentOrigin(int docNo);

/// Gives up what is kept for a number that no document will have any more; of that number only the flag stays.
void forgetDocument(int docNo);

/// Empties every table, and forgets what documents know of their files, as at start-up. For tests.
void resetDocumentTables();
