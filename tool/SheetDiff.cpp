#include "tool/SheetDiff.h"

#include "check/NumberKey.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A longest run of ascending numbers, not necessarily side by side: for each number whether it belongs to it.
QList<bool> longestAscending(const QList<int> &numbers)
{
    QList<qsizetype> ends; // by length of a run: the index at which the best one ends
    QList<qsizetype> before(numbers.size(), -1);
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const auto at =
            std::ranges::lower_bound(ends, numbers[i], {}, [&numbers](qsizetype end) { return numbers[end]; });
        before[i] = at == ends.begin() ? -1 : *(at - 1);
        if (at == ends.end()) {
            ends.append(i);
        } else {
            *at = i;
        }
    }
    QList<bool> isMember(numbers.size(), false);
    for (qsizetype i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = before[i]) {
        isMember[i] = true;
    }
    return isMember;
}

/// Compares one part of two sheets.
class PartDiff
{
public:
    PartDiff(const SheetPartInfo &info, const QList<SheetEntry> &before, const QList<SheetEntry> &after,
        const DiffOptions &options);

    QList<EntryChange> diff();

private:
    QList<EntryKey> keysOf(const QList<SheetEntry> &entries) const;
    bool hasField(int field) const;
    void addRemoved();
    void addPresent();
    QList<ValueChange> changesOf(const SheetEntry &before, const SheetEntry &after) const;

    const SheetPartInfo &m_info;
    const QList<SheetEntry> &m_before;
    const QList<SheetEntry> &m_after;
    const DiffOptions &m_options;
    QList<EntryKey> m_keysBefore;
    QList<EntryKey> m_keysAfter;
    QList<EntryChange> m_changes;
};

PartDiff::PartDiff(const SheetPartInfo &info, const QList<SheetEntry> &before, const QList<SheetEntry> &after,
    const DiffOptions &options)
    : m_info(info)
    , m_before(before)
    , m_after(after)
    , m_options(options)
    , m_keysBefore(keysOf(before))
    , m_keysAfter(keysOf(after))
{
}

/// Unless texts are compared exactly, equal numbers are equal keys.
QList<EntryKey> PartDiff::keysOf(const QList<SheetEntry> &entries) const
{
    QList<EntryKey> keys;
    keys.reserve(entries.size());
    const bool areNumbers = m_info.part == SheetPart::Parameters || m_info.part == SheetPart::Capacities;
    if (m_options.isExact || !areNumbers) {
        std::ranges::transform(entries, std::back_inserter(keys), &SheetEntry::key);
        return keys;
    }
    QHash<QString, int> counts;
    counts.reserve(entries.size());
    for (const SheetEntry &entry : entries) {
        const QString text = numberKey(entry.key.text);
        keys.append({text, ++counts[text]});
    }
    return keys;
}

QList<EntryChange> PartDiff::diff()
{
    addRemoved();
    addPresent();
    std::ranges::stable_sort(m_changes, {}, &EntryChange::row);
    return std::move(m_changes);
}

void PartDiff::addRemoved()
{
    if (m_keysBefore == m_keysAfter) {
        return;
    }
    const QSet<EntryKey> present(m_keysAfter.begin(), m_keysAfter.end());
    for (qsizetype i = 0; i < m_before.size(); ++i) {
        if (!present.contains(m_keysBefore[i])) {
            const EntryChange removed{.kind = EntryChange::Kind::Removed,
                .key = m_before[i].key,
                .values = m_before[i].values,
                .row = int(i + 1)};
            m_changes.append(removed);
        }
    }
}

void PartDiff::addPresent()
{
    QHash<EntryKey, qsizetype> places;
    places.reserve(m_before.size());
    for (qsizetype i = 0; i < m_keysBefore.size(); ++i) {
        places.insert(m_keysBefore[i], i);
    }
    const QList<bool> isUnmoved = unmovedEntries(m_keysBefore, m_keysAfter);
    for (qsizetype i = 0; i < m_after.size(); ++i) {
        const qsizetype place = places.value(m_keysAfter[i], -1);
        EntryChange change{.key = m_after[i].key, .row = int(i + 1)};
        if (place < 0) {
            change.kind = EntryChange::Kind::Added;
            change.values = m_after[i].values;
        } else {
            change.key = m_before[place].key;
            change.isMoved = !isUnmoved[i];
            change.changes = changesOf(m_before[place], m_after[i]);
        }
        if ((place < 0 || change.isMoved) && i > 0) {
            const qsizetype previous = places.value(m_keysAfter[i - 1], -1);
            change.predecessor = previous < 0 ? m_after[i - 1].key : m_before[previous].key;
        }
        if (place < 0 || change.isMoved || !change.changes.isEmpty()) {
            m_changes.append(change);
        }
    }
}

bool PartDiff::hasField(int field) const
{
    const QLatin1StringView name = m_info.fields[std::size_t(field)].name;
    return m_options.fields.isEmpty() || m_options.fields.contains(name);
}

QList<ValueChange> PartDiff::changesOf(const SheetEntry &before, const SheetEntry &after) const
{
    QList<ValueChange> changes;
    if (before.values == after.values) {
        return changes;
    }
    for (int field = 0; field < int(m_info.fields.size()); ++field) {
        const QString &old = before.values[field];
        const QString &now = after.values[field];
        const FieldKind kind = m_options.isExact ? FieldKind::Text : m_info.fields[std::size_t(field)].kind;
        if (hasField(field) && !isSameValue(kind, old, now)) {
            changes.append({field, old, now});
        }
    }
    return changes;
}

} // namespace

bool SheetDiff::isEmpty() const
{
    return std::ranges::all_of(parts, [](const QList<EntryChange> &part) { return part.isEmpty(); });
}

QList<bool> unmovedEntries(const QList<EntryKey> &before, const QList<EntryKey> &after)
{
    if (before == after) {
        return QList<bool>(after.size(), true);
    }
    QHash<EntryKey, int> places;
    places.reserve(before.size());
    for (int i = 0; i < before.size(); ++i) {
        places.insert(before[i], i);
    }
    QList<int> common;
    QList<qsizetype> owners;
    for (qsizetype i = 0; i < after.size(); ++i) {
        if (const auto place = places.constFind(after[i]); place != places.cend()) {
            common.append(*place);
            owners.append(i);
        }
    }
    const QList<bool> isMember = longestAscending(common);
    QList<bool> isUnmoved(after.size(), false);
    for (qsizetype i = 0; i < owners.size(); ++i) {
        isUnmoved[owners[i]] = isMember[i];
    }
    return isUnmoved;
}

SheetDiff diffSheets(const Sheet &before, const Sheet &after, const DiffOptions &options)
{
    SheetDiff diff;
    for (const SheetPartInfo &info : sheetParts()) {
        diff.parts.at(std::size_t(info.part)) =
            PartDiff(info, before.part(info.part), after.part(info.part), options).diff();
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
