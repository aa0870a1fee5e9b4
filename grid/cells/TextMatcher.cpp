#include "grid/cells/TextMatcher.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr qsizetype blockSize = 8; ///< units that a processor's register takes
using Block = std::array<quint16, blockSize>;
using Folding = std::pair<char32_t, char16_t>;

/// All units that are another one without regard to case, that one first.
const std::vector<Folding> &foldings()
{
    static const std::vector<Folding> all = [] {
        std::vector<Folding> found;
        for (char32_t unit = 0; unit <= std::numeric_limits<char16_t>::max(); ++unit) {
            const char32_t folded = QChar::toCaseFolded(unit);
            if (folded != unit) {
                found.emplace_back(folded, char16_t(unit));
            }
        }
        std::ranges::sort(found);
        return found;
    }();
    return all;
}

/// The second unit of a pair stands for a character only together with the first one.
bool isSecondOfPair(const QString &text, qsizetype at)
{
    return at > 0 && text[at].isLowSurrogate() && text[at - 1].isHighSurrogate();
}

} // namespace

TextMatcher::Spellings TextMatcher::spellingsOf(char16_t unit)
{
    const char32_t folded = QChar::toCaseFolded(char32_t(unit));
    Spellings spellings;
    spellings.fill(char16_t(folded));
    const auto begin = std::ranges::lower_bound(foldings(), folded, {}, &Folding::first);
    const auto end = std::ranges::upper_bound(begin, foldings().end(), folded, {}, &Folding::first);
    Q_ASSERT(std::size_t(end - begin) < spellings.size());
    std::ranges::transform(begin, end, spellings.begin() + 1, &Folding::second);
    return spellings;
}

void TextMatcher::setPattern(const QString &pattern)
{
    m_matcher.setPattern(pattern);
    m_isEmpty = pattern.isEmpty();
    if (!m_isEmpty) {
        m_distance = pattern.size() - 1;
        m_distance -= isSecondOfPair(pattern, m_distance) ? 1 : 0;
        m_first = spellingsOf(pattern.front().unicode());
        m_last = spellingsOf(pattern[m_distance].unicode());
    }
}

// Written so that the compiler looks at all units of a block at once: there is no way out before the end. The last
// block begins so early that it is a whole one, too.
bool TextMatcher::mayBeIn(QStringView text) const
{
    const qsizetype places = text.size() - m_distance;
    const char16_t *const first = text.utf16();
    Block found{};
    if (places < blockSize) {
        for (qsizetype at = 0; at < places; ++at) {
            found[0] |= isAt(first + at);
        }
    } else {
        for (qsizetype at = 0; at < places; at += blockSize) {
            const char16_t *const block = first + std::min(at, places - blockSize);
            for (qsizetype unit = 0; unit < blockSize; ++unit) {
                found[size_t(unit)] |= isAt(block + unit);
            }
        }
    }
    return m_isEmpty || found != Block{};
}
