// Add, Add Paste and Delete: commands that change the number of rows.

#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/GridCommandsSupport.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

TEST_F(GridCommandsTest, insertsCopiedRowsAboveTheActiveRow)
{
    selectRows(3, 5);
    edit(u"mneEditCopy"_s);
    const QStringList before = names();
    const QString third = rowText(3);
    const QString tenth = rowText(10);
    selectCell(2, 10);
    edit(u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 15);
    EXPECT_EQ(names().mid(0, 9), before.mid(0, 9));
    EXPECT_EQ(names().mid(9, 3), before.mid(2, 3));
    EXPECT_EQ(names().mid(12), before.mid(9));
    EXPECT_EQ(rowText(10), third);
    EXPECT_EQ(rowText(13), tenth);
    EXPECT_EQ(countLabel(), u"15"_s);
    EXPECT_EQ(MachineInfos[docNo()].Paramater, 15);
    EXPECT_TRUE(isChanged());
}

TEST_F(GridCommandsTest, insertsNothingUnlessRowsWereCopied)
{
    select(2, 1, 3, 2);
    edit(u"mneEditCopy"_s);
    menuCommand(u"mneEdit"_s, u"mneEditAddPaste"_s).setEnabled(true);
    edit(u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 12);
    EXPECT_FALSE(isChanged());
}

TEST_F(GridCommandsTest, addsABlankRowThatKeepsTheReadCondition)
{
    const QString condition = grid().text(13, 5);
    ASSERT_FALSE(condition.isEmpty());
    const QString fifth = rowText(5);
    selectCell(3, 5);
    clickTool(u"ssrbnEdit(4)"_s);
    EXPECT_EQ(rowText(5), u"\t\t\t0\tNo\tNo\tNo\t\t\t0\t0000\t0\t"_s + condition);
    EXPECT_EQ(rowText(6), fifth);
    EXPECT_EQ(names().last(), parameter(12));
    EXPECT_EQ(grid().rowCount(), 13);
    EXPECT_EQ(countLabel(), u"13"_s);
    EXPECT_EQ(MachineInfos[docNo()].Paramater, 13);
    EXPECT_EQ(grid().activeRow(), 5);
    EXPECT_TRUE(isChanged());
}

TEST_F(GridCommandsTest, leavesColoursWhereTheyAreWhenRowsMove)
{
    typeInto(2, 5, u"typed"_s);
    ASSERT_TRUE(isRed(2, 5));
    selectCell(2, 3);
    edit(u"mneEditAdd"_s);
    EXPECT_EQ(grid().text(2, 6), u"typed"_s);
    EXPECT_TRUE(isRed(2, 5));
    EXPECT_FALSE(isRed(2, 6));
}

TEST_F(GridCommandsTest, savesAnAddedRowAsItsDefaults)
{
    selectCell(1, 2);
    edit(u"mneEditAdd"_s);
    grid().setText(13, 2, QString());
    edit(u"mneEditCopy"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(readFile(editor().windowTitle()).contains("\r\n0,,0,,,1,-1,-1,0,0,0,0,1,2,"));
}

TEST_F(GridCommandsTest, deletesTheRowsThatTheSelectionTouches)
{
    select(3, 4, 5, 6);
    clickTool(u"ssrbnEdit(5)"_s);
    EXPECT_EQ(grid().rowCount(), 9);
    EXPECT_EQ(names().mid(2, 3), QStringList({parameter(3), parameter(7), parameter(8)}));
    EXPECT_EQ(countLabel(), u"9"_s);
    EXPECT_EQ(MachineInfos[docNo()].Paramater, 9);
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{3, 4, 3, 4}));
    EXPECT_TRUE(isChanged());
}

TEST_F(GridCommandsTest, deletesTheLastRows)
{
    selectRows(11, 12);
    edit(u"mneEditDel"_s);
    EXPECT_EQ(grid().rowCount(), 10);
    EXPECT_EQ(names().last(), parameter(10));
    EXPECT_EQ(grid().activeRow(), 10);
}

TEST_F(GridCommandsTest, deletesAllOfThreeRowsButNeverFromTwo)
{
    selectRows(4, 12);
    edit(u"mneEditDel"_s);
    ASSERT_EQ(grid().rowCount(), 3);
    selectRows(1, 3);
    {
        ModalScript script;
        script.thenMessage(deleteAllQuestion(3), u"cmdYes"_s);
        edit(u"mneEditDel"_s);
    }
    EXPECT_EQ(grid().rowCount(), 0);
    edit(u"mneEditDel"_s);
    edit(u"mneEditCopy"_s);
    edit(u"mneEditCut"_s);
    EXPECT_EQ(grid().rowCount(), 0);
    edit(u"mneEditAdd"_s);
    EXPECT_EQ(grid().rowCount(), 1);
    EXPECT_EQ(rowText(1), u"\t\t\t0\tNo\tNo\tNo\t\t\t0\t0000\t0\t"_s);
    selectCell(1, 1);
    edit(u"mneEditAdd"_s);
    edit(u"mneEditDel"_s);
    EXPECT_EQ(grid().rowCount(), 2);
}

