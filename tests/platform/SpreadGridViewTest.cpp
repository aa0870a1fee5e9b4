#include "tests/platform/SpreadGridSupport.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextLayout>

#include <ostream>

using namespace Qt::StringLiterals;

void PrintTo(const GridBlock &block, std::ostream *out)
{
    *out << block.column1 << ',' << block.row1 << " to " << block.column2 << ',' << block.row2;
}

namespace {

// Whether a pixel of nearly that colour is in the part of the picture.
bool hasColour(const QImage &picture, const QRect &part, const QColor &colour)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) < 24 && std::abs(pixel.green() - colour.green()) < 24
                && std::abs(pixel.blue() - colour.blue()) < 24) {
                return true;
            }
        }
    }
    return false;
}

QImage pictureOf(SpreadGrid &grid)
{
    QApplication::processEvents();
    return grid.viewport()->grab().toImage();
}

QRect cellRect(const SpreadGrid &grid, int column, int row)
{
    return grid.visualRect(grid.model()->index(row - 1, column - 1));
}

// The inner part of a cell, without the frame of the active cell and the grid lines.
QRect innerRect(const SpreadGrid &grid, int column, int row)
{
    return cellRect(grid, column, row).adjusted(3, 3, -3, -3);
}

} // namespace

// Keys

struct KeyCase
{
    int column;
    int row;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    GridBlock selected;
};

class SpreadGridKeys : public testing::TestWithParam<KeyCase>
{
};

// 20 rows and 6 columns; column 2 is hidden; column 1 holds texts in rows 1 to 5 and 9.
TEST_P(SpreadGridKeys, moveAndSelectAsInSpreadSheets)
{
    const auto grid = shownGrid();
    grid->setColumnShown(2, false);
    for (const int row : {1, 2, 3, 4, 5, 9}) {
        grid->setText(1, row, u"1"_s);
    }
    grid->setActiveCell(GetParam().column, GetParam().row);
    pressKey(*grid, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(grid->selectedBlock(), GetParam().selected);
}

constexpr auto plain = Qt::NoModifier;
constexpr auto shift = Qt::ShiftModifier;
constexpr auto ctrl = Qt::ControlModifier;

INSTANTIATE_TEST_SUITE_P(Keys, SpreadGridKeys,
    testing::Values(KeyCase{3, 3, Qt::Key_Down, plain, {3, 4, 3, 4}}, KeyCase{3, 3, Qt::Key_Up, plain, {3, 2, 3, 2}},
        KeyCase{3, 1, Qt::Key_Up, plain, {3, 1, 3, 1}}, KeyCase{3, 3, Qt::Key_Left, plain, {1, 3, 1, 3}},
        KeyCase{1, 3, Qt::Key_Right, plain, {3, 3, 3, 3}}, KeyCase{6, 3, Qt::Key_Right, plain, {6, 3, 6, 3}},
        KeyCase{6, 3, Qt::Key_Tab, plain, {1, 4, 1, 4}}, KeyCase{1, 4, Qt::Key_Backtab, shift, {6, 3, 6, 3}},
        KeyCase{3, 3, Qt::Key_Return, plain, {3, 4, 3, 4}},
        KeyCase{3, 3, Qt::Key_Enter, shift | Qt::KeypadModifier, {3, 2, 3, 2}},
        KeyCase{3, 20, Qt::Key_Return, plain, {3, 20, 3, 20}}, KeyCase{5, 3, Qt::Key_Home, plain, {1, 3, 1, 3}},
        KeyCase{3, 3, Qt::Key_End, plain, {6, 3, 6, 3}}, KeyCase{5, 3, Qt::Key_Home, ctrl, {1, 1, 1, 1}},
        KeyCase{3, 3, Qt::Key_End, ctrl, {6, 20, 6, 20}}, KeyCase{1, 1, Qt::Key_Down, ctrl, {1, 5, 1, 5}},
        KeyCase{1, 5, Qt::Key_Down, ctrl, {1, 9, 1, 9}}, KeyCase{1, 9, Qt::Key_Down, ctrl, {1, 20, 1, 20}},
        KeyCase{1, 9, Qt::Key_Up, ctrl, {1, 5, 1, 5}}, KeyCase{1, 3, Qt::Key_Right, ctrl, {3, 3, 3, 3}},
        KeyCase{3, 3, Qt::Key_Down, shift, {3, 3, 3, 4}}, KeyCase{3, 3, Qt::Key_Left, shift, {1, 3, 3, 3}},
        KeyCase{3, 3, Qt::Key_End, shift | ctrl, {3, 3, 6, 20}}, KeyCase{3, 3, Qt::Key_Space, ctrl, {3, 1, 3, 20}},
        KeyCase{3, 3, Qt::Key_Space, shift, {-1, 3, 6, 3}}, KeyCase{3, 3, Qt::Key_A, ctrl, {-1, 1, 6, 20}}));

TEST(SpreadGridView, keepsTheActiveCellWhereAnExtensionBegan)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 3);
    pressKey(*grid, Qt::Key_Down, shift);
    pressKey(*grid, Qt::Key_Down, shift);
    pressKey(*grid, Qt::Key_Right, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 3, 3, 5}));
    EXPECT_EQ(grid->activeRow(), 3);
    EXPECT_EQ(grid->activeColumn(), 2);
    pressKey(*grid, Qt::Key_Up, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 3, 3, 4}));
    EXPECT_TRUE(grid->isBlockSelected());
}

