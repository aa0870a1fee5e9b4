#include "grid/cells/TextMatcher.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QMap>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr char32_t firstOfPairs = 0x10000;

bool isFound(const QString &pattern, const QString &text)
{
    TextMatcher matcher;
    matcher.setPattern(pattern);
    return matcher.isIn(text);
}

bool qtFinds(const QString &pattern, const QString &text)
{
    return QStringMatcher(pattern, Qt::CaseInsensitive).indexIn(text) >= 0;
}

/// Units that are easily mixed up: three kinds of K and S, I with and without a dot, sharp S, one letter with four
/// spellings, digraphs, Japanese, and halves of pairs, which stand for two Deseret letters in both cases.
QString oddText(std::mt19937 &random, int maxSize)
{
    const QString units = u"aAbk K\u212AsS\u017F\u00DF\u1E9EiI\u0130\u0131\u03B8\u0398\u03D1\u03F4\u01C4\u01C5\u01C6"
                          u"\u3042\u30A2\uFF21\uFF41\xD801\xDC00\xDC28\xD801\xDC00\xDC28"_s;
    QString text(std::uniform_int_distribution<int>(0, maxSize)(random), Qt::Uninitialized);
    std::uniform_int_distribution<qsizetype> place(0, units.size() - 1);
    std::ranges::generate(text, [&] { return units[place(random)]; });
    return text;
}

} // namespace

// The reference is what Qt finds, in texts of all sizes and at all places in them.
TEST(TextMatcher, findsWhatQtFinds)
{
    constexpr int rounds = 20'000;
    std::mt19937 random(1);
    int found = 0;
    for (int round = 0; round < rounds; ++round) {
        const QString pattern = oddText(random, 4);
        const QString text = oddText(random, 60);
        const bool expected = qtFinds(pattern, text);
        ASSERT_EQ(isFound(pattern, text), expected) << "round " << round;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, rounds / 4);
    EXPECT_LT(found, rounds * 3 / 4);
}

TEST(TextMatcher, findsEverySpellingOfACharacter)
{
    QMap<char32_t, QString> spellings;
    for (char32_t unit = 1; unit < firstOfPairs; ++unit) {
        const char32_t folded = QChar::toCaseFolded(unit);
        spellings[folded] += folded == unit ? QString() : QString(QChar(char16_t(unit)));
    }
    for (auto same = spellings.constBegin(); same != spellings.constEnd(); ++same) {
        const QString all = QChar(char16_t(same.key())) + same.value();
        for (const QChar pattern : all) {
            for (const QChar text : all) {
                ASSERT_TRUE(isFound(pattern, text)) << int(pattern.unicode()) << ' ' << int(text.unicode());
                ASSERT_TRUE(isFound(pattern, u"some text before it "_s + text));
            }
        }
    }
}

// A pair cannot be found by one unit, so that looking for single units misses nothing.
TEST(TextMatcher, needNotLookForSingleUnitsInPairs)
{
    for (char32_t character = firstOfPairs; character <= QChar::LastValidCodePoint; ++character) {
        ASSERT_GE(QChar::toCaseFolded(character), firstOfPairs);
    }
}

TEST(TextMatcher, findsNothingAndEverything)
{
    EXPECT_TRUE(TextMatcher().isEmpty());
    EXPECT_TRUE(isFound(u""_s, u"a"_s));
    EXPECT_TRUE(isFound(u""_s, u""_s));
    EXPECT_FALSE(isFound(u"a"_s, u""_s));
    EXPECT_FALSE(isFound(u"ab"_s, u"a"_s));
    EXPECT_TRUE(isFound(u"speed"_s, u"Maximum SPEED"_s));
    EXPECT_TRUE(isFound(u"273 k"_s, u"273 \u212A"_s));
    EXPECT_FALSE(isFound(u"ss"_s, u"\u00DF"_s));
    EXPECT_FALSE(isFound(u"i"_s, u"\u0130"_s));
    EXPECT_FALSE(isFound(u"\u3042"_s, u"\u30A2"_s));
}
