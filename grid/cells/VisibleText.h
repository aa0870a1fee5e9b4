#pragma once

#include <QRect>
#include <QString>
#include <QStringView>

/// What of a text can be seen in a cell, so that the font engine need not lay out the rest: a text from a file may have
/// millions of characters. A text that is short enough for any cell comes back as it is.
namespace VisibleText {

/// What can be seen of a text of one line in so many pixels: its beginning; its end or its middle when the alignment
/// (horizontal flags) shows that.
QStringView ofLine(QStringView text, int pixels, Qt::Alignment alignment);

/// Lines of a text, and where their first one stands.
struct Lines
{
    QString text;
    int top = 0; ///< pixels
};

/// What can be seen in the part called window of a text of several lines that is centred in height in cell; window and
/// cell have the same coordinates.
Lines ofLines(QStringView text, const QRect &cell, const QRect &window, int lineHeight, Qt::Alignment alignment);

/// Whether a text of several lines has so many characters that ofLines() is worth its time.
bool isManyLines(QStringView text);

/// The beginning of a text where more could not be read anyway, with an ellipsis; a shorter text as it is.
QString beginning(QStringView text);

} // namespace VisibleText