TEST_F(GridCommandsTest, leavesTheRowsAloneWhenAHeadingWasClicked)
{
    selectCell(3, 4);
    QWidget *headings = grid().horizontalHeader()->viewport();
    const QPoint third(grid().columnViewportPosition(2) + 10, headings->height() / 2);
    QTest::mouseClick(headings, Qt::LeftButton, {}, third);
    QTest::mouseDClick(headings, Qt::LeftButton, {}, third);
    QWidget *corner = grid().findChild<QWidget *>(u"corner"_s);
    QTest::mouseClick(corner, Qt::LeftButton);
    QTest::mouseDClick(corner, Qt::LeftButton);
    const ModalScript noQuestion;
    edit(u"mneEditDel"_s);
    EXPECT_EQ(grid().rowCount(), 11);
    EXPECT_EQ(names().mid(2, 2), QStringList({parameter(3), parameter(5)}));
}

TEST_F(GridCommandsTest, asksBeforeTheLastRowGoesHoweverAllWereSelected)
{
    const QString before = grid().blockText({1, 1, 13, 12});
    const std::function<void()> selections[] = {
        [this] { pressKey(grid(), Qt::Key_Space, Qt::ControlModifier); },
        [this] { pressKey(grid(), Qt::Key_A, Qt::ControlModifier); },
        [this] { select(2, 1, 3, 12); },
    };
    for (const auto &selectAll : selections) {
        selectCell(3, 4);
        selectAll();
        ModalScript script;
        script.thenMessage(deleteAllQuestion(12), u"cmdNo"_s);
        script.then([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); });
        script.thenEscape();
        for (int time = 0; time < 3; ++time) {
            edit(u"mneEditDel"_s);
        }
        EXPECT_EQ(script.asked(), 3);
        EXPECT_EQ(grid().blockText({1, 1, 13, 12}), before);
        EXPECT_FALSE(isChanged());
    }
}

TEST_F(GridCommandsTest, deletesAllRowsAfterAYesAndGivesThemBack)
{
    const QString before = grid().blockText({1, 1, 13, 12});
    selectCell(3, 4);
    pressKey(grid(), Qt::Key_Space, Qt::ControlModifier);
    ModalScript script;
    script.thenMessage(deleteAllQuestion(12), u"cmdYes"_s);
    clickTool(u"ssrbnEdit(5)"_s);
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(countLabel(), u"0"_s);
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid().blockText({1, 1, 13, 12}), before);
}

TEST_F(GridCommandsTest, emptiesAColumnSelectedByKeysWithoutAQuestion)
{
    selectCell(3, 4);
    pressKey(grid(), Qt::Key_Space, Qt::ControlModifier);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(grid().rowCount(), 12);
    EXPECT_EQ(grid().blockText({3, 1, 3, 12}), u"\r\n"_s.repeated(11));
    EXPECT_EQ(names().first(), parameter(1));
}

TEST_F(GridCommandsTest, insertsAboveTheFirstSelectedRowWhicheverEndCameFirst)
{
    const std::function<void()> selections[] = {
        [this] {
            clickRowNumber(9);
            clickRowNumber(7, Qt::ShiftModifier);
        },
        [this] {
            selectCell(3, 9);
            pressKey(grid(), Qt::Key_Up, Qt::ShiftModifier);
            pressKey(grid(), Qt::Key_Up, Qt::ShiftModifier);
        },
    };
    const QStringList before = names();
    selectRows(1, 2);
    edit(u"mneEditCopy"_s);
    for (const auto &selectUpward : selections) {
        selectUpward();
        edit(u"mneEditAddPaste"_s);
        EXPECT_EQ(names(), before.mid(0, 6) + before.mid(0, 2) + before.mid(6));
        pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
        selectUpward();
        edit(u"mneEditAdd"_s);
        EXPECT_EQ(names(), before.mid(0, 6) + QStringList{QString()} + before.mid(6));
        pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(names(), before);
    }
}

TEST_F(GridCommandsTest, showsTheNumberOfTheFirstSelectedRow)
{
    clickRowNumber(9);
    clickRowNumber(7, Qt::ShiftModifier);
    EXPECT_EQ(grid().activeRow(), 7);
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), u"7"_s);
}

TEST_F(GridCommandsTest, refusesMoreRowsThanAFileCanCount)
{
    grid().setRowCount(32767);
    selectCell(1, 1);
    ModalScript script;
    script.thenMessage(u"Overflow"_s, u"OK"_s);
    edit(u"mneEditAdd"_s);
    EXPECT_EQ(grid().rowCount(), 32767);
    EXPECT_EQ(grid().text(2, 1), parameter(1));
}

TEST_F(GridCommandsTest, carriesRowsFromWindowToWindow)
{
    selectRows(2, 3);
    edit(u"mneEditCopy"_s);
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(4))));
    EXPECT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    selectCell(1, 1);
    clickTool(u"ssrbnEdit(3)"_s);
    EXPECT_EQ(
        names(), QStringList({parameter(2), parameter(3), parameter(1), parameter(2), parameter(3), parameter(4)}));
}
