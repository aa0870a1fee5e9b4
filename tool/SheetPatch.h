#pragma once

#include "tool/SheetDiff.h"
#include "tool/ToolTexts.h"

/// A change that does not fit a sheet.
struct Rejection
{
    SheetPart part;
    EntryKey key;
    ToolText reason;
    QStringList arguments = {};
};

struct PatchedSheet
{
    Sheet sheet;
    QList<Rejection> rejections;
};

/// Makes the changes of diff in sheet. Those that do not fit (an entry that is not there, another value than the
/// earlier one) are left out and listed; what is as the change wants it already is right. isExact: values are compared
/// as texts, not as numbers. For a diff of sheet with another that was made exactly, the result is that other.
PatchedSheet patchSheet(const Sheet &sheet, const SheetDiff &diff, bool isExact = false);
