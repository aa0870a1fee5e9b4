#include "tool/MergeOrder.h"

#include "runtime/NumberText.h"
#include "tool/SheetDiff.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

using Keys = QList<EntryKey>;
using KeySet = QSet<EntryKey>;

/// What one side put into a gap: after an entry that neither side moved; -1 is the beginning.
struct Side
{
    Side(const Keys &base, const Keys &own);

    void findGaps(const QHash<EntryKey, int> &spine);

    const Keys &keys;
    KeySet all;
    KeySet placed; ///< the entries that this side moved or added
    QHash<int, Keys> gaps; ///< by index into the spine
    QHash<EntryKey, int> gapOf;
};

Side::Side(const Keys &base, const Keys &own) : keys(own), all(own.begin(), own.end())
{
    const std::vector<bool> isUnmoved = unmovedEntries(base, own);
    for (qsizetype i = 0; i < own.size(); ++i) {
        if (!isUnmoved[std::size_t(i)]) {
            placed.insert(own[i]);
        }
    }
}

void Side::findGaps(const QHash<EntryKey, int> &spine)
{
    int gap = -1;
    for (const EntryKey &key : keys) {
        gap = spine.value(key, gap);
        if (placed.contains(key)) {
            gaps[gap].append(key);
            gapOf.insert(key, gap);
        }
    }
}

/// Numbers before texts, each in ascending order: which of two sides an entry came from makes no difference.
bool isBefore(const EntryKey &left, const EntryKey &right)
{
    const auto leftValue = numericValue(left.text);
    const auto rightValue = numericValue(right.text);
    if (leftValue && rightValue && *leftValue != *rightValue) {
        return *leftValue < *rightValue;
    }
    if (leftValue.has_value() != rightValue.has_value()) {
        return leftValue.has_value();
    }
    return left.text != right.text ? left.text < right.text : left.occurrence < right.occurrence;
}

/// Puts what both sides have in one gap into one list. Each side's order is kept; common entries that the sides have in
/// different orders are conflicts.
void mergeGap(Keys ours, Keys theirs, MergedOrder &order)
{
    while (!ours.isEmpty() && !theirs.isEmpty()) {
        const EntryKey our = ours.first();
        const EntryKey their = theirs.first();
        if (our == their) {
            order.keys.append(our);
            ours.removeFirst();
            theirs.removeFirst();
            continue;
        }
        const bool isOurCommon = theirs.contains(our);
        const bool isTheirCommon = ours.contains(their);
        if (isOurCommon && isTheirCommon) {
            order.conflicts.append(our);
            theirs.removeOne(our);
            order.keys.append(ours.takeFirst());
        } else if (isTheirCommon || (!isOurCommon && isBefore(our, their))) {
            order.keys.append(ours.takeFirst());
        } else {
            order.keys.append(theirs.takeFirst());
        }
    }
    order.keys += ours + theirs;
}

} // namespace

MergedOrder mergeOrder(const Keys &base, const Keys &ours, const Keys &theirs)
{
    Side our(base, ours);
    Side their(base, theirs);
    Keys spine;
    QHash<EntryKey, int> places;
    for (const EntryKey &key : base) {
        if (!our.placed.contains(key) && !their.placed.contains(key)) {
            places.insert(key, int(spine.size()));
            spine.append(key);
        }
    }
    our.findGaps(places);
    their.findGaps(places);
    MergedOrder order;
    for (const EntryKey &key : theirs) {
        if (their.gapOf.contains(key) && our.gapOf.contains(key) && our.gapOf[key] != their.gapOf[key]) {
            order.conflicts.append(key);
            their.gaps[their.gapOf[key]].removeOne(key);
        }
    }
    for (int gap = -1; gap < int(spine.size()); ++gap) {
        if (gap >= 0) {
            order.keys.append(spine[gap]);
        }
        mergeGap(our.gaps.value(gap), their.gaps.value(gap), order);
    }
    return order;
}
