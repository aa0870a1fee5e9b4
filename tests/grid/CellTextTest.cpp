#include "grid/cells/CellText.h"

#include "grid/cells/FitGuess.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFont>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QFont cellFont()
{
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(16);
    return font;
}

/// What is shown in the width of another text, and in the height of that many lines.
QString shown(const QString &text, const QString &roomOf, int lines = 1)
{
    const QFontMetrics font(cellFont());
    return shownCellText(
        text, font, {int(std::ceil(QFontMetricsF(cellFont()).horizontalAdvance(roomOf))), lines * font.lineSpacing()});
}

struct CutText
{
    QString text, room, shown;
};

class CellText : public testing::TestWithParam<CutText>
{
};

TEST_P(CellText, showsWhereItIsCut)
{
    EXPECT_EQ(shown(GetParam().text, GetParam().room), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(, CellText,
    testing::ValuesIn(std::vector<CutText>{
        {u"speed"_s, u"speed"_s, u"speed"_s},
        {u"speed limit"_s, u"speed\u2026"_s, u"speed\u2026"_s},
        {u"99,9999"_s, u"99,9999"_s, u"99,9999"_s},
        {u"99,9999"_s, u"###"_s, u"###"_s},
        {u"-12.5"_s, u"##"_s, u"##"_s},
        {u"1234567"_s, u"i"_s, u"#"_s},
        {u"0-100,200"_s, u"0-1\u2026"_s, u"0-1\u2026"_s},
        {u""_s, u""_s, u""_s},
        {u"one\r\ntwo"_s, u"one\u2026"_s, u"one\u2026"_s},
    }));

TEST(CellTextLines, areShownAsFarAsTheyFit)
{
    EXPECT_EQ(shown(u"one\r\ntwo\nthree"_s, u"wide enough"_s, 3), u"one\ntwo\nthree"_s);
    EXPECT_EQ(shown(u"one\rtwo\nthree"_s, u"wide enough"_s, 2), u"one\ntwo\u2026"_s);
    EXPECT_EQ(shown(u"one\n\nthree"_s, u"wide enough"_s, 3), u"one\n\nthree"_s);
    EXPECT_EQ(shown(u"a long line\n12"_s, u"a lon\u2026"_s, 2), u"a lon\u2026\n12"_s);
}

// In no font, size or width may a text be taken to fit that would be cut; most that fit easily are seen to.
TEST(FitGuess, isRightAboutWhatFits)
{
    const QStringList texts{u"1"_s, u"1000"_s, u"0-3600"_s, u"No"_s, u"Acceleration time"_s, u"WAVAToTyP,Y."_s,
        u"iiiiillll"_s, u"ffi fl ffl"_s, u"MMMMMMWWWW"_s, u"r.v,w-y"_s};
    FitGuess guess;
    int guessed = 0;
    int fitting = 0;
    for (const QString &family : {u"DejaVu Sans"_s, u"DejaVu Sans Mono"_s, u"DejaVu Serif"_s}) {
        for (const int pixels : {9, 13, 16, 31}) {
            QFont font(family);
            font.setPixelSize(pixels);
            const QFontMetrics metrics(font);
            for (int width = 1; width < 400; width += 3) {
                for (const QString &text : texts) {
                    const bool fits = shownCellText(text, metrics, {width, 100}) == text;
                    const bool isGuessed = guess.surelyFits(text, metrics, width);
                    ASSERT_TRUE(fits || !isGuessed) << text.toStdString() << ' ' << pixels << ' ' << width;
                    guessed += isGuessed ? 1 : 0;
                    fitting += fits ? 1 : 0;
                }
            }
        }
    }
    EXPECT_GT(guessed, fitting * 8 / 10);
    EXPECT_FALSE(guess.surelyFits(u"\u8868", QFontMetrics(cellFont()), 1000));
    EXPECT_FALSE(guess.surelyFits(u"a\nb", QFontMetrics(cellFont()), 1000));
}

// Only as much as could be seen is looked at, so that painting does not depend on the text's length.
TEST(CellTextLines, mayBeEndless)
{
    const QString text = shown(QString(2'000'000, u'x'), u"xxxx\u2026"_s);
    EXPECT_EQ(text, u"xxxx\u2026"_s);
    EXPECT_EQ(shown(QString(2'000'000, u'\n'), u"x"_s, 2), u"\n\u2026"_s);
}

} // namespace
