#include "platform/GridPrinter.h"

#include "platform/SpreadGrid.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QScrollBar>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How often each word stands on all pages together.
QHash<QString, int> wordCounts(const QList<PdfPage> &pages)
{
    QHash<QString, int> counts;
    for (const PdfPage &page : pages) {
        for (const QString &text : page.texts()) {
            ++counts[text];
        }
    }
    return counts;
}

QStringList cellsOf(const PdfPage &page)
{
    return page.texts().filter(QRegularExpression(u"^c\\d+r\\d+$"_s));
}

QStringList cellsOf(const QList<PdfPage> &pages)
{
    QStringList cells;
    for (const PdfPage &page : pages) {
        cells << cellsOf(page);
    }
    return cells;
}

QStringList block(const QList<int> &columns, int row1, int row2)
{
    QStringList cells;
    for (int row = row1; row <= row2; ++row) {
        for (const int column : columns) {
            cells << u"c%1r%2"_s.arg(column).arg(row);
        }
    }
    return cells;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QList<int> pageNumbers(const QList<PdfPage> &pages)
{
    static const QRegularExpression number(u"^-(\\d+)-$"_s);
    QList<int> numbers;
    for (const PdfPage &page : pages) {
        for (const QString &text : page.texts().filter(number)) {
            numbers << number.match(text).captured(1).toInt();
        }
    }
    return numbers;
}

GridPrintOptions pageRange(int from, int to)
{
    GridPrintOptions options = PrintedGrid::plainOptions(GridPrintType::PageRange);
    options.pageFrom = from;
    options.pageTo = to;
    return options;
}

class GridPrint : public testing::Test
{
protected:
    SpreadGrid grid;
    PrintedGrid paper;
};

TEST_F(GridPrint, holdsEachCellOnce)
{
    fillGrid(grid, 13, 90);
    const QHash<QString, int> counts = wordCounts(paper.print(grid));
    for (const QString &cell : block({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}, 1, 90)) {
        EXPECT_EQ(counts.value(cell), 1) << cell.toStdString();
    }
    EXPECT_EQ(paper.outcome(), PrintOutcome::Done);
}

TEST_F(GridPrint, numbersItsPagesAndRepeatsHeaderAndHeadings)
{
    fillGrid(grid, 13, 90);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_GE(pages.size(), 4);
    for (int i = 0; i < pages.size(); ++i) {
        const PdfPage &page = pages.at(i);
        EXPECT_EQ(page.count(u"Heading"_s), 1);
        EXPECT_EQ(page.count(u"-%1-"_s.arg(i + 1)), 1);
        for (const QString &cell : cellsOf(page)) {
            EXPECT_EQ(page.count(u'h' + cell.mid(1, cell.indexOf(u'r') - 1)), 1) << cell.toStdString();
            EXPECT_EQ(page.count(cell.mid(cell.indexOf(u'r') + 1)), 1) << cell.toStdString();
        }
    }
}

TEST_F(GridPrint, goesDownFirstAndThenOver)
{
    fillGrid(grid, 13, 90);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_GE(pages.size(), 4);
    const auto pageOf = [&pages](const QString &cell) {
        return std::ranges::find_if(pages, [&](const PdfPage &page) { return page.count(cell) == 1; }) - pages.begin();
    };
    EXPECT_EQ(pageOf(u"c1r1"_s), 0);
    EXPECT_LT(pageOf(u"c1r1"_s), pageOf(u"c1r90"_s));
    EXPECT_LT(pageOf(u"c1r90"_s), pageOf(u"c13r1"_s));
    EXPECT_EQ(pageOf(u"c13r90"_s), pages.size() - 1);
}

TEST_F(GridPrint, standsInRowsAndColumns)
{
    fillGrid(grid, 4, 5);
    const PdfPage page = paper.print(grid).value(0);
    for (int column = 1; column <= 4; ++column) {
        const QRectF heading = page.word(u"h%1"_s.arg(column)).box;
        for (int row = 1; row <= 5; ++row) {
            const QRectF cell = page.word(u"c%1r%2"_s.arg(column).arg(row)).box;
            EXPECT_NEAR(cell.top(), page.word(u"c1r%1"_s.arg(row)).box.top(), 0.1);
            EXPECT_NEAR(cell.left(), page.word(u"c%1r1"_s.arg(column)).box.left(), 0.1);
            EXPECT_GT(cell.top(), heading.bottom() - 2);
        }
    }
    EXPECT_LT(page.word(u"Heading"_s).box.bottom(), page.word(u"h1"_s).box.top());
    EXPECT_GT(page.word(u"-1-"_s).box.top(), page.size.height() * 0.9);
    EXPECT_NEAR(page.word(u"-1-"_s).box.center().x(), page.size.width() / 2, 2);
}

TEST_F(GridPrint, leavesHiddenColumnsOut)
{
    fillGrid(grid, 5, 3);
    grid.setColumnShown(2, false);
    grid.setColumnShown(5, false);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(sorted(cellsOf(pages)), sorted(block({1, 3, 4}, 1, 3)));
    EXPECT_EQ(pages.at(0).count(u"h2"_s), 0);
}

TEST_F(GridPrint, makesNoPageWhenAllColumnsAreHidden)
{
    fillGrid(grid, 2, 3);
    grid.setColumnShown(1, false);
    grid.setColumnShown(2, false);
    EXPECT_TRUE(paper.print(grid).isEmpty());
    EXPECT_EQ(paper.outcome(), PrintOutcome::Done);
}

TEST_F(GridPrint, showsTheHeadingsOfAnEmptyGrid)
{
    fillGrid(grid, 2, 0);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages.at(0).texts(), (QStringList{u"Heading"_s, u"h1"_s, u"h2"_s, u"-1-"_s}));
}

