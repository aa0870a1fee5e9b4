#pragma once

#include "tool/Sheet.h"

#include <optional>

/// A text of an entry that differs.
struct ValueChange
{
    int field = 0; ///< index into SheetPartInfo::fields
    QString before;
    QString after;

    bool operator==(const ValueChange &) const = default;
};

/// What became of one entry.
struct EntryChange
{
    enum class Kind { Added, Removed, Kept };

    Kind kind = Kind::Kept;
    EntryKey key;
    bool isMoved = false; ///< of a kept one
    QStringList values = {}; ///< of an added or removed one
    QList<ValueChange> changes = {}; ///< of a kept one
    std::optional<EntryKey> predecessor = {}; ///< of an added or moved one: the entry before it in the new list
    int row = 0; ///< from 1: in the new list, of a removed one in the old

    bool operator==(const EntryChange &) const = default;
};

/// What differs between two sheets, by part. Added and moved entries are in the order of the new list.
struct SheetDiff
{
    std::array<QList<EntryChange>, sheetPartCount> parts;

    bool isEmpty() const;
    bool operator==(const SheetDiff &) const = default;
};

/// What is compared.
struct DiffOptions
{
    bool isExact = false; ///< texts instead of numbers
    QStringList fields = {}; ///< names of the fields that count; empty: all
};

/// Entries are matched by key, the n-th of one key with the n-th.
SheetDiff diffSheets(const Sheet &before, const Sheet &after, const DiffOptions &options = {});

/// The same of two documents.
SheetDiff diffDocuments(const Document &before, const Document &after, const DiffOptions &options = {});

/// For each of after's entries whether it keeps its place among those that both lists have: the fewest are moved.
QList<bool> unmovedEntries(const QList<EntryKey> &before, const QList<EntryKey> &after);
