#include "grid/cells/CellText.h"

#include "grid/cells/ShapedTexts.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QFont cellFont()
{
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(16);
    return font;
}

/// What is drawn in that font, with that many dots to a pixel; a null picture if draw says that it draws nothing.
QImage picture(const QFont &font, int ratio, const std::function<bool(QPainter &)> &draw)
{
    QImage image(380 * ratio, 30 * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    return draw(painter) ? image : QImage();
}

/// What is shown in the width of another text, and in the height of that many lines.
QString shown(const QString &text, const QString &roomOf, int lines = 1)
{
    constexpr int rounding = 1; // of the dots, which are measured by themselves
    const QFontMetrics font(cellFont());
    const int width = int(std::ceil(QFontMetricsF(cellFont()).horizontalAdvance(roomOf))) + rounding;
    return shownCellText(text, font, {width, lines * font.lineSpacing()});
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

// Texts that are laid out only once, and numbers that are put together, are drawn as the painter draws them: in every
// font, size, width, place, and on a display of more dots.
TEST(ShapedTexts, areDrawnAsThePainterDrawsThem)
{
    const QStringList texts{u"0"_s, u"1000"_s, u"-3600.5"_s, u"1-1.-"_s, u"No"_s, u"Acceleration time"_s,
        u"WAVAToTyP,Y."_s, u"ffi fl ffl"_s, u"\u00B0C \u03A9"_s, u"\u8868 \uFF76\uFF9E 1"_s, u"e\u0301a\u0308"_s,
        u"x=1"_s, u"12345678901234567890123456789012"_s, u"123456789012345678901234567890123"_s};
    ShapedTexts shaped;
    for (const QString &family : {u"DejaVu Sans"_s, u"DejaVu Sans Mono"_s, u"DejaVu Serif"_s}) {
        for (const double points : {6.5, 9.0, 13.25}) {
            for (const int ratio : {1, 2}) {
                QFont font(family);
                font.setPointSizeF(points);
                for (const QString &text : texts) {
                    for (const int width : {1, 17, 40, 61, 350}) {
                        for (const Qt::Alignment side : {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight}) {
                            const QRect rect(-7 + width / 10, 3, width, width == 61 ? 8 : 24);
                            const auto own = [&](QPainter &painter) { return shaped.draw(painter, rect, side, text); };
                            const auto plain = [&](QPainter &painter) {
                                const QString cut = shownCellText(text, painter.fontMetrics(), rect.size());
                                painter.drawText(rect, int(side | Qt::AlignVCenter) | Qt::TextSingleLine, cut);
                                return true;
                            };
                            ASSERT_EQ(picture(font, ratio, own), picture(font, ratio, plain))
                                << text.toStdString() << " in " << font.toString().toStdString() << ' ' << width;
                        }
                    }
                }
            }
        }
    }
}

TEST(ShapedTexts, leavesOtherTextsToThePainter)
{
    ShapedTexts shaped;
    for (const QString &text : {u""_s, u" a"_s, u"a "_s, u"a\nb"_s, u"a\tb"_s, u"\u05D0"_s, QString(65, u'a')}) {
        const auto isDrawn = [&](QPainter &painter) { return shaped.draw(painter, {0, 0, 300, 20}, {}, text); };
        EXPECT_TRUE(picture(cellFont(), 1, isDrawn).isNull()) << text.toStdString();
    }
    const auto isDrawn = [&](QPainter &painter) { return shaped.draw(painter, {0, 0, 300, 20}, {}, u"a"); };
    for (void (QFont::*decorate)(bool) : {&QFont::setUnderline, &QFont::setItalic, &QFont::setBold}) {
        QFont font = cellFont();
        (font.*decorate)(true);
        EXPECT_TRUE(picture(font, 1, isDrawn).isNull());
    }
    EXPECT_FALSE(picture(cellFont(), 1, isDrawn).isNull());
}

// Nothing of what is remembered outlives the font, or grows with the number of texts.
TEST(ShapedTexts, areLetGoOf)
{
    ShapedTexts shaped;
    const auto draw = [&](const QString &text) {
        return [&shaped, text](QPainter &painter) { return shaped.draw(painter, {0, 0, 300, 24}, {}, text); };
    };
    const QImage before = picture(cellFont(), 1, draw(u"a 1"_s));
    for (int i = 0; i < 5000; ++i) {
        picture(cellFont(), 1, draw(u"b %1"_s.arg(i)));
    }
    EXPECT_LE(shaped.count(), 2048);
    EXPECT_EQ(picture(cellFont(), 1, draw(u"a 1"_s)), before);
    QFont larger = cellFont();
    larger.setPixelSize(20);
    EXPECT_NE(picture(larger, 1, draw(u"a 1"_s)), before);
    EXPECT_NE(picture(larger, 1, draw(u"1"_s)), picture(cellFont(), 1, draw(u"1"_s)));
    EXPECT_LE(shaped.count(), 1);
}

// Only as much as could be seen is looked at, so that painting does not depend on the text's length.
TEST(CellTextLines, mayBeEndless)
{
    const QString text = shown(QString(2'000'000, u'x'), u"xxxx\u2026"_s);
    EXPECT_EQ(text, u"xxxx\u2026"_s);
    EXPECT_EQ(shown(QString(2'000'000, u'\n'), u"x"_s, 2), u"\n\u2026"_s);
}

} // namespace
