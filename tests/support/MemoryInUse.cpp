#include "tests/support/MemoryInUse.h"

#include <algorithm>

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own; its header does not come with every compiler.
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#else
#include <malloc.h>
#endif

qint64 bytesInUse()
{
#if defined(__SANITIZE_ADDRESS__)
    return qint64(__sanitizer_get_current_allocated_bytes()); // the system's heap is not used then
#elif defined(Q_OS_WIN)
    qint64 bytes = 0;
    _HEAPINFO entry{};
    while (_heapwalk(&entry) == _HEAPOK) {
        bytes += entry._useflag == _USEDENTRY ? qint64(entry._size) : 0;
    }
    return bytes;
#else
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
#endif
}

double growthPerEntry(const QList<qint64> &values)
{
    const double middle = double(values.size() - 1) / 2;
    double product = 0;
    double square = 0;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const double distance = double(i) - middle;
        product += distance * double(values[i] - values.first());
        square += distance * distance;
    }
    return square > 0 ? product / square : 0;
}

double medianGrowth(const QList<qint64> &values)
{
    QList<qint64> steps;
    for (qsizetype i = 1; i < values.size(); ++i) {
        steps << values[i] - values[i - 1];
    }
    std::sort(steps.begin(), steps.end());
    return steps.isEmpty() ? 0 : double(steps[steps.size() / 2]);
}

QList<qint64> leastOfEvery(int many, const QList<qint64> &values)
{
    QList<qint64> least;
    for (qsizetype next = many; next <= values.size(); next += many) {
        least << *std::min_element(values.begin() + next - many, values.begin() + next);
    }
    return least;
}
