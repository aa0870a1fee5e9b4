#pragma once

#include "grid/cells/NumberShapes.h"
#include "grid/cells/ShapedLine.h"

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>
#include <QStringView>

class QPainter;
class QRect;

/// Draws the texts of cells as QPainter::drawText() does, to the pixel, but remembers how they are laid out: that takes
/// as long as drawing them, and few texts of a page were never shown before.
class ShapedTexts
{
public:
    /// Draws what a cell shows of its text (see shownCellText()), centred vertically, in the painter's font and pen.
    /// Draws nothing and returns false if the text is not one short line of ordinary characters.
    bool draw(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text);
    /// How many texts are remembered.
    qsizetype count() const { return m_recent.size() + m_former.size(); }

private:
    struct Shaped
    {
        ShapedLine line;
        QString cut; ///< what is shown in a cell of the size cutFor, into which the line does not fit
        QSize cutFor;
    };

    void takeFont(const QPainter &painter);
    /// Valid until the next call.
    Shaped &shaped(QStringView text);
    QString cutText(QStringView text, const QSize &available);
    bool drawNumber(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text);
    static bool drawLine(QPainter &painter, const QRect &rect, Qt::Alignment alignment, const ShapedLine &line);

    QFont m_font;
    int m_dotsPerInch = 0;
    NumberShapes m_numbers;
    QHash<QString, Shaped> m_recent;
    QHash<QString, Shaped> m_former; ///< what was recent before that became too many
};
