#include "tool/ListDiff.h"

#include <algorithm>

namespace {

/// A longest run of ascending numbers, not necessarily side by side: for each number whether it belongs to it.
std::vector<bool> longestAscending(const QList<int> &numbers)
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
    std::vector<bool> isMember(std::size_t(numbers.size()));
    for (qsizetype i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = before[i]) {
        isMember[std::size_t(i)] = true;
    }
    return isMember;
}

/// Where each key is in a list; -1 for those that it does not have.
class Places
{
public:
    explicit Places(const std::vector<int> &keys);

    int of(int key) const { return std::size_t(key) < m_places.size() ? m_places[std::size_t(key)] : -1; }

private:
    std::vector<int> m_places;
};

Places::Places(const std::vector<int> &keys)
    : m_places(keys.empty() ? 0 : std::size_t(*std::ranges::max_element(keys)) + 1, -1)
{
    for (int i = 0; i < int(keys.size()); ++i) {
        m_places[std::size_t(keys[std::size_t(i)])] = i;
    }
}

/// Compares two lists.
class ListDiff
{
public:
    ListDiff(const SheetPartInfo &info, const ListPair &lists, const DiffOptions &options)
        : m_info(info), m_lists(lists), m_options(options), m_places(lists.keysBefore)
    {
    }

    QList<EntryChange> diff();

private:
    bool hasField(int field) const;
    void addRemoved();
    void addPresent();
    EntryChange changeOf(int row, int place, bool isUnmoved) const;
    EntryKey keyOf(int row) const;
    QList<ValueChange> changesOf(int before, int after) const;

    const SheetPartInfo &m_info;
    const ListPair &m_lists;
    const DiffOptions &m_options;
    Places m_places; ///< in the old list
    QList<EntryChange> m_changes;
};

QList<EntryChange> ListDiff::diff()
{
    if (m_lists.keysBefore != m_lists.keysAfter) {
        addRemoved();
    }
    addPresent();
    std::ranges::stable_sort(m_changes, {}, &EntryChange::row);
    return std::move(m_changes);
}

void ListDiff::addRemoved()
{
    const Places present(m_lists.keysAfter);
    for (int i = 0; i < int(m_lists.keysBefore.size()); ++i) {
        if (present.of(m_lists.keysBefore[std::size_t(i)]) < 0) {
            const EntryChange removed{.kind = EntryChange::Kind::Removed,
                .key = m_lists.before.key(i),
                .values = m_lists.before.values(i),
                .row = i + 1};
            m_changes.append(removed);
        }
    }
}

void ListDiff::addPresent()
{
    const std::vector<bool> isUnmoved = unmovedKeys(m_lists.keysBefore, m_lists.keysAfter);
    for (int row = 0; row < int(m_lists.keysAfter.size()); ++row) {
        const int place = m_places.of(m_lists.keysAfter[std::size_t(row)]);
        if (place >= 0 && isUnmoved[std::size_t(row)] && m_lists.isSame(place, row)) {
            continue;
        }
        const EntryChange change = changeOf(row, place, isUnmoved[std::size_t(row)]);
        if (place < 0 || change.isMoved || !change.changes.isEmpty()) {
            m_changes.append(change);
        }
    }
}

/// row: in the new list; place: in the old one, negative for an entry that was added.
EntryChange ListDiff::changeOf(int row, int place, bool isUnmoved) const
{
    EntryChange change{.key = keyOf(row), .row = row + 1};
    if (place < 0) {
        change.kind = EntryChange::Kind::Added;
        change.values = m_lists.after.values(row);
    } else {
        change.isMoved = !isUnmoved;
        change.changes = changesOf(place, row);
    }
    if ((place < 0 || change.isMoved) && row > 0) {
        change.predecessor = keyOf(row - 1);
    }
    return change;
}

/// The key of one of the new entries, as the old list spells it.
EntryKey ListDiff::keyOf(int row) const
{
    const int place = m_places.of(m_lists.keysAfter[std::size_t(row)]);
    return place < 0 ? m_lists.after.key(row) : m_lists.before.key(place);
}

bool ListDiff::hasField(int field) const
{
    const QLatin1StringView name = m_info.fields[std::size_t(field)].name;
    return m_options.fields.isEmpty() || m_options.fields.contains(name);
}

QList<ValueChange> ListDiff::changesOf(int before, int after) const
{
    QList<ValueChange> changes;
    if (m_lists.isSame(before, after)) {
        return changes;
    }
    const QStringList olds = m_lists.before.values(before);
    const QStringList news = m_lists.after.values(after);
    for (int field = 0; field < int(m_info.fields.size()); ++field) {
        const FieldKind kind = m_options.isExact ? FieldKind::Text : m_info.fields[std::size_t(field)].kind;
        if (hasField(field) && !isSameValue(kind, olds[field], news[field])) {
            changes.append({field, olds[field], news[field]});
        }
    }
    return changes;
}

} // namespace

QList<EntryChange> diffLists(const SheetPartInfo &info, const ListPair &lists, const DiffOptions &options)
{
    return ListDiff(info, lists, options).diff();
}

std::vector<bool> unmovedKeys(const std::vector<int> &before, const std::vector<int> &after)
{
    if (before == after) {
        return std::vector<bool>(after.size(), true);
    }
    const Places places(before);
    QList<int> common;
    std::vector<std::size_t> owners;
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (const int place = places.of(after[i]); place >= 0) {
            common.append(place);
            owners.push_back(i);
        }
    }
    const std::vector<bool> isMember = longestAscending(common);
    std::vector<bool> isUnmoved(after.size());
    for (std::size_t i = 0; i < owners.size(); ++i) {
        isUnmoved[owners[i]] = isMember[i];
    }
    return isUnmoved;
}