TEST_F(GridPrint, ofABlockHoldsTheBlock)
{
    fillGrid(grid, 5, 20);
    GridPrintOptions options = PrintedGrid::plainOptions(GridPrintType::Block);
    options.block = {2, 7, 3, 9};
    const QList<PdfPage> pages = paper.print(grid, options);
    EXPECT_EQ(sorted(cellsOf(pages)), sorted(block({2, 3}, 7, 9)));
    EXPECT_EQ(pageNumbers(pages), QList<int>{1});
}

TEST_F(GridPrint, ofWholeRowsHoldsAllTheirCells)
{
    fillGrid(grid, 5, 20);
    GridPrintOptions options = PrintedGrid::plainOptions(GridPrintType::Block);
    options.block = {-1, 19, 5, 20};
    EXPECT_EQ(sorted(cellsOf(paper.print(grid, options))), sorted(block({1, 2, 3, 4, 5}, 19, 20)));
}

TEST_F(GridPrint, ofABlockEndsAtTheGridsEdge)
{
    fillGrid(grid, 3, 4);
    GridPrintOptions options = PrintedGrid::plainOptions(GridPrintType::Block);
    options.block = {3, 4, 9, 99};
    EXPECT_EQ(cellsOf(paper.print(grid, options)), QStringList{u"c3r4"_s});
}

class GridPrintDisplayed : public GridPrint
{
protected:
    GridPrintDisplayed()
    {
        fillGrid(grid, 20, 200);
        grid.resize(500, 400);
        grid.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&grid));
    }

    QList<PdfPage> printDisplayed()
    {
        return paper.print(grid, PrintedGrid::plainOptions(GridPrintType::DisplayedPage));
    }

    /// The cells of which at least a pixel is in view, as the user sees them.
    QStringList displayedCells(int firstColumn) const
    {
        QSet<QString> cells;
        const QRect view = grid.viewport()->rect();
        for (int y = 0; y < view.height(); ++y) {
            for (int x = 0; x < view.width(); x += 2) {
                const QModelIndex index = grid.indexAt({x, y});
                if (index.isValid() && index.column() + 1 >= firstColumn) {
                    cells << index.data().toString();
                }
            }
        }
        return sorted(QStringList(cells.begin(), cells.end()));
    }
};

TEST_F(GridPrintDisplayed, holdsTheCellsInView)
{
    grid.setTopRow(50);
    grid.horizontalScrollBar()->setValue(grid.horizontalScrollBar()->maximum() / 2);
    const QStringList cells = sorted(cellsOf(printDisplayed()));
    EXPECT_EQ(cells, displayedCells(1));
    EXPECT_FALSE(cells.isEmpty());
    EXPECT_FALSE(cells.contains(u"c1r50"_s));
}

TEST_F(GridPrintDisplayed, holdsTheFrozenColumnAndNotWhatItCovers)
{
    grid.setFrozenColumns(1);
    grid.horizontalScrollBar()->setValue(grid.horizontalScrollBar()->maximum());
    const QStringList cells = cellsOf(printDisplayed());
    EXPECT_TRUE(cells.contains(u"c1r1"_s));
    EXPECT_FALSE(cells.contains(u"c2r1"_s));
    EXPECT_TRUE(cells.contains(u"c20r1"_s));
}

TEST_F(GridPrintDisplayed, leavesAHiddenFrozenColumnOut)
{
    grid.setFrozenColumns(1);
    grid.setColumnShown(1, false);
    const QStringList cells = cellsOf(printDisplayed());
    EXPECT_FALSE(cells.contains(u"c1r1"_s));
    EXPECT_TRUE(cells.contains(u"c2r1"_s));
}

