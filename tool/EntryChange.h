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

/// What is compared.
struct DiffOptions
{
    bool isExact = false; ///< texts instead of numbers
    QStringList fields = {}; ///< names of the fields that count; empty: all
};
