#pragma once

#include <QRect>
#include <QString>
#include <QStringView>

/// The part of a text that is visible in a cell, so that the font engine need not lay out the rest: a text from a file
/// may have millions of characters. A text that is short enough for any cell is returned as it is.
namespace VisibleText {

/// The part of a one-line text that is visible in that many pixels: its beginning, or its end or middle if it is
/// aligned right or centred.
QStringView ofLine(QStringView text, int pixels, Qt::Alignment alignment);

/// Some lines of a text, and where the first of them is drawn.
struct Lines
{
    QString text;
    int top = 0; ///< pixels
};

/// The lines of a text that are visible in window, if the text is centred vertically in cell. Both are in the same
/// coordinates.
Lines ofLines(QStringView text, const QRect &cell, const QRect &window, int lineHeight, Qt::Alignment alignment);

/// Whether a text of several lines is so long that ofLines() saves time.
bool isManyLines(QStringView text);

/// The beginning of a text that is too long to be read, with an ellipsis; a shorter text as it is.
QString beginning(QStringView text);

} // namespace VisibleText
