// The rows of the three grids of the read condition dialog: added, edited, sorted and deleted.

#include "grid/SpreadGrid.h"
#include "tests/dialogs/CondDialog.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

TEST_F(CondDialog, newRowsShowTheirDefaults)
{
    EXPECT_TRUE(show(u""_s, 0, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            add(kind);
            EXPECT_TRUE(canDelete(kind));
        }
        EXPECT_EQ(rows(0), QStringList{u"|=||"_s});
        EXPECT_EQ(rows(1), QStringList{u"=|EXT"_s});
        EXPECT_EQ(rows(2), QStringList{u"=|"_s});
        EXPECT_EQ(label(u"lblCount(1)"_s), u"0"_s);
        ok();
    }));
    // Only the mode counts untouched.
    EXPECT_EQ(text, u"MODE=0"_s);
    EXPECT_EQ(count, 1);
}

TEST_F(CondDialog, rowsAreAddedAtTheEnd)
{
    show(mixedText, 4, [&] {
        add(0);
        EXPECT_EQ(rows(0), (QStringList{u"79|=|1|3"_s, u"10|<>|5|"_s, u"|=||"_s}));
        cancel();
    });
}

TEST_F(CondDialog, typedRowsAreWritten)
{
    EXPECT_TRUE(show(u""_s, 0, [&] {
        add(0);
        enterIntoCell(grid(0), 1, 1, u"160"_s);
        enterIntoCell(grid(0), 3, 1, u"9"_s);
        enterIntoCell(grid(0), 4, 1, u"10"_s);
        add(2);
        enterIntoCell(grid(2), 2, 1, u"A-1"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=A-1,160=9-10"_s);
    EXPECT_EQ(count, 2);
}

TEST_F(CondDialog, aRowWithoutAValueIsDropped)
{
    EXPECT_FALSE(show(u"10=1"_s, 1, [&] {
        add(0);
        enterIntoCell(grid(0), 1, 2, u"79"_s);
        add(0);
        ok();
    }));
    EXPECT_EQ(text, u"10=1"_s);
}

TEST_F(CondDialog, valuesBeyondTheColumnsLimitsCannotBeTyped)
{
    show(u"10=1-2"_s, 1, [&] {
        enterIntoCell(grid(0), 1, 1, u"1000"_s);
        press(Qt::Key_Escape); // a refused edit may still be open
        EXPECT_NE(grid(0).text(1, 1), u"1000"_s);
        cancel();
    });
}

TEST_F(CondDialog, hasTheColumnsCellTypes)
{
    show(u""_s, 0, [&] {
        EXPECT_EQ(grid(0).cellType(1, -1), CellType::integer(0, 999));
        EXPECT_EQ(grid(0).cellType(3, -1), CellType::integer(0, 32767));
        EXPECT_EQ(grid(0).cellType(4, -1), CellType::integer(0, 32767));
        const CellType relation = CellType::comboBox({u"="_s, u"<>"_s}, u"="_s);
        EXPECT_EQ(grid(0).cellType(2, -1), relation);
        EXPECT_EQ(grid(1).cellType(1, -1), relation);
        EXPECT_EQ(grid(2).cellType(1, -1), relation);
        const CellType mode = grid(1).cellType(2, -1);
        EXPECT_EQ(mode.kind, CellType::Kind::ComboBox);
        EXPECT_EQ(mode.items,
            (QStringList{u"EXT"_s, u"PU"_s, u"EXT JOG"_s, u"PU JOG"_s, u"LNK"_s, u"PU+EXT"_s, u"TIME"_s, u"SP"_s}));
        EXPECT_EQ(grid(2).cellType(2, -1), CellType::text());
        cancel();
    });
}

TEST_F(CondDialog, hasTheColumnsHeadings)
{
    const QList<QStringList> headings{
        {u"Pr"_s, u"=/<> "_s, u"Cond1"_s, u"Cond2"_s}, {u"=/<> "_s, u"Op mode"_s}, {u"=/<> "_s, u"Option"_s}};
    show(u""_s, 0, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            ASSERT_EQ(grid(kind).columnCount(), headings[kind].size());
            for (int column = 1; column <= grid(kind).columnCount(); ++column) {
                EXPECT_EQ(grid(kind).text(column, 0), headings[kind][column - 1]);
            }
        }
        cancel();
    });
}

TEST_F(CondDialog, relationsAndModesAreChosenFromTheirLists)
{
    EXPECT_TRUE(show(u"OP=A,79=1,MODE=0"_s, 3, [&] {
        for (const auto &[kind, column] : std::initializer_list<std::pair<int, int>>{{0, 2}, {1, 1}, {1, 2}, {2, 1}}) {
            clickCell(grid(kind), column, 1);
            type(kind == 1 && column == 2 ? u"p"_s : u"<"_s);
            press(Qt::Key_Return);
        }
        EXPECT_EQ(rows(0) + rows(1) + rows(2), (QStringList{u"79|<>|1|"_s, u"<>|PU"_s, u"<>|A"_s}));
        ok();
    }));
    EXPECT_EQ(text, u"OP/A,79/1,MODE/1"_s);
}

TEST_F(CondDialog, deleteRemovesTheActiveRow)
{
    EXPECT_TRUE(show(u"OP=A,OP=B,OP=C,1=1,2=2-3,3=3,MODE=1,MODE=2,MODE=3"_s, 9, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            clickCell(grid(kind), 1, 2);
            remove(kind);
        }
        EXPECT_EQ(rows(0), (QStringList{u"1|=|1|"_s, u"3|=|3|"_s}));
        EXPECT_EQ(rows(1), (QStringList{u"=|PU"_s, u"=|PU JOG"_s}));
        EXPECT_EQ(rows(2), (QStringList{u"=|A"_s, u"=|C"_s}));
        EXPECT_EQ(label(u"lblCount(1)"_s), u"9"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=A,OP=C,1=1,3=3,MODE=1,MODE=3"_s);
    EXPECT_EQ(count, 6);
}

TEST_F(CondDialog, deleteRemovesTheLastRowWhenThatIsActive)
{
    show(u"1=1,2=2,3=3"_s, 3, [&] {
        clickCell(grid(0), 4, 3);
        remove(0);
        EXPECT_EQ(rows(0), (QStringList{u"1|=|1|"_s, u"2|=|2|"_s}));
        remove(0);
        EXPECT_EQ(rows(0).size(), 1);
        EXPECT_TRUE(canDelete(0));
        remove(0);
        EXPECT_EQ(rows(0).size(), 0);
        EXPECT_FALSE(canDelete(0));
        cancel();
    });
}

TEST_F(CondDialog, deleteWorksWithoutAClickIntoTheGrid)
{
    show(u"1=1,2=2"_s, 2, [&] {
        remove(0);
        EXPECT_EQ(rows(0), QStringList{u"2|=|2|"_s});
        add(1);
        remove(1);
        EXPECT_EQ(rows(1).size(), 0);
        EXPECT_FALSE(canDelete(1));
        cancel();
    });
}

TEST_F(CondDialog, rowsAddedAfterADeletionAreEmpty)
{
    show(u"79=1-3"_s, 1, [&] {
        remove(0);
        add(0);
        EXPECT_EQ(rows(0), QStringList{u"|=||"_s});
        cancel();
    });
}

TEST_F(CondDialog, anEditSortsTheParametersByNumber)
{
    EXPECT_TRUE(show(u"100=1,20=2-4,9=3"_s, 3, [&] {
        EXPECT_EQ(rows(0), (QStringList{u"100|=|1|"_s, u"20|=|2|4"_s, u"9|=|3|"_s}));
        enterIntoCell(grid(0), 3, 1, u"7"_s);
        EXPECT_EQ(rows(0), (QStringList{u"9|=|3|"_s, u"20|=|2|4"_s, u"100|=|7|"_s}));
        ok();
    }));
    EXPECT_EQ(text, u"9=3,20=2-4,100=7"_s);
}

TEST_F(CondDialog, theActiveCellFollowsItsRowWhenAnEditSortsIt)
{
    EXPECT_TRUE(show(u"10=1,20=2,30=3"_s, 3, [&] {
        enterIntoCell(grid(0), 1, 1, u"25"_s);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|2|"_s, u"25|=|1|"_s, u"30|=|3|"_s}));
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{1, 2, 1, 2}));
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        type(u"7"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|2|"_s, u"25|=|7|"_s, u"30|=|3|"_s}));
        ok();
    }));
    EXPECT_EQ(text, u"20=2,25=7,30=3"_s);
}

TEST_F(CondDialog, tabGoesOnInTheRowThatWasSorted)
{
    show(u"10=1,20=2,30=3"_s, 3, [&] {
        typeIntoCell(grid(0), 1, 1, u"40"_s);
        press(Qt::Key_Tab);
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{2, 3, 2, 3}));
        press(Qt::Key_Right); // Tab outside an editor leaves the list
        type(u"9"_s);
        press(Qt::Key_Tab);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|2|"_s, u"30|=|3|"_s, u"40|=|9|"_s}));
        typeIntoCell(grid(0), 1, 3, u"5"_s);
        press(Qt::Key_Down); // from the first row on, where the condition is now
        EXPECT_EQ(grid(0).activeRow(), 2);
        cancel();
    });
}

TEST_F(CondDialog, theRowOfAListsChoiceIsFollowedToo)
{
    show(u"30=1,20=2,10=3"_s, 3, [&] {
        enterIntoCell(grid(0), 2, 1, u"<"_s);
        EXPECT_EQ(rows(0), (QStringList{u"10|=|3|"_s, u"20|=|2|"_s, u"30|<>|1|"_s}));
        EXPECT_EQ(grid(0).activeRow(), 3);
        cancel();
    });
}

TEST_F(CondDialog, aClickThatEndsAnEditMeansTheConditionThatWasClicked)
{
    show(u"10=1,20=2,30=3"_s, 3, [&] {
        typeIntoCell(grid(0), 1, 1, u"40"_s);
        clickCell(grid(0), 3, 2);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|2|"_s, u"30|=|3|"_s, u"40|=|1|"_s}));
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{3, 1, 3, 1}));
        type(u"8"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|8|"_s, u"30|=|3|"_s, u"40|=|1|"_s}));
        cancel();
    });
}

