#include "grid/cells/ShapedLines.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype maxLength = 64;
constexpr qsizetype maxRecent = 1024; ///< some pages; less than a megabyte

/// No control character, nothing that is written from right to left, and no half of a pair.
bool isOrdinary(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= 0x20 && unit < 0x7F) || (unit > 0xA0 && unit < 0x0590 && unit != 0xAD)
        || (unit >= 0x2010 && unit < 0x2028) || (unit >= 0x2070 && unit < 0xD800) || (unit >= 0xFF01 && unit <= 0xFFEE);
}

} // namespace

void ShapedLines::setFont(const QFont &font)
{
    m_font = font;
    m_isPlain = !font.underline() && !font.overline() && !font.strikeOut() && !font.italic() && !font.bold();
    m_numbers.setFont(font);
    m_recent.clear();
    m_former.clear();
}

bool ShapedLines::has(QStringView text) const
{
    return m_isPlain && !text.isEmpty() && text.size() <= maxLength && !text.front().isSpace() && !text.back().isSpace()
        && std::ranges::all_of(text, isOrdinary);
}

const ShapedLine &ShapedLines::of(QStringView text)
{
    if (m_numbers.has(text)) {
        return m_numbers.of(text);
    }
    const QString key = QString::fromRawData(text.data(), text.size());
    if (const auto found = m_recent.constFind(key); found != m_recent.cend()) {
        return *found;
    }
    if (m_recent.size() >= maxRecent) {
        m_former = std::exchange(m_recent, {});
    }
    const QString kept = text.toString();
    const auto former = m_former.constFind(key);
    return *m_recent.insert(kept, former != m_former.cend() ? *former : ShapedLine::of(kept, m_font));
}
