#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>

#include <vector>

using namespace Qt::StringLiterals;

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
    testing::ValuesIn(std::vector<KeyCase>{
        {3, 3, Qt::Key_Down, plain, {3, 4, 3, 4}},
        {3, 3, Qt::Key_Up, plain, {3, 2, 3, 2}},
        {3, 1, Qt::Key_Up, plain, {3, 1, 3, 1}},
        {3, 3, Qt::Key_Left, plain, {1, 3, 1, 3}},
        {1, 3, Qt::Key_Right, plain, {3, 3, 3, 3}},
        {6, 3, Qt::Key_Right, plain, {6, 3, 6, 3}},
        {6, 3, Qt::Key_Tab, plain, {1, 4, 1, 4}},
        {1, 4, Qt::Key_Backtab, shift, {6, 3, 6, 3}},
        {3, 3, Qt::Key_Return, plain, {3, 4, 3, 4}},
        {3, 3, Qt::Key_Enter, shift | Qt::KeypadModifier, {3, 2, 3, 2}},
        {3, 20, Qt::Key_Return, plain, {3, 20, 3, 20}},
        {5, 3, Qt::Key_Home, plain, {1, 3, 1, 3}},
        {3, 3, Qt::Key_End, plain, {6, 3, 6, 3}},
        {5, 3, Qt::Key_Home, ctrl, {1, 1, 1, 1}},
        {3, 3, Qt::Key_End, ctrl, {6, 20, 6, 20}},
        {1, 1, Qt::Key_Down, ctrl, {1, 5, 1, 5}},
        {1, 5, Qt::Key_Down, ctrl, {1, 9, 1, 9}},
        {1, 9, Qt::Key_Down, ctrl, {1, 20, 1, 20}},
        {1, 9, Qt::Key_Up, ctrl, {1, 5, 1, 5}},
        {1, 3, Qt::Key_Right, ctrl, {3, 3, 3, 3}},
        {3, 3, Qt::Key_Down, shift, {3, 3, 3, 4}},
        {3, 3, Qt::Key_Left, shift, {1, 3, 3, 3}},
        {3, 3, Qt::Key_End, shift | ctrl, {3, 3, 6, 20}},
        {3, 3, Qt::Key_Space, ctrl, {3, 1, 3, 20}},
        {3, 3, Qt::Key_Space, shift, {-1, 3, 6, 3}},
        {3, 3, Qt::Key_A, ctrl, {-1, 1, 6, 20}},
    }));

TEST(SpreadGridSelect, keepsTheActiveCellWhereAnExtensionBegan)
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

TEST(SpreadGridSelect, extendsRowsAsRows)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 3);
    pressKey(*grid, Qt::Key_Space, shift);
    pressKey(*grid, Qt::Key_Down, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 4}));
    EXPECT_TRUE(grid->isBlockSelected());
}

TEST(SpreadGridSelect, turnsThePage)
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

TEST(SpreadGridSelect, leavesTheGridWithTabFromTheLastCell)
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

TEST(SpreadGridSelect, doesNotOpenAnEditorForAKeyThatTheCellRefuses)
{
    const auto grid = shownGrid();
    grid->setActiveCell(1, 1);
    QTest::keyClick(grid.get(), 'x');
    EXPECT_EQ(openEditor(*grid), nullptr);
}

TEST(SpreadGridSelect, opensTheEditorForTextFromAnInputMethod)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 1);
    QInputMethodEvent composed;
    composed.setCommitString(u"加速"_s);
    QApplication::sendEvent(grid.get(), &composed);
    auto *edit = qobject_cast<QLineEdit *>(openEditor(*grid));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), u"加速"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(2, 1), u"加速"_s);
}

// Mouse

TEST(SpreadGridSelect, selectsByDragging)
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

TEST(SpreadGridSelect, reportsADragOverAllColumnsAsCells)
{
    const auto grid = shownGrid();
    clickCell(*grid, 1, 2);
    clickCell(*grid, 6, 3, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{1, 2, 6, 3}));
}

