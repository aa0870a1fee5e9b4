#pragma once

#include "tool/EntryChange.h"

#include <vector>

/// What differs between two sheets, by part. Added and moved entries are in the order of the new list.
struct SheetDiff
{
    std::array<QList<EntryChange>, sheetPartCount> parts;

    bool isEmpty() const;
    bool operator==(const SheetDiff &) const = default;
};

/// Entries are matched by key, the n-th of one key with the n-th.
SheetDiff diffSheets(const Sheet &before, const Sheet &after, const DiffOptions &options = {});

/// The same of two documents.
SheetDiff diffDocuments(const Document &before, const Document &after, const DiffOptions &options = {});

/// For each of after's entries whether it keeps its place among those that both lists have: the fewest are moved.
std::vector<bool> unmovedEntries(const QList<EntryKey> &before, const QList<EntryKey> &after);
