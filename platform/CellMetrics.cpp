#include "platform/CellMetrics.h"

#include "platform/LineEnds.h"

int CellMetrics::rowHeight(const QFontMetrics &metrics, QStringView text)
{
    return metrics.height() + int(LineEnds::count(text)) * metrics.lineSpacing() + extraHeight;
}
