#pragma once

#include "tool/SheetDiff.h"

#include <QString>

// How entries of a sheet and what became of them are called in the interface's language.

/// "Parameter", "Capacity" ...
QString partCaption(SheetPart part);

/// The key, with its occurrence where there are several: "79", "79 #2".
QString keyText(const EntryKey &key);

/// The caption of a field: of its column, or of the machine information. key: the entry's.
QString fieldCaption(const SheetPartInfo &part, int field, const EntryKey &key);

/// A value as users know it: a function code in hexadecimal digits, any other as it is.
QString shownValue(const SheetPartInfo &part, int field, const QString &value);

/// The values of an added or removed entry in one line: those that are not empty, with their captions.
QString shownValues(const SheetPartInfo &part, const EntryChange &change);

/// Where a moved entry went.
QString movedText(const EntryChange &change);

/// How many entries were changed, added, removed and moved.
struct DiffCounts
{
    int changed = 0;
    int added = 0;
    int removed = 0;
    int moved = 0;
};
DiffCounts countsOf(const SheetDiff &diff);
QString countsText(const DiffCounts &counts);