TEST(SpreadGridSelect, scrollsWhileTheMouseIsHeldBelow)
{
    const auto grid = shownGrid(200);
    const int bottom = grid->bottomRow();
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, placeOf(*grid, 2, 2));
    const QPoint below = placeOf(*grid, 2, 2) + QPoint(0, grid->viewport()->height() + 30);
    QMouseEvent move(QEvent::MouseMove, below, grid->viewport()->mapToGlobal(below), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid->viewport(), &move);
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid->selectedBlock().row2 > bottom + 3; }, patience));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, below);
    EXPECT_GT(grid->topRow(), 1);
    EXPECT_EQ(grid->activeRow(), 2);
}

TEST(SpreadGridSelect, selectsRowsByTheirNumbers)
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

TEST(SpreadGridSelect, makesTheFirstOfTheRowsTheActiveOneWhicheverWasClickedFirst)
{
    const auto grid = shownGrid();
    QWidget *numbers = grid->verticalHeader()->viewport();
    const auto place = [&](int row) { return QPoint(5, placeOf(*grid, 1, row).y()); };
    QTest::mouseClick(numbers, Qt::LeftButton, {}, place(5));
    QTest::mouseClick(numbers, Qt::LeftButton, shift, place(3));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 5}));
    EXPECT_EQ(grid->activeRow(), 3);
    QTest::mouseClick(numbers, Qt::LeftButton, shift, place(7)); // still from row 5 on
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 5, 6, 7}));
    EXPECT_EQ(grid->activeRow(), 5);
    QTest::mousePress(numbers, Qt::LeftButton, {}, place(9));
    QMouseEvent move(
        QEvent::MouseMove, place(6), numbers->mapToGlobal(place(6)), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(numbers, &move);
    QTest::mouseRelease(numbers, Qt::LeftButton, {}, place(6));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 6, 6, 9}));
    EXPECT_EQ(grid->activeRow(), 6);
}

TEST(SpreadGridSelect, makesTheFirstOfTheRowsTheActiveOneWithTheKeys)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 5);
    QSignalSpy left(grid.get(), &SpreadGrid::cellLeft);
    pressKey(*grid, Qt::Key_Space, shift);
    pressKey(*grid, Qt::Key_Up, shift);
    pressKey(*grid, Qt::Key_Up, shift);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 3, 6, 5}));
    EXPECT_EQ(QPoint(grid->activeColumn(), grid->activeRow()), QPoint(2, 3));
    ASSERT_EQ(left.count(), 2);
    EXPECT_EQ(left.last().last().toInt(), 3);
    for (int press = 0; press < 3; ++press) {
        pressKey(*grid, Qt::Key_Down, shift);
    }
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 5, 6, 6}));
    EXPECT_EQ(grid->activeRow(), 5);
    pressKey(*grid, Qt::Key_A, ctrl);
    EXPECT_EQ(QPoint(grid->activeColumn(), grid->activeRow()), QPoint(2, 1));
}

TEST(SpreadGridSelect, selectsNothingByAHeading)
{
    const auto grid = shownGrid();
    const GridBlock block{2, 2, 4, 5};
    grid->selectBlock(block);
    QWidget *headings = grid->horizontalHeader()->viewport();
    auto *corner = grid->findChild<QWidget *>(u"corner"_s);
    for (const Qt::KeyboardModifiers modifiers : {plain, shift, ctrl}) {
        QTest::mouseClick(headings, Qt::LeftButton, modifiers, headerPlace(*grid, 3));
        EXPECT_EQ(grid->selectedBlock(), block);
        QTest::mouseClick(corner, Qt::LeftButton, modifiers);
        EXPECT_EQ(grid->selectedBlock(), block);
    }
    QTest::mouseDClick(headings, Qt::LeftButton, {}, headerPlace(*grid, 3));
    QTest::mouseDClick(corner, Qt::LeftButton);
    EXPECT_EQ(grid->selectedBlock(), block);
    QTest::mousePress(headings, Qt::LeftButton, {}, headerPlace(*grid, 3));
    const QPoint next = headerPlace(*grid, 5);
    QMouseEvent move(
        QEvent::MouseMove, next, headings->mapToGlobal(next), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(headings, &move);
    QTest::mouseRelease(headings, Qt::LeftButton, {}, next);
    EXPECT_EQ(grid->selectedBlock(), block);
    EXPECT_EQ(QPoint(grid->activeColumn(), grid->activeRow()), QPoint(2, 2));
}

TEST(SpreadGridSelect, countsWhatIsBeingTypedWhenAHeadingIsDoubleClicked)
{
    const auto grid = shownGrid();
    QObject::connect(grid.get(), &SpreadGrid::headerDoubleClicked, grid.get(), &SpreadGrid::fitColumnWidth);
    const int width = grid->columnWidth(1);
    grid->setActiveCell(2, 3);
    typeText(*grid, u"a text that is wider than the column has been so far"_s);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, headerPlace(*grid, 2));
    EXPECT_GT(grid->columnWidth(1), 2 * width);
}

