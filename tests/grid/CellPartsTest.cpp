#include "desktop/Contrast.h"
#include "grid/cells/BlockText.h"
#include "grid/cells/CellColours.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/CellRows.h"
#include "grid/cells/TextMeter.h"
#include "runtime/CellRow.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QStringList>

#include <array>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

CellRow rowOf(const QStringList &texts)
{
    const std::vector<QStringView> views(texts.begin(), texts.end());
    return CellRow(views);
}

QStringList textsOf(const CellRow &row, int columns)
{
    QStringList texts;
    for (int column = 0; column < columns; ++column) {
        texts << row.text(column).toString();
    }
    return texts;
}

} // namespace

// Rows

TEST(CellRow, givesBackItsTexts)
{
    const QStringList texts = {u""_s, u"Acceleration"_s, u"加速時間"_s, u""_s, u"ﾊﾟﾗﾒｰﾀ"_s, u""_s};
    const CellRow row = rowOf(texts);
    EXPECT_EQ(textsOf(row, 6), texts);
    EXPECT_EQ(row.allTexts().toString(), texts.join(QString()));
}

// From 256 units on, where a text ends takes more than a byte.
TEST(CellRow, givesBackLongTexts)
{
    for (const int length : {252, 253, 254, 1000, 70'000}) {
        const QStringList texts = {u"a"_s, QString(length, u'b'), u""_s, u"cd"_s};
        const CellRow row = rowOf(texts);
        EXPECT_EQ(textsOf(row, 4), texts) << length;
        const QString all = texts.join(QString());
        const std::array<quint32, 4> ends = {1, quint32(length) + 1, quint32(length) + 1, quint32(length) + 3};
        EXPECT_EQ(CellRow(QStringView(all).utf16(), ends), row) << length;
        EXPECT_GE(row.memorySize(), all.size() * 2 + 4) << length;
    }
}

TEST(CellRow, isNothingWithoutTexts)
{
    const std::array<quint32, 2> ends = {0, 0};
    EXPECT_EQ(CellRow(u"x", ends).memory(), nullptr);
    EXPECT_EQ(CellRow(u"x", {}), CellRow());
}

TEST(CellRow, isEmptyOutsideItsTexts)
{
    EXPECT_EQ(rowOf({u"a"_s}).text(1).toString(), QString());
    EXPECT_EQ(rowOf({u"a"_s}).text(-1).toString(), QString());
    EXPECT_EQ(CellRow().text(0).toString(), QString());
    EXPECT_EQ(rowOf({u""_s, u""_s}).text(1).toString(), QString());
}

TEST(CellRow, givesItsFirstTextsAtOnce)
{
    const CellRow row = rowOf({u"1000"_s, u""_s, u"Torque"_s});
    std::array<QStringView, 4> texts{u"a", u"b", u"c", u"d"};
    row.copyTexts(std::span(texts).first(1));
    EXPECT_EQ(texts, (std::array<QStringView, 4>{u"1000", u"b", u"c", u"d"}));
    row.copyTexts(texts);
    EXPECT_EQ(texts, (std::array<QStringView, 4>{u"1000", u"", u"Torque", u""}));
    CellRow().copyTexts(texts);
    EXPECT_EQ(texts, (std::array<QStringView, 4>{}));
}

TEST(CellRow, outlivesTheRowThatItWasCopiedFrom)
{
    CellRow copy;
    {
        const CellRow row = rowOf({u"x"_s, u"yz"_s});
        copy = row;
        EXPECT_TRUE(copy.sharesMemoryWith(row));
    }
    EXPECT_EQ(copy.text(1).toString(), u"yz"_s);
}

TEST(CellRow, canBeReplacedByARowOfItsOwnTexts)
{
    CellRow row = rowOf({u"a"_s, u"bc"_s});
    const std::array<QStringView, 2> swapped = {row.text(1), row.text(0)};
    row = CellRow(swapped);
    EXPECT_EQ(textsOf(row, 2), QStringList({u"bc"_s, u"a"_s}));
}

// Block texts

struct BlockCase
{
    QString text;
    QList<QStringList> rows;
    bool closed;
};

class BlockTextRows : public testing::TestWithParam<BlockCase>
{
};

TEST_P(BlockTextRows, areTakenApart)
{
    BlockTextReader reader(GetParam().text);
    QList<QStringList> rows;
    while (reader.nextRow()) {
        QStringList &row = rows.emplace_back();
        for (const QStringView cell : reader.cells()) {
            row << cell.toString();
        }
    }
    EXPECT_EQ(rows, GetParam().rows);
    EXPECT_EQ(reader.isClosed(), GetParam().closed);
}

INSTANTIATE_TEST_SUITE_P(Texts, BlockTextRows,
    testing::ValuesIn(std::vector<BlockCase>{
        {u""_s, {{u""_s}}, false},
        {u"a"_s, {{u"a"_s}}, false},
        {u"a\tb"_s, {{u"a"_s, u"b"_s}}, false},
        {u"\t\t"_s, {{u""_s, u""_s, u""_s}}, false},
        {u"a\r\nb"_s, {{u"a"_s}, {u"b"_s}}, false},
        {u"a\nb\n"_s, {{u"a"_s}, {u"b"_s}}, true},
        {u"a\rb\r\n"_s, {{u"a"_s}, {u"b"_s}}, true},
        {u"a\r\n\r\nb"_s, {{u"a"_s}, {u""_s}, {u"b"_s}}, false},
        {u"\n\r"_s, {{u""_s}, {u""_s}}, true},
        {u"a\tb\r\nc\t"_s, {{u"a"_s, u"b"_s}, {u"c"_s, u""_s}}, false},
    }));

TEST(CellRows, readsAnEmptyLastCellOfAColumnBack)
{
    const std::array rows = {rowOf({u"a"_s, u"b"_s}), rowOf({u"c"_s, u"d"_s}), rowOf({u"e"_s, u"f"_s})};
    const auto column = CellRows::withBlockText(rows, 2, 1, 1, 0, u"x\r\n");
    EXPECT_EQ(textsOf(column[0], 2), QStringList({u"a"_s, u"x"_s}));
    EXPECT_EQ(textsOf(column[1], 2), QStringList({u"c"_s, u""_s}));
    EXPECT_EQ(textsOf(column[2], 2), QStringList({u"e"_s, u"f"_s}));
    const auto both = CellRows::withBlockText(rows, 2, 0, 1, 0, u"x\ty\r\n");
    EXPECT_TRUE(both[1].sharesMemoryWith(rows[1]));
}

TEST(CellRows, sortsByNumbersAndKeepsTheOrderOfEquals)
{
    const std::array rows = {rowOf({u"10"_s, u"1"_s}), rowOf({u"x"_s, u"2"_s}), rowOf({u"9"_s, u"3"_s}),
        rowOf({u""_s, u"4"_s}), rowOf({u"-1"_s, u"5"_s}), rowOf({u"9.0"_s, u"6"_s})};
    QString order;
    for (const size_t at : CellRows::orderByNumber(rows, 0)) {
        order += rows.at(at).text(1);
    }
    EXPECT_EQ(order, u"536124"_s);
}

// Line ends

struct LineCase
{
    QString text;
    QString line;
};

class OnOneLine : public testing::TestWithParam<LineCase>
{
};

TEST_P(OnOneLine, putsWhatIsPastedOrComposed)
{
    EXPECT_EQ(CellInput::onOneLine(GetParam().text), GetParam().line);
    EXPECT_EQ(CellInput::hasLineEnd(GetParam().text), GetParam().text != GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Texts, OnOneLine,
    testing::ValuesIn(std::vector<LineCase>{
        {u""_s, u""_s},
        {u"a\tb"_s, u"a\tb"_s},
        {u"a\r\n"_s, u"a"_s},
        {u"a\n\n"_s, u"a"_s},
        {u"\r\n"_s, u""_s},
        {u"a\r\nb\rc\nd"_s, u"a b c d"_s},
        {u"\na"_s, u" a"_s},
        {u"a\u2028b\u2029c\u2029"_s, u"a b c"_s},
    }));

// Typing

struct InputCase
{
    CellType type;
    QString text;
    QValidator::State state;
};

class CellInputCheck : public testing::TestWithParam<InputCase>
{
};

TEST_P(CellInputCheck, knowsWhatACellTakes)
{
    EXPECT_EQ(CellInput::check(GetParam().type, GetParam().text), GetParam().state)
        << GetParam().text.toStdString() << ' ' << GetParam().type.minimum << ' ' << GetParam().type.maximum;
}

INSTANTIATE_TEST_SUITE_P(Texts, CellInputCheck,
    testing::ValuesIn(std::vector<InputCase>{
        {CellType::integer(0, 9), u""_s, QValidator::Acceptable},
        {CellType::integer(0, 9), u"9"_s, QValidator::Acceptable},
        {CellType::integer(0, 9), u"10"_s, QValidator::Invalid},
        {CellType::integer(0, 9), u"-"_s, QValidator::Invalid},
        {CellType::integer(0, 9), u"1.0"_s, QValidator::Invalid},
        {CellType::integer(0, 9), u"０"_s, QValidator::Invalid},
        {CellType::integer(0, 9), u"99999999999999999999"_s, QValidator::Invalid},
        {CellType::integer(0, 32767), u"032767"_s, QValidator::Acceptable},
        {CellType::integer(0, 32767), u"32768"_s, QValidator::Invalid},
        {CellType::integer(5, 20), u"1"_s, QValidator::Intermediate},
        {CellType::integer(-20, 20), u"-"_s, QValidator::Intermediate},
        {CellType::integer(-20, 20), u"-20"_s, QValidator::Acceptable},
        {CellType::integer(-20, 20), u"-21"_s, QValidator::Invalid},
        {CellType::number(0, 3600), u"3600"_s, QValidator::Acceptable},
        {CellType::number(0, 3600), u"3600.1"_s, QValidator::Invalid},
        {CellType::number(0, 3600), u"."_s, QValidator::Intermediate},
        {CellType::number(0, 3600), u".5"_s, QValidator::Acceptable},
        {CellType::number(0, 3600), u"1.5.1"_s, QValidator::Invalid},
        {CellType::text(3), u"abc"_s, QValidator::Acceptable},
        {CellType::text(3), u"abcd"_s, QValidator::Invalid},
        {CellType::text(), u"any length"_s, QValidator::Acceptable},
    }));

TEST(CellInput, ticksEveryNumberOtherThanZero)
{
    for (const QString &ticked : {u"1"_s, u"-1"_s, u"2"_s, u"0.5"_s, u" 1 "_s}) {
        EXPECT_TRUE(CellInput::isTicked(ticked)) << ticked.toStdString();
    }
    for (const QString &plain : {u""_s, u"0"_s, u"00"_s, u"0.0"_s, u"x"_s, u"True"_s}) {
        EXPECT_FALSE(CellInput::isTicked(plain)) << plain.toStdString();
    }
}

// Colours

TEST(CellColours, keepTheirPositionsWhenTheTableGrows)
{
    CellColours colours;
    colours.resize(2, 2);
    EXPECT_FALSE(colours.colour(1, 1).isValid());
    colours.fill(1, 0, 1, 1, Qt::red);
    colours.resize(3, 4);
    EXPECT_EQ(colours.colour(1, 0), QColor(Qt::red));
    EXPECT_EQ(colours.colour(1, 1), QColor(Qt::red));
    EXPECT_FALSE(colours.colour(0, 1).isValid());
    EXPECT_FALSE(colours.colour(2, 1).isValid());
    EXPECT_FALSE(colours.colour(1, 3).isValid());
    colours.fill(1, 1, 1, 1, QColor());
    EXPECT_FALSE(colours.colour(1, 1).isValid());
}

TEST(CellColours, dropTheColoursOfRowsThatGo)
{
    CellColours colours;
    colours.resize(1, 2);
    colours.fill(0, 0, 0, 1, Qt::blue);
    colours.resize(1, 1);
    colours.resize(1, 2);
    EXPECT_EQ(colours.colour(0, 0), QColor(Qt::blue));
    EXPECT_FALSE(colours.colour(0, 1).isValid());
}

TEST(Contrast, keepsADarkColourOnWhiteAndLightensItOnBlack)
{
    const QColor darkRed(128, 0, 0);
    EXPECT_EQ(readableOn(Qt::white, darkRed), darkRed);
    const QColor lighter = readableOn(QColor(30, 30, 30), darkRed);
    EXPECT_GT(lighter.lightness(), darkRed.lightness());
    EXPECT_GT(lighter.red(), lighter.green()); // still red
}

// Widths

class TextMeterFont : public testing::TestWithParam<const char *>
{
};

TEST_P(TextMeterFont, measuresAsTheFontLaysOut)
{
    QFont font(QString::fromLatin1(GetParam()));
    font.setPointSize(11);
    const QFontMetricsF metrics(font);
    const QStringList texts = {u"AVAVA To. We, Ty 11.7"_s, u"office fluff fi"_s, u"加速時間ﾊﾟﾗﾒｰﾀ"_s, u"0.01 kW"_s,
        u"第1加速 (AV)"_s, u"e\u0301a\u0308 \u00e9"_s, u"か\u3099"_s, u"1000"_s};
    for (const QString &text : texts) {
        TextMeter meter(font);
        meter.add(text);
        EXPECT_NEAR(meter.widest(), std::ceil(metrics.horizontalAdvance(text)), 1) << text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, TextMeterFont, testing::Values("DejaVu Sans", "DejaVu Serif", "IPAPGothic", "IPAGothic"));

TEST(TextMeter, takesTheWidestLineOfTheWidestText)
{
    const QFont font;
    const QFontMetricsF metrics(font);
    TextMeter meter(font);
    EXPECT_EQ(meter.widest(), 0);
    meter.add(u"iiiiiiiiii");
    meter.add(u"a\r\nWWWWWWWWWW\nb");
    meter.add(u"mm");
    EXPECT_EQ(meter.widest(), std::ceil(metrics.horizontalAdvance(u"WWWWWWWWWW"_s)));
}