struct PrintedRange
{
    int from, to;
    QList<int> numbers;
};

class GridPrintRange : public GridPrint, public testing::WithParamInterface<PrintedRange>
{
};

TEST_P(GridPrintRange, keepsTheNumbersOfItsPages)
{
    fillGrid(grid, 2, 300);
    const QList<PdfPage> all = paper.print(grid);
    ASSERT_GT(all.size(), 4);
    QFile::remove(paper.fileName());

    const QList<PdfPage> pages = paper.print(grid, pageRange(GetParam().from, GetParam().to));
    EXPECT_EQ(pageNumbers(pages), GetParam().numbers);
    EXPECT_EQ(paper.outcome(), PrintOutcome::Done);
    EXPECT_EQ(paper.exists(), !GetParam().numbers.isEmpty());
    for (int i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages.at(i).texts(), all.at(GetParam().numbers.at(i) - 1).texts());
    }
}

INSTANTIATE_TEST_SUITE_P(Ranges, GridPrintRange,
    testing::Values(PrintedRange{2, 4, {2, 3, 4}}, PrintedRange{3, 3, {3}}, PrintedRange{0, 0, {1}},
        PrintedRange{0, 2, {1, 2}}, PrintedRange{2, 0, {2}}, PrintedRange{4, 2, {}}, PrintedRange{500, 900, {}}));

TEST_F(GridPrint, endsARangeWithTheLastPage)
{
    fillGrid(grid, 2, 300);
    const QList<int> all = pageNumbers(paper.print(grid));
    EXPECT_EQ(pageNumbers(paper.print(grid, pageRange(2, 32767))), all.sliced(1));
}

TEST_F(GridPrint, wrapsATextThatIsTooLongForItsColumn)
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

TEST_F(GridPrint, keepsLineBreaks)
{
    fillGrid(grid, 2, 1);
    grid.setText(1, 1, u"up\r\ndown"_s);
    const PdfPage page = paper.print(grid).value(0);
    EXPECT_GT(page.word(u"down"_s).box.top(), page.word(u"up"_s).box.center().y());
    EXPECT_NEAR(page.word(u"down"_s).box.left(), page.word(u"up"_s).box.left(), 0.1);
}

TEST_F(GridPrint, cutsAColumnThatIsWiderThanThePage)
{
    fillGrid(grid, 3, 2);
    grid.setWidthInCharacters(2, 500);
    const QList<PdfPage> pages = paper.print(grid);
    EXPECT_EQ(pages.size(), 3);
    EXPECT_EQ(sorted(cellsOf(pages)), sorted(block({1, 2, 3}, 1, 2)));
}

TEST_F(GridPrint, endsWithARowThatIsHigherThanThePage)
{
    fillGrid(grid, 2, 3);
    grid.setText(1, 2, QString(u"line\n"_s).repeated(500));
    const QList<PdfPage> pages = paper.print(grid);
    EXPECT_EQ(pages.size(), 3);
    EXPECT_EQ(pageNumbers(pages), (QList<int>{1, 2, 3}));
}

TEST_F(GridPrint, alignsTextsAsTheGridDoes)
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

TEST_F(GridPrint, isInTheGridsFont)
{
    fillGrid(grid, 2, 1, 20);
    const double height = paper.print(grid).value(0).word(u"c1r1"_s).box.height();
    QFont font = grid.gridFont();
    font.setPointSizeF(font.pointSizeF() * 2);
    grid.setGridFont(font);
    EXPECT_NEAR(paper.print(grid).value(0).word(u"c1r1"_s).box.height(), 2 * height, 0.5);
}

TEST_F(GridPrint, printsAFileNameThatLooksLikeCodesAsItIs)
{
    fillGrid(grid, 2, 1);
    GridPrintOptions options;
    options.header.addCodes(u"/l").addText(u"/p&/n.inv"_s).addCodes(u"/n");
    EXPECT_EQ(paper.print(grid, options).value(0).count(u"/p&/n.inv"_s), 1);
}

TEST_F(GridPrint, wrapsAHeaderThatIsTooLongForThePage)
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

class GridPrintEdge : public GridPrint, public testing::WithParamInterface<Paper>
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
    EXPECT_EQ(sorted(cellsOf(pages)).size(), 120);
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
    testing::Values(Paper{QPageLayout::Portrait, 1200}, Paper{QPageLayout::Landscape, 1200},
        Paper{QPageLayout::Portrait, 96}, Paper{QPageLayout::Landscape, 300}));

} // namespace
