#pragma once

#include "grid/cells/ShapedLines.h"

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>
#include <QStringView>

class QPainter;
class QRect;

/// Draws the texts of cells as QPainter::drawText() does, to the pixel, but lays none of them out twice.
class ShapedTexts
{
public:
    /// Draws what a cell shows of its text (see shownCellText()), centred vertically, in the painter's font and pen.
    /// Draws nothing and returns false if the text is not one short line of ordinary characters.
    bool draw(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text);
    /// How many texts are remembered.
    qsizetype count() const { return m_lines.count() + m_cuts.size(); }

private:
    /// What is shown of a text in a cell of that size, into which it does not fit.
    struct Cut
    {
        QString text;
        QSize available;
    };

    void takeFont(const QPainter &painter);
    bool drawLine(QPainter &painter, const QRect &rect, Qt::Alignment alignment, QStringView text);
    const QString &cutText(QStringView text, const QSize &available);

    QFont m_font;
    int m_dotsPerInch = 0;
    ShapedLines m_lines;
    QHash<QString, Cut> m_cuts;
};