TEST_F(CondDialog, aDoubleClickThatEndsAnEditOpensTheConditionThatWasClicked)
{
    show(u"10=1,20=2,30=3"_s, 3, [&] {
        typeIntoCell(grid(0), 1, 1, u"40"_s);
        QWidget *cells = grid(0).viewport();
        const QPoint second = grid(0).visualRect(grid(0).model()->index(1, 2)).center();
        QTest::mouseClick(cells, Qt::LeftButton, {}, second);
        QTest::mouseDClick(cells, Qt::LeftButton, {}, second);
        type(u"8"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(rows(0), (QStringList{u"20|=|28|"_s, u"30|=|3|"_s, u"40|=|1|"_s}));
        cancel();
    });
}

TEST_F(CondDialog, emptyingABlockLeavesOneCellSelected)
{
    show(u"10=1,20=2,30=3,40=4"_s, 4, [&] {
        clickCell(grid(0), 1, 1);
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(0), (QStringList{u"30|=|3|"_s, u"40|=|4|"_s, u"|=|1|"_s, u"|=|2|"_s}));
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{1, 3, 1, 3}));
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(0).mid(0, 2), (QStringList{u"30|=|3|"_s, u"40|=|4|"_s}));
        cancel();
    });
}

TEST_F(CondDialog, conditionsOnOneParameterKeepTheirOrder)
{
    show(u"20=1,10=2,20=3,10=4"_s, 4, [&] {
        enterIntoCell(grid(0), 4, 3, u"9"_s);
        EXPECT_EQ(rows(0), (QStringList{u"10|=|2|"_s, u"10|=|4|"_s, u"20|=|1|"_s, u"20|=|3|9"_s}));
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{4, 4, 4, 4}));
        cancel();
    });
}

