#pragma once

#include "grid/cells/ShapedLines.h"

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QString>

#include <array>

class QPainter;
class QTextLayout;

/// Measures and draws texts in one font on one paper. Lengths are in the paper's device units.
class PaperText
{
public:
    PaperText(const QFont &font, QPaintDevice &paper);

    const QFont &font() const { return m_font; }
    double lineHeight() const { return m_metrics.lineSpacing(); }
    double ascent() const { return m_metrics.ascent(); }
    /// Width of a digit.
    double characterWidth() const { return m_characterWidth; }
    double width(const QString &text) const { return m_metrics.horizontalAdvance(text); }

    /// How many lines the text takes when it is wrapped to that width; line breaks in it count. At least 1.
    int lineCount(const QString &text, double width) const;
    /// True if the text certainly takes one line. This is quicker than lineCount(), and most texts do.
    bool isShort(QStringView text, double width) const;

    /// Draws the text wrapped to the area's width. What does not fit into its height is cut off, with an ellipsis.
    void draw(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &text) const;

private:
    double withTolerance(double width) const { return width + m_characterWidth / 4; }
    void layOut(QTextLayout &layout, double width) const;
    QString cutLine(QStringView rest, double width) const;
    bool drawShaped(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &text) const;
    void drawLines(QPainter &painter, const QRectF &area, Qt::Alignment alignment, const QString &text) const;

    QFont m_font;
    QPaintDevice *m_paper;
    QFontMetricsF m_metrics;
    double m_characterWidth;
    qsizetype m_maxUnits; ///< how many units of a text are laid out
    double m_widestCharacter;
    std::array<double, 128> m_asciiWidths; ///< a control character counts as the widest character
    mutable ShapedLines m_lines;
};
