#include "grid/cells/CellText.h"

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

// Only as much as could be seen is looked at, so that painting does not depend on the text's length.
TEST(CellTextLines, mayBeEndless)
{
    const QString text = shown(QString(2'000'000, u'x'), u"xxxx\u2026"_s);
    EXPECT_EQ(text, u"xxxx\u2026"_s);
    EXPECT_EQ(shown(QString(2'000'000, u'\n'), u"x"_s, 2), u"\n\u2026"_s);
}

} // namespace
