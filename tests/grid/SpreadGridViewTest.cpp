#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleFactory>
#include <QToolTip>

using namespace Qt::StringLiterals;

// Scrolling and the frozen column

class SpreadGridFrozen : public testing::Test
{
protected:
    SpreadGridFrozen()
    {
        grid->setFrozenColumns(1);
        grid->resize(260, 320);
        for (int row = 1; row <= 20; ++row) {
            grid->setText(1, row, QString::number(row));
        }
        QApplication::processEvents();
        grid->setActiveCell(6, 3);
        QApplication::processEvents();
    }

    std::unique_ptr<SpreadGrid> grid = shownGrid();
};

TEST_F(SpreadGridFrozen, staysInViewWithItsHeader)
{
    ASSERT_GT(grid->horizontalScrollBar()->value(), 0);
    EXPECT_EQ(cellRect(*grid, 1, 3).left(), 0);
    EXPECT_EQ(grid->indexAt({5, placeOf(*grid, 1, 4).y()}), grid->model()->index(3, 0));
    const QImage scrolled = pictureOf(*grid).copy(innerRect(*grid, 1, 2));
    const QImage header = grid->horizontalHeader()->viewport()->grab().toImage().copy(0, 0, 80, 15);
    grid->horizontalScrollBar()->setValue(0);
    EXPECT_EQ(scrolled, pictureOf(*grid).copy(innerRect(*grid, 1, 2)));
    EXPECT_EQ(header, grid->horizontalHeader()->viewport()->grab().toImage().copy(0, 0, 80, 15));
}

TEST_F(SpreadGridFrozen, isSelectedAndEditedByTheMouse)
{
    const int scrolled = grid->horizontalScrollBar()->value();
    doubleClickCell(*grid, 1, 4);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{1, 4, 1, 4}));
    ASSERT_NE(openEditor(*grid), nullptr);
    EXPECT_EQ(openEditor(*grid)->x(), 0);
    typeText(*grid, u"5"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(1, 4), u"45"_s);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), scrolled);
    QSignalSpy clicked(grid.get(), &SpreadGrid::headerDoubleClicked);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {20, 5});
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.first().first().toInt(), 1);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{1, 5, 1, 5}));
}

