#include "check/FirstRows.h"

#include "runtime/Digits.h"

#include <algorithm>

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
