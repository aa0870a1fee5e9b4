#pragma once

#include <QList>

/// The bytes of the heap that are in use. What the allocator has back, and keeps for the next, does not count.
qint64 bytesInUse();

/// How much a value grows from one entry to the next: the slope of the straight line that fits best. 0 below two.
double growthPerEntry(const QList<qint64> &values);

/// The median of the steps from one entry to the next: what happens once, up or down, does not count. 0 below two.
double medianGrowth(const QList<qint64> &values);

/// The least of every so many values; what is left over at the end is left out.
QList<qint64> leastOfEvery(int many, const QList<qint64> &values);
