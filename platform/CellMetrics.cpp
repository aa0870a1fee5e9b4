#include "platform/CellMetrics.h"

int CellMetrics::rowHeight(const QFontMetrics &metrics, QStringView text)
{
    const qsizetype breaks = text.count(u'\n') + text.count(u'\r') - text.count(u"\r\n");
    return metrics.height() + int(breaks) * metrics.lineSpacing() + extraHeight;
}
