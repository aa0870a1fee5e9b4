#include "check/FirstRows.h"

#include <algorithm>
#include <string_view>

namespace {

/// Char: char or char16_t
template <typename Char>
int smallNumberOf(std::basic_string_view<Char> text)
{
    constexpr std::size_t mostDigits = 5;
    if (text.empty() || text.size() > mostDigits || (text.front() == Char('0') && text.size() > 1)) {
        return -1;
    }
    int number = 0;
    for (const Char digit : text) {
        if (digit < Char('0') || digit > Char('9')) {
            return -1;
        }
        number = number * 10 + int(digit - Char('0'));
    }
    return number;
}

} // namespace

int smallNumber(QByteArrayView text)
{
    return smallNumberOf(std::string_view(text.data(), std::size_t(text.size())));
}

int smallNumber(QStringView text)
{
    return smallNumberOf(std::u16string_view(text.utf16(), std::size_t(text.size())));
}

void FirstRows::enter(int number, int row)
{
    const auto index = std::size_t(number);
    if (index >= m_small.size()) {
        m_small.resize(std::max(index + 1, m_small.size() * 2), -1);
    }
    if (m_small[index] < 0) {
        m_small[index] = row;
    }
}

void FirstRows::enter(const QString &text, int row)
{
    if (const int number = smallNumber(text); number >= 0) {
        enter(number, row);
    } else if (!m_others.contains(text)) {
        m_others.insert(text, row);
    }
}

int FirstRows::rowOf(const QString &text) const
{
    const int number = smallNumber(text);
    return number >= 0 ? rowOf(number) : m_others.value(text, -1);
}
