#pragma once

#include <QString>
#include <QStringMatcher>

#include <array>

/// Tells whether a text is in another one, without regard to case: as QStringMatcher does, but many times as fast where
/// it is not.
class TextMatcher
{
public:
    /// An empty text is in all others.
    void setPattern(const QString &pattern);
    bool isEmpty() const { return m_isEmpty; }
    bool isIn(QStringView text) const { return mayBeIn(text) && m_matcher.indexIn(text) >= 0; }

private:
    /// What a unit of the pattern may be in a text. No more spellings are the same without regard to case: those of
    /// theta and of iota are the most.
    using Spellings = std::array<char16_t, 4>;

    static Spellings spellingsOf(char16_t unit);
    /// Whether units of the pattern are at their places in a text, if the pattern begins there.
    quint16 isAt(const char16_t *first) const
    {
        const char16_t *last = first + m_distance;
        return quint16(isOneOf(*first, m_first) & isOneOf(*last, m_last));
    }
    /// 1 or 0: without branches, so that the compiler can ask for several units at once.
    static int isOneOf(char16_t unit, const Spellings &spellings)
    {
        return int(unit == spellings[0]) | int(unit == spellings[1]) | int(unit == spellings[2])
            | int(unit == spellings[3]);
    }
    bool mayBeIn(QStringView text) const;

    QStringMatcher m_matcher{QString(), Qt::CaseInsensitive};
    Spellings m_first{}; ///< of the pattern's first unit
    Spellings m_last{}; ///< of its last one, or of one close to it
    qsizetype m_distance = 0; ///< from the first unit to that
    bool m_isEmpty = true;
};