TEST(SpreadGridView, extendsRowsAsRows)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 3);
    pressKey(*grid, Qt::Key_Space, shift);
    pressKey(*grid, Qt::Key_Down, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 4}));
    EXPECT_TRUE(grid->isBlockSelected());
}

TEST(SpreadGridView, turnsThePage)
{
    const auto grid = shownGrid(100);
    const int page = grid->bottomRow() - grid->topRow();
    pressKey(*grid, Qt::Key_PageDown);
    EXPECT_EQ(grid->activeRow(), 1 + page);
    EXPECT_EQ(grid->topRow(), 1 + page);
    pressKey(*grid, Qt::Key_PageUp);
    EXPECT_EQ(grid->activeRow(), 1);
    EXPECT_EQ(grid->topRow(), 1);
}

TEST(SpreadGridView, leavesTheGridWithTabFromTheLastCell)
{
    QWidget window;
    auto *grid = shownGrid(2).release();
    grid->setParent(&window);
    QLineEdit behind(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    grid->setFocus();
    grid->setActiveCell(6, 2);
    QTest::keyClick(grid, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &behind);
}

TEST(SpreadGridView, doesNotOpenAnEditorForAKeyThatTheCellRefuses)
{
    const auto grid = shownGrid();
    grid->setActiveCell(1, 1);
    QTest::keyClick(grid.get(), 'x');
    EXPECT_EQ(openEditor(*grid), nullptr);
}

// Mouse

TEST(SpreadGridView, selectsByDragging)
{
    const auto grid = shownGrid();
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, placeOf(*grid, 2, 2));
    QTest::mouseMove(grid->viewport(), placeOf(*grid, 3, 4));
    QMouseEvent move(QEvent::MouseMove, placeOf(*grid, 4, 5), grid->viewport()->mapToGlobal(placeOf(*grid, 4, 5)),
        Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid->viewport(), &move);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, placeOf(*grid, 4, 5));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 2, 4, 5}));
    EXPECT_EQ(grid->activeRow(), 2);
    clickCell(*grid, 6, 6, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 2, 6, 6}));
}

TEST(SpreadGridView, reportsADragOverAllColumnsAsCells)
{
    const auto grid = shownGrid();
    clickCell(*grid, 1, 2);
    clickCell(*grid, 6, 3, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{1, 2, 6, 3}));
}

TEST(SpreadGridView, scrollsWhileTheMouseIsHeldBelow)
{
    const auto grid = shownGrid(200);
    const int bottom = grid->bottomRow();
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, placeOf(*grid, 2, 2));
    const QPoint below = placeOf(*grid, 2, 2) + QPoint(0, grid->viewport()->height() + 30);
    QMouseEvent move(QEvent::MouseMove, below, grid->viewport()->mapToGlobal(below), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid->viewport(), &move);
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid->selectedBlock().row2 > bottom + 3; }, 3000));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, below);
    EXPECT_GT(grid->topRow(), 1);
    EXPECT_EQ(grid->activeRow(), 2);
}

