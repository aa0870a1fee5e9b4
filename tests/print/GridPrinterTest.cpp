#include "print/GridPrinter.h"

#include "grid/SpreadGrid.h"
#include "tests/support/Patience.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// How often each word occurs on all pages together.
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

TEST_F(GridPrint, isInRowsAndColumns)
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
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&grid, patience));
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
    testing::ValuesIn(std::vector<PrintedRange>{
        {2, 4, {2, 3, 4}},
        {3, 3, {3}},
        {0, 0, {1}},
        {0, 2, {1, 2}},
        {2, 0, {2}},
        {4, 2, {}},
        {500, 900, {}},
    }));

TEST_F(GridPrint, endsARangeWithTheLastPage)
{
    fillGrid(grid, 2, 300);
    const QList<int> all = pageNumbers(paper.print(grid));
    EXPECT_EQ(pageNumbers(paper.print(grid, pageRange(2, 32767))), all.sliced(1));
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

TEST_F(GridPrint, repeatsAFrozenColumnOnEveryStrip)
{
    fillGrid(grid, 30, 3);
    grid.setFrozenColumns(1);
    const QList<PdfPage> pages = paper.print(grid);
    ASSERT_GE(pages.size(), 3);
    for (const PdfPage &page : pages) {
        EXPECT_EQ(page.count(u"h1"_s), 1);
        EXPECT_EQ(page.count(u"c1r2"_s), 1);
        const double others = page.word(cellsOf(page).value(1)).box.left();
        EXPECT_LT(page.word(u"c1r1"_s).box.right(), others);
        EXPECT_LT(page.words.last().box.right(), page.size.width());
    }
    EXPECT_EQ(cellsOf(pages).size(), 30 * 3 + (pages.size() - 1) * 3) << "each other cell once";
}

TEST_F(GridPrint, doesNotRepeatAFrozenColumnThatIsNotPrinted)
{
    fillGrid(grid, 30, 3);
    grid.setFrozenColumns(1);
    GridPrintOptions options = PrintedGrid::plainOptions(GridPrintType::Block);
    options.block = {2, 1, 30, 2};
    EXPECT_EQ(cellsOf(paper.print(grid, options)).filter(u"c1r"_s), QStringList());
    grid.setColumnShown(1, false);
    EXPECT_EQ(cellsOf(paper.print(grid)).filter(u"c1r"_s), QStringList());
}

TEST_F(GridPrint, doesNotRepeatAFrozenColumnThatIsTooWide)
{
    fillGrid(grid, 4, 2, 40);
    grid.setFrozenColumns(1);
    grid.setWidthInCharacters(1, 70);
    const QList<PdfPage> pages = paper.print(grid);
    EXPECT_EQ(cellsOf(pages).size(), 8);
}

} // namespace