TEST(SpreadGridSelect, asksOnceForTheMenuHoweverTheDesktopOrdersItsEvents)
{
    const auto grid = shownGrid();
    QSignalSpy asked(grid.get(), &SpreadGrid::rightClicked);
    const auto menuEvent = [&] {
        const QPoint place = placeOf(*grid, 2, 3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid->viewport()->mapToGlobal(place));
        QApplication::sendEvent(grid->viewport(), &event);
    };
    clickCell(*grid, 2, 3, {}, Qt::RightButton);
    menuEvent(); // after the release
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

TEST(SpreadGridSelect, keepsASelectionThatIsRightClicked)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 2, 4, 5});
    clickCell(*grid, 3, 3, {}, Qt::RightButton);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{2, 2, 4, 5}));
    clickCell(*grid, 5, 7, {}, Qt::RightButton);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{5, 7, 5, 7}));
}

TEST(SpreadGridSelect, reportsRightClicksOnHeaders)
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

TEST(SpreadGridSelect, reportsDoubleClicksOnHeadersOnly)
{
    const auto grid = shownGrid();
    QSignalSpy clicked(grid.get(), &SpreadGrid::headerDoubleClicked);
    doubleClickCell(*grid, 2, 1);
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, headerPlace(*grid, 2));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.first().first().toInt(), 2);
}

TEST(SpreadGridSelect, fitsAColumnByADoubleClickOnItsEdge)
{
    const auto grid = shownGrid();
    grid->setText(3, 15, u"a text that is wider than the column has been so far"_s);
    const QRect cell = cellRect(*grid, 3, 1);
    QTest::mouseDClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {cell.right() - 1, 5});
    EXPECT_GT(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance(grid->text(3, 15)));
}

// The active cell

TEST(SpreadGridSelect, reportsMovesOfTheActiveCell)
{
    const auto grid = shownGrid();
    grid->setActiveCell(2, 2);
    QSignalSpy left(grid.get(), &SpreadGrid::cellLeft);
    pressKey(*grid, Qt::Key_Down);
    ASSERT_EQ(left.count(), 1);
    EXPECT_EQ(left.first(), QList<QVariant>({2, 2, 2, 3}));
    pressKey(*grid, Qt::Key_Down, shift); // the active cell stays
    grid->setRowCount(2); // and silently, when its row is dropped
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(grid->activeRow(), 2);
    grid->setActiveCell(3, 1);
    EXPECT_EQ(left.count(), 2);
}

TEST(SpreadGridSelect, makesTheFirstCellActiveAsSoonAsThereIsOne)
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
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_A);
}

TEST(SpreadGridSelect, takesAWholeRowThatTheDesktopSelectsAsRows)
{
    const auto grid = shownGrid();
    static_cast<QTableView &>(*grid).selectRow(3);
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{-1, 4, 6, 4}));
    grid->setCurrentIndex(grid->model()->index(6, 2));
    EXPECT_EQ(grid->selectedBlock(), (GridBlock{3, 7, 3, 7}));
}
