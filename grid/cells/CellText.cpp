#include "grid/cells/CellText.h"

#include "grid/cells/LineEnds.h"
#include "runtime/NumberText.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar ellipsis = u'\u2026';

/// The first lines of a text, at most that many; a line ends with CR LF, CR or LF.
QList<QStringView> firstLines(QStringView text, qsizetype maxLines)
{
    QList<QStringView> lines;
    while (lines.size() < maxLines) {
        const qsizetype length = LineEnds::first(text);
        lines << text.first(length);
        if (length == text.size()) {
            break;
        }
        text = text.sliced(length + (text.sliced(length).startsWith("\r\n"_L1) ? 2 : 1));
    }
    return lines;
}

QString hashMarks(const QFontMetrics &metrics, int width)
{
    return QString(std::max(width / std::max(metrics.horizontalAdvance(u'#'), 1), 1), u'#');
}

/// The space after the last letter may reach into the cell's margin.
constexpr int slack = 1;

/// A line that has more characters than pixels is cut before it is measured.
QString shownLine(QStringView line, const QFontMetrics &metrics, int width)
{
    const bool isEndless = line.size() > width;
    QString measured = isEndless ? line.first(width).toString() + ellipsis : line.toString();
    if (!isEndless && metrics.horizontalAdvance(measured) <= width + slack) {
        return measured;
    }
    return metrics.elidedText(measured, Qt::ElideRight, width);
}

QString shownLines(QStringView text, const QFontMetrics &metrics, const QSize &available)
{
    const int maxLines = std::max((available.height() + metrics.leading()) / metrics.lineSpacing(), 1);
    const QList<QStringView> lines = firstLines(text, maxLines + 1);
    QStringList shown;
    for (qsizetype i = 0; i < std::min<qsizetype>(lines.size(), maxLines); ++i) {
        const bool isCutBelow = i == maxLines - 1 && lines.size() > maxLines;
        shown << shownLine(isCutBelow ? lines[i].toString() + ellipsis : lines[i], metrics, available.width());
    }
    return shown.join(u'\n');
}

} // namespace

QString shownCellText(QStringView text, const QFontMetrics &metrics, const QSize &available)
{
    const int width = std::max(available.width(), 1);
    if (LineEnds::areIn(text)) {
        return shownLines(text, metrics, {width, available.height()});
    }
    QString shown = shownLine(text, metrics, width);
    return shown != text && isNumeric(text.toString()) ? hashMarks(metrics, width) : shown;
}
