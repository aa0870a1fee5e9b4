#include "tool/MergeOrder.h"

#include "runtime/NumberText.h"
#include "tool/SheetDiff.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <vector>

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

/// The entries that both sides have in one gap, but in different orders: the fewest, so that it makes no difference for
/// how many there are which side is which.
KeySet reordered(const Keys &ours, const Keys &theirs)
{
    const KeySet common(theirs.begin(), theirs.end());
    const std::vector<bool> isUnmoved = unmovedEntries(theirs, ours);
    KeySet found;
    for (qsizetype i = 0; i < ours.size(); ++i) {
        if (!isUnmoved[std::size_t(i)] && common.contains(ours[i])) {
            found.insert(ours[i]);
        }
    }
    return found;
}

/// Puts what both sides have in one gap into one list. Each side's order is kept, but for their side's of what is a
/// conflict.
void mergeGap(const Keys &ours, Keys theirs, MergedOrder &order)
{
    if (ours.isEmpty() || theirs.isEmpty()) {
        order.keys += ours + theirs;
        return;
    }
    const KeySet conflicts = reordered(ours, theirs);
    std::ranges::copy_if(
        ours, std::back_inserter(order.conflicts), [&](const EntryKey &key) { return conflicts.contains(key); });
    theirs.removeIf([&](const EntryKey &key) { return conflicts.contains(key); });
    const KeySet inOurs(ours.begin(), ours.end());
    const KeySet inTheirs(theirs.begin(), theirs.end());
    auto our = ours.begin();
    auto their = theirs.cbegin();
    while (our != ours.end() && their != theirs.cend()) {
        if (*our == *their) {
            order.keys.append(*our++);
            ++their;
        } else if (inOurs.contains(*their) || (!inTheirs.contains(*our) && isBefore(*our, *their))) {
            order.keys.append(*our++);
        } else {
            order.keys.append(*their++);
        }
    }
    std::copy(our, ours.end(), std::back_inserter(order.keys));
    std::copy(their, theirs.cend(), std::back_inserter(order.keys));
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