TEST_F(SpreadGridFrozen, isWidenedByItsHeadersEdge)
{
    QWidget *header = grid->horizontalHeader()->viewport();
    const int width = grid->columnWidth(0);
    const auto moveTo = [&](int x) {
        QMouseEvent move(
            QEvent::MouseMove, QPoint(x, 5), header->mapToGlobal(QPoint(x, 5)), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(header, &move);
    };
    QTest::mousePress(header, Qt::LeftButton, {}, {width - 1, 5});
    moveTo(width + 10);
    moveTo(width + 19);
    QTest::mouseRelease(header, Qt::LeftButton, {}, {width + 19, 5});
    EXPECT_EQ(grid->columnWidth(0), width + 20);
}

TEST_F(SpreadGridFrozen, doesNotCoverTheCellThatBecomesActive)
{
    for (int press = 0; press < 4; ++press) {
        pressKey(*grid, Qt::Key_Left);
        const QRect active = cellRect(*grid, grid->activeColumn(), grid->activeRow());
        EXPECT_GE(active.left(), grid->columnWidth(0)) << grid->activeColumn();
    }
    EXPECT_EQ(grid->activeColumn(), 2);
}

TEST_F(SpreadGridFrozen, leavesNothingBehindWhenItIsHidden)
{
    grid->setColumnShown(1, false);
    grid->horizontalScrollBar()->setValue(30);
    EXPECT_NE(grid->indexAt({5, 5}).column(), 0);
}

TEST(SpreadGridView, bringsARowToTheTop)
{
    const auto grid = shownGrid(500);
    grid->setTopRow(250);
    EXPECT_EQ(grid->topRow(), 250);
    grid->setActiveCell(1, 250);
    EXPECT_EQ(grid->topRow(), 250);
    grid->setActiveCell(1, 249);
    EXPECT_EQ(grid->topRow(), 249);
    grid->setTopRow(500);
    EXPECT_EQ(grid->bottomRow(), 500);
}

// Widths, heights, font

TEST(SpreadGridView, measuresAllRowsForAFit)
{
    const auto grid = shownGrid(3000);
    grid->setText(2, 2900, u"the widest text of all stands nearly at the end"_s);
    grid->fitColumnWidth(2);
    const int width = grid->columnWidth(1);
    EXPECT_GT(width, grid->fontMetrics().horizontalAdvance(grid->text(2, 2900)));
    EXPECT_LT(width, grid->fontMetrics().horizontalAdvance(grid->text(2, 2900)) + 20);
    grid->setText(2, 2900, QString());
    grid->setText(2, 0, u"a header that is wider"_s);
    grid->fitColumnWidth(2);
    EXPECT_GT(grid->columnWidth(1), grid->fontMetrics().horizontalAdvance(u"a header that is wider"_s));
    EXPECT_LT(grid->columnWidth(1), width);
}

TEST(SpreadGridView, showsTheLastRowNumberWhole)
{
    SpreadGrid grid;
    grid.setColumnCount(1);
    grid.setWidthInCharacters(0, 4);
    const int width = grid.verticalHeader()->width();
    grid.setRowCount(32767);
    EXPECT_GT(grid.verticalHeader()->width(), width);
    grid.setRowCount(10);
    EXPECT_EQ(grid.verticalHeader()->width(), width);
}

TEST(SpreadGridView, makesARowAsHighAsItsLines)
{
    const auto grid = shownGrid();
    const int height = grid->rowHeight(1);
    grid->setText(2, 2, u"a\r\nb\nc"_s);
    grid->fitRowHeight(2);
    EXPECT_EQ(grid->rowHeight(1), height + 2 * grid->fontMetrics().lineSpacing());
    grid->setText(3, 2, u"a\r\nb"_s); // fewer lines, though more characters end them
    grid->setText(2, 2, u"a\nb\nc"_s);
    grid->fitRowHeight(2);
    EXPECT_EQ(grid->rowHeight(1), height + 2 * grid->fontMetrics().lineSpacing());
    grid->setText(3, 2, u"a\r\nb\r\nc"_s);
    grid->setText(2, 2, u"a\nb\nc\nd"_s);
    grid->fitRowHeight(2);
    EXPECT_EQ(grid->rowHeight(1), height + 3 * grid->fontMetrics().lineSpacing());
    grid->setText(3, 2, {});
    grid->setText(2, 2, u"a"_s);
    grid->fitRowHeight(2);
    EXPECT_EQ(grid->rowHeight(1), height);
}

/// How many dots of a section's text are to be seen; lines at its left and right do not count.
int textDots(const QHeaderView &header, int section)
{
    constexpr int edge = 3;
    const QRect inner(
        header.sectionPosition(section) + edge, 0, header.sectionSize(section) - 2 * edge, header.viewport()->height());
    const QImage picture = header.viewport()->grab().toImage();
    int dots = 0;
    for (int x = inner.left(); x <= inner.right(); ++x) {
        for (int y = inner.top(); y <= inner.bottom(); ++y) {
            dots += picture.pixelColor(x, y).lightness() < 100 ? 1 : 0;
        }
    }
    return dots;
}

// Classic styles keep four pixels free on each side, which a line as high as its letters does not have.
TEST(SpreadGridView, showsHeadingsWholeInEveryStyle)
{
    const std::unique_ptr<QStyle> classic(QStyleFactory::create(u"Windows"_s));
    const auto grid = shownGrid();
    grid->setText(2, 0, u"gjpqyQ"_s);
    QHeaderView *const header = grid->horizontalHeader();
    header->setStyle(classic.get());
    header->setFixedHeight(header->fontMetrics().height() + 1);
    const int dots = textDots(*header, 1);
    header->setFixedHeight(3 * header->height());
    const int allDots = textDots(*header, 1);
    EXPECT_GT(allDots, 0);
    EXPECT_GE(dots, allDots); // more where letters touch a line
}

TEST(SpreadGridView, showsAnEllipsisWhereAHeadingIsCut)
{
    const auto grid = shownGrid();
    QHeaderView *const header = grid->horizontalHeader();
    header->resizeSection(1, 70);
    const auto shown = [&](const QString &heading) {
        grid->setText(2, 0, heading);
        return header->viewport()->grab().toImage();
    };
    bool isWithEllipsis = false;
    const QImage cut = shown(u"Acceleration time"_s);
    for (const QString &beginning : {u"Acc"_s, u"Acce"_s, u"Accel"_s, u"Accele"_s, u"Acceler"_s, u"Accelera"_s}) {
        isWithEllipsis = isWithEllipsis || cut == shown(beginning + u'\u2026');
    }
    EXPECT_TRUE(isWithEllipsis);
}

TEST(SpreadGridView, keepsRowHeightsAndWidthsWhenTheFontGrows)
{
    const auto grid = shownGrid();
    grid->setWidthInCharacters(2, 10);
    const int row = grid->rowHeight(0);
    const int header = grid->horizontalHeader()->height();
    const int width = grid->columnWidth(1);
    QFont font = grid->gridFont();
    font.setPointSize(30);
    grid->setGridFont(font);
    QApplication::processEvents();
    EXPECT_EQ(grid->rowHeight(0), row);
    EXPECT_EQ(grid->columnWidth(1), width);
    EXPECT_EQ(grid->horizontalHeader()->height(), header);
    grid->fitRowHeight(0);
    EXPECT_GT(grid->horizontalHeader()->height(), header);
    EXPECT_EQ(grid->horizontalHeader()->font().pointSize(), 30);
    EXPECT_EQ(grid->rowHeight(0), row);
}

TEST(SpreadGridView, takesItsHeightsFromTheFontWhileItIsEmpty)
{
    SpreadGrid grid;
    QFont font = grid.gridFont();
    font.setPointSize(30);
    grid.setGridFont(font);
    grid.setColumnCount(1);
    grid.setRowCount(2);
    EXPECT_GE(grid.rowHeight(1), grid.fontMetrics().height());
    EXPECT_GE(grid.horizontalHeader()->height(), grid.fontMetrics().height());
}

// Tool tips

TEST(SpreadGridView, showsACutOffTextWholeAsAToolTip)
{
    const auto grid = shownGrid();
    grid->setWidthInCharacters(2, 5);
    grid->setText(2, 1, u"much longer than <b>five</b> digits"_s);
    const auto help = [&](int row) {
        const QPoint place = placeOf(*grid, 2, row);
        QHelpEvent event(QEvent::ToolTip, place, grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid->viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_TRUE(help(1).contains(u"&lt;b&gt;five"_s)) << help(1).toStdString();
    QToolTip::hideText();
    ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience));
    EXPECT_EQ(help(2), QString());
}
