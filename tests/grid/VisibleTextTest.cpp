#include "grid/cells/VisibleText.h"

#include "grid/cells/TextMeter.h"
#include "grid/editors/CellTextBox.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A text in which each position can be told from the others.
QString numbered(int numbers)
{
    QString text;
    for (int i = 0; i < numbers; ++i) {
        text += QString::number(100'000 + i);
    }
    return text;
}

constexpr qsizetype mostFor100Pixels = 1000;

} // namespace

TEST(VisibleText, ofAShortLineIsTheLine)
{
    const QString text = numbered(80);
    for (const Qt::Alignment alignment : {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter}) {
        EXPECT_EQ(VisibleText::ofLine(text, 100, alignment).toString(), text);
    }
    EXPECT_EQ(VisibleText::ofLine({}, 0, Qt::AlignLeft).size(), 0);
}

TEST(VisibleText, ofALongLineIsThePartThatItsAlignmentShows)
{
    const QString text = numbered(100'000);
    const QString beginning = VisibleText::ofLine(text, 100, Qt::AlignLeft).toString();
    const QString end = VisibleText::ofLine(text, 100, Qt::AlignRight).toString();
    const QString middle = VisibleText::ofLine(text, 100, Qt::AlignHCenter).toString();
    for (const QString &part : {beginning, end, middle}) {
        EXPECT_GE(part.size(), 100);
        EXPECT_LE(part.size(), mostFor100Pixels);
    }
    EXPECT_TRUE(text.startsWith(beginning));
    EXPECT_TRUE(text.endsWith(end));
    EXPECT_EQ(text.indexOf(middle), (text.size() - middle.size()) / 2);
    EXPECT_GE(VisibleText::ofLine(text, 3000, Qt::AlignLeft).size(), 3000);
}

TEST(VisibleText, holdsNoHalfCharacter)
{
    for (const QString &text : {u"\U0001F600"_s.repeated(50'000), u"x"_s + u"\U0001F600"_s.repeated(50'000)}) {
        for (const Qt::Alignment alignment : {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter}) {
            for (const int pixels : {100, 101}) {
                const QStringView part = VisibleText::ofLine(text, pixels, alignment);
                EXPECT_TRUE(part.isValidUtf16());
                EXPECT_GT(part.size(), 100);
            }
        }
        EXPECT_TRUE(QStringView(VisibleText::beginning(text)).isValidUtf16());
    }
}

TEST(VisibleText, ofManyLinesIsThoseInTheWindow)
{
    constexpr int height = 10;
    QString text;
    for (int line = 0; line < 100'000; ++line) {
        text += QString::number(line) + u'\n';
    }
    text.chop(1);
    const QRect cell(0, 50, 100, 100'000 * height);
    const auto at = [&](int line) { return 50 + line * height; };
    const auto lines = VisibleText::ofLines(text, cell, QRect(0, at(5000), 100, 20 * height), height, Qt::AlignLeft);
    const QStringList shown = lines.text.split(u'\n');
    EXPECT_LE(shown.size(), 25);
    EXPECT_EQ(lines.top, at(shown.first().toInt()));
    EXPECT_LE(shown.first().toInt(), 5000);
    EXPECT_GE(shown.last().toInt(), 5019);

    const QRect low(0, 0, 100, 20 * height); // the middle of the text
    const auto middle = VisibleText::ofLines(text, low, low, height, Qt::AlignLeft);
    EXPECT_TRUE(middle.text.split(u'\n').contains(u"50000"_s));
    EXPECT_LE(middle.text.size(), 200);
}

TEST(VisibleText, ofLinesHoldsTheVisiblePartOfEach)
{
    const QString text = numbered(10'000) + u'\n' + numbered(10'000);
    const QRect cell(0, 0, 100, 20);
    const QStringList shown = VisibleText::ofLines(text, cell, cell, 10, Qt::AlignRight).text.split(u'\n');
    ASSERT_EQ(shown.size(), 2);
    for (const QString &line : shown) {
        EXPECT_LE(line.size(), mostFor100Pixels);
        EXPECT_TRUE(numbered(10'000).endsWith(line));
    }
}

TEST(VisibleText, hasABeginningThatCanBeRead)
{
    EXPECT_EQ(VisibleText::beginning(u"short"), u"short"_s);
    const QString text = numbered(1000);
    const QString beginning = VisibleText::beginning(text);
    EXPECT_LT(beginning.size(), 5000);
    EXPECT_TRUE(beginning.endsWith(u'…'));
    EXPECT_TRUE(text.startsWith(beginning.chopped(1)));
}

TEST(TextMeterOfLongTexts, stopsWhereNoColumnIsWiderAnyway)
{
    for (const QString &text : {u"x"_s.repeated(5'000'000), u"\u0915"_s.repeated(5'000'000)}) {
        TextMeter meter{QFont()};
        meter.add(text);
        meter.add(u"y");
        EXPECT_EQ(meter.widest(), TextMeter::maxPixels);
    }
    TextMeter meter{QFont()};
    meter.add(u"short");
    EXPECT_LT(meter.widest(), 200);
}

TEST(CellTextBoxOfALongText, cutsALongOverhangAtOnce)
{
    CellType type;
    type.kind = CellType::Kind::Text;
    type.maxLength = 10;
    const QString text = u"a\r\n"_s + numbered(10'000);
    CellTextBox box(type, text, nullptr);
    QGuiApplication::clipboard()->setText(u"b\n"_s.repeated(200'000));
    box.moveCursor(QTextCursor::End);
    box.paste();
    EXPECT_EQ(box.text(), text);
    box.moveCursor(QTextCursor::Start);
    QGuiApplication::clipboard()->setText(u"xyz"_s);
    box.paste();
    EXPECT_EQ(box.text(), text);
}