TEST_F(CondDialog, aHeadingSelectsNothing)
{
    show(u"10=1,20=2"_s, 2, [&] {
        clickCell(grid(0), 3, 2);
        QTest::mouseClick(grid(0).horizontalHeader()->viewport(), Qt::LeftButton, {}, {10, 5});
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(0), (QStringList{u"10|=|1|"_s, u"20|=||"_s}));
        cancel();
    });
}

TEST_F(CondDialog, parametersAreNotSortedWithoutAnEdit)
{
    EXPECT_FALSE(show(u"100=1,20=2"_s, 2, [&] { ok(); }));
}

TEST_F(CondDialog, modesAndOptionsAreNotSorted)
{
    EXPECT_TRUE(show(u"OP=B,OP=C,MODE=3,MODE=1"_s, 4, [&] {
        enterIntoCell(grid(2), 2, 2, u"A"_s);
        enterIntoCell(grid(1), 1, 2, u"<"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=B,OP=A,MODE=3,MODE/1"_s);
}

TEST_F(CondDialog, addAndDeleteTakeAnEditThatIsStillOpen)
{
    show(u"OP=A,OP=B"_s, 2, [&] {
        typeIntoCell(grid(2), 2, 1, u"C"_s);
        add(2);
        EXPECT_EQ(rows(2), (QStringList{u"=|C"_s, u"=|B"_s, u"=|"_s}));
        typeIntoCell(grid(2), 2, 2, u"D"_s);
        remove(2);
        EXPECT_EQ(rows(2), (QStringList{u"=|C"_s, u"=|"_s}));
        cancel();
    });
}

TEST_F(CondDialog, buttonsPressedWithoutTheMouseTakeAnOpenEditToo)
{
    show(u"OP=A"_s, 1, [&] {
        typeIntoCell(grid(2), 2, 1, u"B"_s);
        control<QPushButton>(dialog, u"cmdAdd(2)"_s).click(); // as assistive tools do, without moving the focus
        EXPECT_EQ(rows(2), (QStringList{u"=|B"_s, u"=|"_s}));
        typeIntoCell(grid(2), 2, 2, u"C"_s);
        control<QPushButton>(dialog, u"cmdDell(2)"_s).click();
        EXPECT_EQ(rows(2), QStringList{u"=|B"_s});
        cancel();
    });
}

TEST_F(CondDialog, theGridsStartAnewAtEveryOpening)
{
    show(mixedText, 4, [&] {
        add(0);
        cancel();
    });
    show(u"OP=B"_s, 1, [&] {
        EXPECT_EQ(rows(0) + rows(1) + rows(2), QStringList{u"=|B"_s});
        EXPECT_FALSE(canDelete(0));
        cancel();
    });
}
