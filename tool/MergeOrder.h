#pragma once

#include "tool/Sheet.h"

/// The order of a merged list, and the entries that both sides put into different places: ours counts.
struct MergedOrder
{
    QList<EntryKey> keys;
    QList<EntryKey> conflicts;
};

/// All lists hold the keys of entries that stay, and only those. What only one side moved or added goes where it is
/// there: after the nearest entry before it that neither side moved.
MergedOrder mergeOrder(const QList<EntryKey> &base, const QList<EntryKey> &ours, const QList<EntryKey> &theirs);