TEST(SpreadGridView, selectsRowsByTheirNumbers)
{
    const auto grid = shownGrid();
    QWidget *numbers = grid->verticalHeader()->viewport();
    const auto place = [&](int row) { return QPoint(5, placeOf(*grid, 1, row).y()); };
    QTest::mouseClick(numbers, Qt::LeftButton, {}, place(3));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 3}));
    EXPECT_TRUE(grid->isBlockSelected());
    QTest::mouseClick(numbers, Qt::LeftButton, shift, place(5));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 5}));
    EXPECT_EQ(grid->activeRow(), 3);
    clickCell(*grid, 2, 2);
    EXPECT_FALSE(grid->isBlockSelected());
}

TEST(SpreadGridView, selectsAColumnByItsHeaderAndAllByTheCorner)
{
    const auto grid = shownGrid();
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, headerPlace(*grid, 3));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{3, 1, 3, 20}));
    QTest::mouseClick(grid->findChild<QWidget *>(u"corner"_s), Qt::LeftButton);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 1, 6, 20}));
    grid->setRowCount(22);
    EXPECT_EQ(grid->activeRow(), 1);
}

TEST(SpreadGridView, asksOnceForTheMenuHoweverTheDesktopOrdersItsEvents)
{
    const auto grid = shownGrid();
    QSignalSpy asked(grid.get(), &SpreadGrid::rightClicked);
    const auto menuEvent = [&] {
        const QPoint place = placeOf(*grid, 2, 3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid->viewport(), &event);
    };
    clickCell(*grid, 2, 3, {}, Qt::RightButton);
    menuEvent(); // behind the release
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.first()[0].toInt(), 2);
    EXPECT_EQ(asked.first()[1].toInt(), 3);
    EXPECT_EQ(grid->activeRow(), 3);
    QTest::mousePress(grid->viewport(), Qt::RightButton, {}, placeOf(*grid, 2, 3));
    menuEvent(); // before the release
    QTest::mouseRelease(grid->viewport(), Qt::RightButton, {}, placeOf(*grid, 2, 3));
    EXPECT_EQ(asked.count(), 2);
    menuEvent(); // alone
    EXPECT_EQ(asked.count(), 3);
}

TEST(SpreadGridView, keepsASelectionThatIsRightClicked)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 2, 4, 5});
    clickCell(*grid, 3, 3, {}, Qt::RightButton);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 2, 4, 5}));
    clickCell(*grid, 5, 7, {}, Qt::RightButton);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{5, 7, 5, 7}));
}

TEST(SpreadGridView, tellsOfRightClicksOnHeaders)
{
    const auto grid = shownGrid();
    QSignalSpy asked(grid.get(), &SpreadGrid::rightClicked);
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::RightButton, {}, headerPlace(*grid, 3));
    QTest::mouseClick(grid->verticalHeader()->viewport(), Qt::RightButton, {}, {5, placeOf(*grid, 1, 4).y()});
    QTest::mouseClick(grid->findChild<QWidget *>(u"corner"_s), Qt::RightButton);
    ASSERT_EQ(asked.count(), 3);
    EXPECT_EQ(QPoint(asked[0][0].toInt(), asked[0][1].toInt()), QPoint(3, 0));
    EXPECT_EQ(QPoint(asked[1][0].toInt(), asked[1][1].toInt()), QPoint(0, 4));
    EXPECT_EQ(QPoint(asked[2][0].toInt(), asked[2][1].toInt()), QPoint(0, 0));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 4, 6, 4}));
}

TEST(SpreadGridView, tellsOfDoubleClicksOnHeadersOnly)
{
    const auto grid = shownGrid();
    QSignalSpy clicked(grid.get(), &SpreadGrid::headerDoubleClicked);
    doubleClickCell(*grid, 2, 1);
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, headerPlace(*grid, 2));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.first().first().toInt(), 2);
}

TEST(SpreadGridView, fitsAColumnByADoubleClickOnItsEdge)
{
    const auto grid = shownGrid();
    grid->setText(3, 15, u"a text that is wider than the column has been so far"_s);
    const QRect cell = cellRect(*grid, 3, 1);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {cell.right() - 1, 5});
    EXPECT_GT(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance(grid->text(3, 15)));
}

// The active cell

