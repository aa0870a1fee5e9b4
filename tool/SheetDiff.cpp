#include "tool/SheetDiff.h"

#include "check/NumberKey.h"
#include "tool/ListDiff.h"

#include <QHash>

#include <algorithm>
#include <functional>
#include <iterator>

namespace {

class SheetEntries : public EntryList
{
public:
    explicit SheetEntries(const QList<SheetEntry> &entries) : m_entries(entries) { }

    EntryKey key(int index) const override { return m_entries[index].key; }
    QStringList values(int index) const override { return m_entries[index].values; }

private:
    const QList<SheetEntry> &m_entries;
};

/// Gives numbers to keys, in the order in which they are met.
class KeyNumbers
{
public:
    std::vector<int> of(const QList<EntryKey> &keys);

private:
    QHash<EntryKey, int> m_numbers;
};

std::vector<int> KeyNumbers::of(const QList<EntryKey> &keys)
{
    std::vector<int> numbers;
    numbers.reserve(std::size_t(keys.size()));
    m_numbers.reserve(m_numbers.size() + keys.size());
    for (const EntryKey &key : keys) {
        int &number = m_numbers[key];
        number = number == 0 ? int(m_numbers.size()) : number;
        numbers.push_back(number);
    }
    return numbers;
}

QList<EntryKey> keysOf(const QList<SheetEntry> &entries)
{
    QList<EntryKey> keys;
    keys.reserve(entries.size());
    std::ranges::transform(entries, std::back_inserter(keys), &SheetEntry::key);
    return keys;
}

/// Keys under which equal numbers are the same.
QList<EntryKey> numericKeysOf(const QList<SheetEntry> &entries)
{
    QList<EntryKey> keys;
    keys.reserve(entries.size());
    QHash<QString, int> counts;
    counts.reserve(entries.size());
    for (const SheetEntry &entry : entries) {
        const QString text = numberKey(entry.key.text);
        keys.append({text, ++counts[text]});
    }
    return keys;
}

QList<EntryChange> diffEntries(const SheetPartInfo &info, const QList<SheetEntry> &before,
    const QList<SheetEntry> &after, const DiffOptions &options)
{
    const bool areNumbers = info.part == SheetPart::Parameters || info.part == SheetPart::Capacities;
    const auto keys = options.isExact || !areNumbers ? keysOf : numericKeysOf;
    const SheetEntries entriesBefore(before);
    const SheetEntries entriesAfter(after);
    KeyNumbers numbers;
    const auto isSame = [&](int old, int now) { return before[old].values == after[now].values; };
    const ListPair lists{entriesBefore, entriesAfter, numbers.of(keys(before)), numbers.of(keys(after)), isSame};
    return diffLists(info, lists, options);
}

} // namespace

bool SheetDiff::isEmpty() const
{
    return std::ranges::all_of(parts, [](const QList<EntryChange> &part) { return part.isEmpty(); });
}

std::vector<bool> unmovedEntries(const QList<EntryKey> &before, const QList<EntryKey> &after)
{
    KeyNumbers numbers;
    const std::vector<int> old = numbers.of(before);
    return unmovedKeys(old, numbers.of(after));
}

SheetDiff diffSheets(const Sheet &before, const Sheet &after, const DiffOptions &options)
{
    SheetDiff diff;
    for (const SheetPartInfo &info : sheetParts()) {
        diff.parts.at(std::size_t(info.part)) =
            diffEntries(info, before.part(info.part), after.part(info.part), options);
    }
    return diff;
}

/// Two versions of a file mostly have the same parameters in the same order. Most rows are the same then, and the texts
/// of those, which take longer to make than to compare, are not needed.
SheetDiff diffDocuments(const Document &before, const Document &after, const DiffOptions &options)
{
    if (!std::ranges::equal(before.rows, after.rows, {}, &PrRecord::number, &PrRecord::number)) {
        return diffSheets(sheetOf(before), sheetOf(after), options);
    }
    QList<bool> isChanged(before.rows.size());
    std::ranges::transform(before.rows, after.rows, isChanged.begin(), std::not_equal_to());
    return diffSheets(sheetOf(before, isChanged), sheetOf(after, isChanged), options);
}
