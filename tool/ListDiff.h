#pragma once

#include "tool/EntryChange.h"

#include <functional>
#include <vector>

/// A list of entries that are made when they are asked for.
class EntryList
{
public:
    EntryList() = default;
    virtual ~EntryList() = default;
    Q_DISABLE_COPY_MOVE(EntryList)

    virtual EntryKey key(int index) const = 0;
    virtual QStringList values(int index) const = 0;
};

/// Two lists to be compared.
struct ListPair
{
    const EntryList &before;
    const EntryList &after;
    /// A number from 0 for each entry: those of the same key have the same one in both lists, and no two in one list.
    std::vector<int> keysBefore;
    std::vector<int> keysAfter;
    /// Whether two entries are seen to have the same values without these being made. If not, they may have all the
    /// same.
    std::function<bool(int before, int after)> isSame;
};

/// What became of the entries, by their rows.
QList<EntryChange> diffLists(const SheetPartInfo &info, const ListPair &lists, const DiffOptions &options);

/// For each of after's entries whether it keeps its place among those that both lists have: the fewest are moved.
std::vector<bool> unmovedKeys(const std::vector<int> &before, const std::vector<int> &after);
