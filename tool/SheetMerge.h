#pragma once

#include "tool/Sheet.h"

/// A place where both sides changed the same thing in different ways. What our side has stays.
struct MergeConflict
{
    enum class Kind { Value, RemovedByUs, RemovedByThem, Order };

    Kind kind;
    SheetPart part;
    EntryKey key;
    int field = 0; ///< of Value: index into SheetPartInfo::fields
    QString base = {}; ///< null if there is none
    QString ours = {};
    QString theirs = {};
};

struct MergedSheet
{
    Sheet sheet;
    QList<MergeConflict> conflicts;
};

/// What comes of two sheets that were both made from base, by entry and field. Where only one side changed something,
/// its change is taken; the order is that of base with both sides' moves and additions. Apart from conflicts it makes
/// no difference which side is which. The code page is ours.
MergedSheet mergeSheets(const Sheet &base, const Sheet &ours, const Sheet &theirs);