TEST(SpreadGridView, tellsWhenTheActiveCellMoves)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 2);
    QSignalSpy left(grid.get(), &SpreadGrid::cellLeft);
    pressKey(*grid, Qt::Key_Down);
    ASSERT_EQ(left.count(), 1);
    EXPECT_EQ(left.first(), QList<QVariant>({2, 2, 2, 3}));
    pressKey(*grid, Qt::Key_Down, shift); // the active cell stays
    grid->setRowCount(2); // and goes silently when its row goes
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(grid->activeRow(), 2);
    grid->setActiveCell(3, 1);
    EXPECT_EQ(left.count(), 2);
}

TEST(SpreadGridView, makesTheFirstCellActiveAsSoonAsThereIsOne)
{
    SpreadGrid grid;
    EXPECT_EQ(grid.activeRow(), 0);
    EXPECT_EQ(grid.selectedBlock(), (GridBlock{0, 0, 0, 0}));
    grid.setColumnCount(3);
    grid.setRowCount(2);
    EXPECT_EQ(grid.selectedBlock(), (GridBlock{1, 1, 1, 1}));
    grid.setRowCount(0);
    EXPECT_EQ(grid.activeRow(), 0);
    grid.clearSelectedCells();
    grid.cutSelection();
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_A);
}

TEST(SpreadGridView, takesAWholeRowThatTheDesktopSelectsAsRows)
{
    const auto grid = shownGrid();
    static_cast<QTableView &>(*grid).selectRow(3);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 4, 6, 4}));
    grid->setCurrentIndex(grid->model()->index(6, 2));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{3, 7, 3, 7}));
}

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
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {20, 5});
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{1, 1, 1, 20}));
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
    grid->setText(2, 2, u"a"_s);
    grid->fitRowHeight(2);
    EXPECT_EQ(grid->rowHeight(1), height);
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

// Painting

TEST(SpreadGridView, paintsTextsInTheColourOfTheirCells)
{
    const auto grid = shownGrid();
    const QColor darkRed(128, 0, 0);
    grid->setActiveCell(6, 10);
    grid->setForeColour({2, 2, 2, 2}, darkRed);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 2), darkRed));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 3), darkRed));
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 3), grid->palette().color(QPalette::Text)));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 1, 3), grid->palette().color(QPalette::Text)));
}

TEST(SpreadGridView, marksTheSelectionAndTheActiveCell)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 2, 3, 4});
    const QColor highlight = grid->palette().color(QPalette::Highlight);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 3, 3), highlight));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 2), highlight)); // active: a frame around its own ground
    EXPECT_TRUE(hasColour(picture, cellRect(*grid, 2, 2), highlight));
    EXPECT_FALSE(hasColour(picture, cellRect(*grid, 4, 3), highlight));
}

TEST(SpreadGridView, paintsATickForANumberOtherThanZero)
{
    const auto grid = shownGrid();
    grid->setActiveCell(6, 10);
    grid->setText(4, 1, u"0"_s);
    grid->setText(4, 2, u"1"_s);
    grid->setText(4, 3, u"-1"_s);
    grid->setText(4, 4, u"0"_s);
    const QImage picture = pictureOf(*grid);
    const auto cell = [&](int row) { return picture.copy(innerRect(*grid, 4, row)); };
    EXPECT_EQ(cell(1), cell(4));
    EXPECT_EQ(cell(2), cell(3));
    EXPECT_NE(cell(1), cell(2));
}

TEST(SpreadGridView, showsTheCornersText)
{
    const auto grid = shownGrid();
    auto *corner = grid->findChild<QWidget *>(u"corner"_s);
    const QImage empty = corner->grab().toImage();
    grid->setText(0, 0, u"No"_s);
    EXPECT_NE(corner->grab().toImage(), empty);
    EXPECT_EQ(grid->text(0, 0), u"No"_s);
}

class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST(SpreadGridView, paintsNothingWhileRedrawIsOff)
{
    const auto grid = shownGrid();
    QApplication::processEvents();
    PaintCounter paints;
    grid->viewport()->installEventFilter(&paints);
    grid->setRedraw(false);
    grid->setRedraw(false);
    grid->setText(2, 1, u"x"_s);
    QApplication::processEvents();
    grid->setRedraw(true);
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    grid->setRedraw(true);
    QApplication::processEvents();
    EXPECT_GT(paints.count, 0);
}
