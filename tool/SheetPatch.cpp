#include "tool/SheetPatch.h"

#include <QHash>

#include <list>

using namespace Qt::StringLiterals;

namespace {

/// Makes the changes in one part of a sheet.
class PartPatch
{
public:
    PartPatch(const SheetPartInfo &info, const QList<SheetEntry> &entries, bool isExact, QList<Rejection> &rejections);

    void apply(const QList<EntryChange> &changes);
    QList<SheetEntry> entries() const;

private:
    using Place = std::list<SheetEntry>::iterator;

    void remove(const EntryChange &change);
    void change(const EntryChange &change);
    void put(const EntryChange &change);
    bool isSame(int field, const QString &left, const QString &right) const;
    std::optional<int> differingField(const SheetEntry &entry, const EntryChange &change) const;
    void reject(const EntryChange &change, ToolText reason, const QStringList &arguments = {});

    const SheetPartInfo &m_info;
    bool m_isExact;
    QList<Rejection> &m_rejections;
    std::list<SheetEntry> m_entries;
    QHash<EntryKey, Place> m_places;
};

PartPatch::PartPatch(
    const SheetPartInfo &info, const QList<SheetEntry> &entries, bool isExact, QList<Rejection> &rejections)
    : m_info(info), m_isExact(isExact), m_rejections(rejections), m_entries(entries.begin(), entries.end())
{
    m_places.reserve(entries.size());
    for (auto place = m_entries.begin(); place != m_entries.end(); ++place) {
        m_places.insert(place->key, place);
    }
}

/// An entry follows its predecessor, which has its own place by then: the changes are in the order of the new list.
void PartPatch::apply(const QList<EntryChange> &changes)
{
    for (const EntryChange &one : changes) {
        if (one.kind == EntryChange::Kind::Removed) {
            remove(one);
        } else if (one.kind == EntryChange::Kind::Kept) {
            change(one);
        }
    }
    for (const EntryChange &one : changes) {
        if (one.kind == EntryChange::Kind::Added || one.isMoved) {
            put(one);
        }
    }
}

QList<SheetEntry> PartPatch::entries() const
{
    QList<SheetEntry> entries(m_entries.begin(), m_entries.end());
    countOccurrences(entries);
    return entries;
}

void PartPatch::remove(const EntryChange &change)
{
    const auto place = m_places.constFind(change.key);
    if (place == m_places.cend()) {
        reject(change, ToolText::RejectMissing);
    } else if (const auto field = differingField(**place, change)) {
        reject(change, ToolText::RejectOtherValue,
            {m_info.fields[std::size_t(*field)].name, change.values[*field], (*place)->values[*field]});
    } else {
        m_entries.erase(*place);
        m_places.erase(place);
    }
}

void PartPatch::change(const EntryChange &change)
{
    const auto place = m_places.constFind(change.key);
    if (place == m_places.cend()) {
        reject(change, ToolText::RejectMissing);
        return;
    }
    for (const ValueChange &value : change.changes) {
        QString &present = (*place)->values[value.field];
        if (isSame(value.field, present, value.before)) {
            present = value.after;
        } else if (!isSame(value.field, present, value.after)) {
            reject(change, ToolText::RejectOtherValue,
                {m_info.fields[std::size_t(value.field)].name, value.before, present});
        }
    }
}

void PartPatch::put(const EntryChange &change)
{
    const auto known = m_places.constFind(change.key);
    const bool isThere = known != m_places.cend();
    const bool isAdded = change.kind == EntryChange::Kind::Added;
    if (isThere == isAdded) { // a move of what is not there has been rejected already
        if (isAdded && differingField(**known, change)) {
            reject(change, ToolText::RejectPresent);
        }
        return;
    }
    auto next = m_entries.begin();
    if (change.predecessor) {
        const auto predecessor = m_places.constFind(*change.predecessor);
        next = predecessor == m_places.cend() ? m_entries.end() : std::next(*predecessor);
        if (predecessor == m_places.cend()) {
            reject(change, ToolText::RejectNoPredecessor, {change.predecessor->text});
        }
    }
    if (isAdded) {
        m_places.insert(change.key, m_entries.insert(next, SheetEntry{change.key, change.values}));
    } else if (next != *known) {
        m_entries.splice(next, m_entries, *known);
    }
}

bool PartPatch::isSame(int field, const QString &left, const QString &right) const
{
    return isSameValue(m_isExact ? FieldKind::Text : m_info.fields[std::size_t(field)].kind, left, right);
}

/// The first field in which the entry has another value than the added or removed one.
std::optional<int> PartPatch::differingField(const SheetEntry &entry, const EntryChange &change) const
{
    for (int field = 0; field < int(m_info.fields.size()); ++field) {
        if (!isSame(field, entry.values[field], change.values[field])) {
            return field;
        }
    }
    return std::nullopt;
}

void PartPatch::reject(const EntryChange &change, ToolText reason, const QStringList &arguments)
{
    m_rejections.append({m_info.part, change.key, reason, arguments});
}

} // namespace

PatchedSheet patchSheet(const Sheet &sheet, const SheetDiff &diff, bool isExact)
{
    PatchedSheet patched{sheet, {}};
    for (const SheetPartInfo &info : sheetParts()) {
        PartPatch part(info, sheet.part(info.part), isExact, patched.rejections);
        part.apply(diff.parts.at(std::size_t(info.part)));
        patched.sheet.part(info.part) = part.entries();
    }
    return patched;
}
