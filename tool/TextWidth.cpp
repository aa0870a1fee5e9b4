#include "tool/TextWidth.h"

#include <QList>

#include <algorithm>
#include <iterator>

namespace {

struct CodeRange
{
    char32_t first;
    char32_t last;
};

/// Kana, kanji, full-width forms and what else fills two columns
constexpr CodeRange wide[] = {{0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0x33FF}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF},
    {0xA000, 0xA4CF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE30, 0xFE4F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6},
    {0x20000, 0x3FFFD}};

int widthOf(char32_t character)
{
    const auto category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || category == QChar::Other_Control) {
        return 0;
    }
    const bool isWide = std::ranges::any_of(
        wide, [character](const CodeRange &range) { return range.first <= character && character <= range.last; });
    return isWide ? 2 : 1;
}

} // namespace

int textWidth(QStringView text)
{
    int width = 0;
    for (const uint character : text.toUcs4()) {
        width += widthOf(character);
    }
    return width;
}

QString paddedText(const QString &text, int width)
{
    return text + QString(std::max(0, width - textWidth(text)), u' ');
}
