#pragma once

#include <QFontMetrics>
#include <QSize>
#include <QString>

/// What a cell of the available size shows of its text, so that a part of it is never taken for the whole: a line that
/// is too wide ends in an ellipsis, and so does the last line shown if there are more. A number that does not fit is
/// shown as hash marks.
QString shownCellText(QStringView text, const QFontMetrics &metrics, const QSize &available);
