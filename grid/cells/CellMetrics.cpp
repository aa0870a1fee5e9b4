#include "grid/cells/CellMetrics.h"

#include "grid/cells/LineEnds.h"

int CellMetrics::rowHeight(const QFontMetrics &metrics, QStringView text)
{
    return metrics.height() + int(LineEnds::count(text)) * metrics.lineSpacing() + extraHeight;
}
