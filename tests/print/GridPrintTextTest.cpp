// How texts are printed: wrapped, aligned, in which font, and within the page.

#include "grid/SpreadGrid.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class GridPrintText : public testing::Test
{
protected:
    SpreadGrid grid;
    PrintedGrid paper;
};

TEST_F(GridPrintText, wrapsATextThatIsTooLongForItsColumn)
{
    fillGrid(grid, 3, 3);
    grid.setText(2, 2, u"one two three four nine six seven eight"_s);
    const PdfPage page = paper.print(grid).value(0);
    const double right = page.word(u"c3r1"_s).box.left();
    for (const QString &word : {u"one"_s, u"two"_s, u"three"_s, u"four"_s, u"nine"_s, u"six"_s, u"seven"_s}) {
        EXPECT_LT(page.word(word).box.right(), right);
    }
    EXPECT_GT(page.word(u"eight"_s).box.top(), page.word(u"one"_s).box.bottom());
    EXPECT_LT(page.word(u"eight"_s).box.bottom(), page.word(u"c2r3"_s).box.top() + 3);
}

TEST_F(GridPrintText, keepsLineBreaks)
{
    fillGrid(grid, 2, 1);
    grid.setText(1, 1, u"up\r\ndown"_s);
    const PdfPage page = paper.print(grid).value(0);
    EXPECT_GT(page.word(u"down"_s).box.top(), page.word(u"up"_s).box.center().y());
    EXPECT_NEAR(page.word(u"down"_s).box.left(), page.word(u"up"_s).box.left(), 0.1);
}

TEST_F(GridPrintText, alignsTextsAsTheGridDoes)
{
    fillGrid(grid, 3, 1, 12);
    grid.setAlignment(2, Qt::AlignCenter);
    grid.setAlignment(3, Qt::AlignRight);
    const PdfPage page = paper.print(grid).value(0);
    const QRectF left = page.word(u"c1r1"_s).box;
    const QRectF centre = page.word(u"c2r1"_s).box;
    const QRectF right = page.word(u"c3r1"_s).box;
    const double columnWidth = page.word(u"h2"_s).box.center().x() - page.word(u"h1"_s).box.center().x();
    EXPECT_LT(left.center().x(), page.word(u"h1"_s).box.center().x() - columnWidth / 8);
    EXPECT_NEAR(centre.center().x(), page.word(u"h2"_s).box.center().x(), 0.5);
    EXPECT_GT(right.center().x(), page.word(u"h3"_s).box.center().x() + columnWidth / 8);
}

TEST_F(GridPrintText, isInTheGridsFont)
{
    fillGrid(grid, 2, 1, 20);
    const double height = paper.print(grid).value(0).word(u"c1r1"_s).box.height();
    QFont font = grid.gridFont();
    font.setPointSizeF(font.pointSizeF() * 2);
    grid.setGridFont(font);
    EXPECT_NEAR(paper.print(grid).value(0).word(u"c1r1"_s).box.height(), 2 * height, 0.5);
}

// A font would join them, and a search for the word would not find it.
TEST_F(GridPrintText, keepsLettersApartThatFontsJoin)
{
    fillGrid(grid, 2, 1, 30);
    QFont font(u"DejaVu Sans"_s);
    font.setPointSizeF(10);
    grid.setGridFont(font);
    grid.setText(1, 0, u"office"_s);
    grid.setText(1, 1, u"first"_s);
    grid.setText(2, 1, u"flow efficiency\nfield"_s);
    const PdfPage page = paper.print(grid).value(0);
    for (const QString &word : {u"office"_s, u"first"_s, u"flow"_s, u"efficiency"_s, u"field"_s}) {
        EXPECT_EQ(page.count(word), 1) << word.toStdString() << " in " << page.texts().join(u' ').toStdString();
    }
}

TEST_F(GridPrintText, endsInAnEllipsisIfThePageIsFull)
{
    fillGrid(grid, 1, 1);
    QStringList lines;
    for (int line = 1; line <= 200; ++line) {
        lines << u"line%1"_s.arg(line);
    }
    grid.setText(1, 1, lines.join(u'\n'));
    const PdfPage page = paper.print(grid).value(0);
    const QStringList shown = page.texts().filter(u"line"_s);
    ASSERT_GT(shown.size(), 10);
    ASSERT_LT(shown.size(), 200);
    EXPECT_EQ(shown.last(), u"line%1\u2026"_s.arg(shown.size()));
}

TEST_F(GridPrintText, printsAFileNameThatLooksLikeCodesAsItIs)
{
    fillGrid(grid, 2, 1);
    GridPrintOptions options;
    options.header.addCodes(u"/l").addText(u"/p&/n.inv"_s).addCodes(u"/n");
    EXPECT_EQ(paper.print(grid, options).value(0).count(u"/p&/n.inv"_s), 1);
}

TEST_F(GridPrintText, wrapsAHeaderThatIsTooLongForThePage)
{
    fillGrid(grid, 2, 1);
    const QString longName = QString(u"folder/"_s).repeated(60) + u"end.inv"_s;
    GridPrintOptions options;
    options.header.addText(longName);
    const PdfPage page = paper.print(grid, options).value(0);
    QStringList parts = page.texts();
    const QString whole = parts.join(QString());
    EXPECT_TRUE(whole.startsWith(longName)) << whole.toStdString();
    for (const PdfWord &word : page.words) {
        EXPECT_LT(word.box.right(), page.size.width());
    }
    EXPECT_GT(page.word(u"h1"_s).box.top(), page.words.first().box.bottom() + 10);
}

struct Paper
{
    QPageLayout::Orientation orientation;
    int resolution;
};

class GridPrintEdge : public GridPrintText, public testing::WithParamInterface<Paper>
{
};

/// The right-most column is looked for in the picture too: a text may be in the file and yet be clipped away.
TEST_P(GridPrintEdge, showsTheRightMostColumn)
{
    paper.printer().setPageOrientation(GetParam().orientation);
    paper.printer().setResolution(GetParam().resolution);
    fillGrid(grid, 40, 3, 6);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_GE(pages.size(), 2);
    EXPECT_EQ(cellsOf(pages).size(), 120);
    const PdfPage &page = pages.at(0);
    const auto last = std::ranges::max(page.words, {}, [](const PdfWord &word) { return word.box.right(); });
    EXPECT_GT(last.box.right(), page.size.width() * 0.8);
    EXPECT_LT(last.box.right(), page.size.width() - 10);

    const QImage picture = renderPdfPage(paper.fileName(), 1, 72);
    const QRect area = last.box.toAlignedRect();
    int dark = 0;
    for (int x = area.left(); x <= area.right(); ++x) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            dark += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 10);
}

INSTANTIATE_TEST_SUITE_P(Papers, GridPrintEdge,
    testing::ValuesIn(std::vector<Paper>{
        {QPageLayout::Portrait, 1200},
        {QPageLayout::Landscape, 1200},
        {QPageLayout::Portrait, 96},
        {QPageLayout::Landscape, 300},
    }));

} // namespace
