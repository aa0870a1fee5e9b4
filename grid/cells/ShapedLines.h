#pragma once

#include "grid/cells/NumberShapes.h"
#include "grid/cells/ShapedLine.h"

#include <QFont>
#include <QHash>
#include <QString>
#include <QStringView>

/// Lines of text in one font that remembers how they are laid out: that takes as long as drawing them, and few texts of
/// a page were never shown before.
class ShapedLines
{
public:
    void setFont(const QFont &font);

    /// Whether of() is for the text: it is short, and of characters that are drawn where they are written, without a
    /// line below or through them. Spaces at its ends count for some alignments and not for others.
    bool has(QStringView text) const;
    /// Valid until the next call.
    const ShapedLine &of(QStringView text);
    /// How many are remembered.
    qsizetype count() const { return m_recent.size() + m_former.size(); }

private:
    QFont m_font;
    bool m_isPlain = false; ///< whether m_font is: slanted or bold letters that a font lacks are made, and not as here
    NumberShapes m_numbers;
    QHash<QString, ShapedLine> m_recent;
    QHash<QString, ShapedLine> m_former; ///< what was recent before that became too many
};
