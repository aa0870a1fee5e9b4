#pragma once

#include <QFontMetrics>
#include <QSize>
#include <QString>

/// What a cell shows of its text where it has less room than the text needs, so that a part never passes for the whole:
/// a line that is too wide ends in an ellipsis, and so does the last line that is shown when there are more of them.
/// A number shows no digit of itself but hash marks.
QString shownCellText(QStringView text, const QFontMetrics &metrics, const QSize &available);
