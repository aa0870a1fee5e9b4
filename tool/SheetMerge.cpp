#include "tool/SheetMerge.h"

#include "tool/MergeOrder.h"

#include <QHash>

#include <algorithm>

namespace {

using Entries = QHash<EntryKey, const SheetEntry *>;

Entries entriesByKey(const QList<SheetEntry> &list)
{
    Entries entries;
    entries.reserve(list.size());
    for (const SheetEntry &entry : list) {
        entries.insert(entry.key, &entry);
    }
    return entries;
}

/// Merges one part of three sheets.
class PartMerge
{
public:
    PartMerge(
        SheetPart part, const Sheet &base, const Sheet &ours, const Sheet &theirs, QList<MergeConflict> &conflicts);

    QList<SheetEntry> merge();

private:
    void mergeEntry(const EntryKey &key);
    bool isKeptByOne(const SheetEntry *base, const SheetEntry *ours, const SheetEntry *theirs);
    SheetEntry mergedValues(const SheetEntry *base, const SheetEntry &ours, const SheetEntry &theirs);
    QList<EntryKey> keptKeys(const QList<SheetEntry> &list) const;

    SheetPart m_part;
    const QList<SheetEntry> &m_base;
    const QList<SheetEntry> &m_ours;
    const QList<SheetEntry> &m_theirs;
    Entries m_inBase;
    Entries m_inOurs;
    Entries m_inTheirs;
    QHash<EntryKey, SheetEntry> m_kept;
    QList<MergeConflict> &m_conflicts;
};

PartMerge::PartMerge(
    SheetPart part, const Sheet &base, const Sheet &ours, const Sheet &theirs, QList<MergeConflict> &conflicts)
    : m_part(part)
    , m_base(base.part(part))
    , m_ours(ours.part(part))
    , m_theirs(theirs.part(part))
    , m_inBase(entriesByKey(m_base))
    , m_inOurs(entriesByKey(m_ours))
    , m_inTheirs(entriesByKey(m_theirs))
    , m_conflicts(conflicts)
{
}

QList<SheetEntry> PartMerge::merge()
{
    for (const SheetEntry &entry : m_ours) {
        mergeEntry(entry.key);
    }
    for (const SheetEntry &entry : m_theirs) {
        if (!m_inOurs.contains(entry.key)) {
            mergeEntry(entry.key);
        }
    }
    const MergedOrder order = mergeOrder(keptKeys(m_base), keptKeys(m_ours), keptKeys(m_theirs));
    for (const EntryKey &key : order.conflicts) {
        m_conflicts.append({MergeConflict::Kind::Order, m_part, key});
    }
    QList<SheetEntry> merged;
    merged.reserve(order.keys.size());
    for (const EntryKey &key : order.keys) {
        merged.append(m_kept[key]);
    }
    countOccurrences(merged);
    return merged;
}

/// key: of an entry that one side has at least.
void PartMerge::mergeEntry(const EntryKey &key)
{
    const SheetEntry *base = m_inBase.value(key);
    const SheetEntry *ours = m_inOurs.value(key);
    const SheetEntry *theirs = m_inTheirs.value(key);
    if (ours != nullptr && theirs != nullptr) {
        m_kept.insert(key, mergedValues(base, *ours, *theirs));
    } else if (isKeptByOne(base, ours, theirs)) {
        m_kept.insert(key, ours != nullptr ? *ours : *theirs);
    }
}

/// Whether an entry stays that only one side has: it added it, or changed what the other removed.
bool PartMerge::isKeptByOne(const SheetEntry *base, const SheetEntry *ours, const SheetEntry *theirs)
{
    const SheetEntry &entry = ours != nullptr ? *ours : *theirs;
    if (base == nullptr || *base == entry) {
        return base == nullptr;
    }
    const auto kind = ours != nullptr ? MergeConflict::Kind::RemovedByThem : MergeConflict::Kind::RemovedByUs;
    m_conflicts.append({kind, m_part, entry.key});
    return ours != nullptr;
}

SheetEntry PartMerge::mergedValues(const SheetEntry *base, const SheetEntry &ours, const SheetEntry &theirs)
{
    SheetEntry merged = ours;
    for (qsizetype field = 0; field < ours.values.size(); ++field) {
        const QString before = base != nullptr ? base->values[field] : QString();
        const QString &our = ours.values[field];
        const QString &their = theirs.values[field];
        if (base != nullptr && our == before) {
            merged.values[field] = their;
        } else if (our != their && (base == nullptr || their != before)) {
            m_conflicts.append({MergeConflict::Kind::Value, m_part, ours.key, int(field), before, our, their});
        }
    }
    return merged;
}

QList<EntryKey> PartMerge::keptKeys(const QList<SheetEntry> &list) const
{
    QList<EntryKey> keys;
    for (const SheetEntry &entry : list) {
        if (m_kept.contains(entry.key)) {
            keys.append(entry.key);
        }
    }
    return keys;
}

} // namespace

MergedSheet mergeSheets(const Sheet &base, const Sheet &ours, const Sheet &theirs)
{
    MergedSheet merged;
    merged.sheet.codePage = ours.codePage;
    for (const SheetPartInfo &info : sheetParts()) {
        merged.sheet.part(info.part) = PartMerge(info.part, base, ours, theirs, merged.conflicts).merge();
    }
    return merged;
}
