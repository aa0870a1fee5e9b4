#include "document/DocumentTables.h"
#include "editor/ClipboardRecord.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "platform/RibbonButton.h"
#include "platform/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

class GridCommandsTest : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(12))));
    }

    static QString clipboard() { return QApplication::clipboard()->text(); }
    void select(int column1, int row1, int column2, int row2) { grid().selectBlock({column1, row1, column2, row2}); }
    void selectRows(int row1, int row2) { select(-1, row1, 13, row2); }
    void selectCell(int column, int row) { select(column, row, column, row); }
    void edit(const QString &command) { chooseMenu(u"mneEdit"_s, command); }
    bool isEnabled(const QString &command) { return menuCommand(u"mneEdit"_s, command).isEnabled(); }
    QStringList names()
    {
        QStringList names;
        for (int row = 1; row <= grid().rowCount(); ++row) {
            names << grid().text(2, row);
        }
        return names;
    }
    QString rowText(int row) { return grid().blockText({1, row, 13, row}); }
    bool isRed(int column, int row) { return grid().foreColour(column, row) == QColor(128, 0, 0); }
    bool isChanged() { return DocFlags[docNo()].changed; }
    QString countLabel() { return control<QLabel>(frame(), u"lblPrcount"_s).text(); }
    static QString parameter(int number) { return u"Parameter %1"_s.arg(number); }
};

TEST_F(GridCommandsTest, copiesOneCellAsItsText)
{
    selectCell(2, 3);
    edit(u"mneEditCopy"_s);
    EXPECT_EQ(clipboard(), u"Parameter 3"_s);
    EXPECT_EQ(clipboardRecord(), (ClipboardRecord{ClipboardRecord::OneCell, 0, 0}));
    EXPECT_FALSE(isChanged());
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
    EXPECT_TRUE(toolButton(u"ssrbnEdit(2)"_s).isEnabled());
}

TEST_F(GridCommandsTest, copiesABlockAsBlockText)
{
    select(1, 2, 3, 3);
    clickTool(u"ssrbnEdit(1)"_s);
    EXPECT_EQ(clipboard(), u"2\tParameter 2\t0-30\r\n3\tParameter 3\t0-30"_s.replace(u"0-30"_s, grid().text(3, 2)));
    EXPECT_EQ(clipboardRecord(), (ClipboardRecord{ClipboardRecord::Block, 2, 1}));
}

TEST_F(GridCommandsTest, copiesHiddenColumnsInsideABlock)
{
    select(6, 2, 9, 2);
    pressKey(grid(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), u"No\tNo\t%\t2"_s);
}

TEST_F(GridCommandsTest, copiesWholeRowsWithTheirNumbers)
{
    selectRows(3, 4);
    edit(u"mneEditCopy"_s);
    EXPECT_EQ(clipboard(), u"3\t"_s + rowText(3) + u"\r\n4\t"_s + rowText(4));
    EXPECT_EQ(clipboardRecord(), (ClipboardRecord{ClipboardRecord::WholeRows, 0, 1}));
    EXPECT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    EXPECT_TRUE(toolButton(u"ssrbnEdit(3)"_s).isEnabled());
}

TEST_F(GridCommandsTest, leavesAddPasteAsItWasWhenCellsAreCopied)
{
    selectRows(3, 4);
    edit(u"mneEditCopy"_s);
    selectCell(2, 2);
    edit(u"mneEditCopy"_s);
    EXPECT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    editor().activate();
    EXPECT_FALSE(isEnabled(u"mneEditAddPaste"_s));
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
}

TEST_F(GridCommandsTest, cutsTheSelectedCells)
{
    select(2, 3, 3, 4);
    const QString text = grid().blockText({2, 3, 3, 4});
    edit(u"mneEditCut"_s);
    EXPECT_EQ(clipboard(), text);
    EXPECT_EQ(grid().blockText({2, 3, 3, 4}), u"\t\r\n\t"_s);
    EXPECT_EQ(grid().text(2, 5), parameter(5));
    EXPECT_TRUE(isChanged());
    EXPECT_TRUE(isRed(2, 3));
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(GridCommandsTest, marksWhatTheDeleteKeyClears)
{
    select(2, 3, 3, 4);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(grid().blockText({2, 3, 3, 4}), u"\t\r\n\t"_s);
    EXPECT_TRUE(isRed(2, 3) && isRed(3, 4));
    EXPECT_FALSE(isRed(1, 3) || isRed(2, 5));
    EXPECT_TRUE(isChanged());
    EXPECT_EQ(clipboard(), QString());
}

TEST_F(GridCommandsTest, pastesRowsThatWereCutWhereTheyWere)
{
    const QString before = rowText(3);
    selectRows(3, 3);
    pressKey(grid(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 3), QString());
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rowText(3), before);
}

TEST_F(GridCommandsTest, pastesABlockAtTheActiveCell)
{
    select(2, 1, 3, 2);
    edit(u"mneEditCopy"_s);
    selectCell(2, 7);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(2, 7), parameter(1));
    EXPECT_EQ(grid().text(2, 8), parameter(2));
    EXPECT_EQ(grid().text(2, 9), parameter(9));
    EXPECT_TRUE(isRed(2, 7) && isRed(3, 8));
    EXPECT_FALSE(isRed(2, 9));
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{2, 7, 3, 8}));
    EXPECT_TRUE(isChanged());
}

TEST_F(GridCommandsTest, cutsOffWhatWouldHangOverTheEdge)
{
    select(2, 1, 4, 3);
    edit(u"mneEditCopy"_s);
    selectCell(12, 11);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(12, 11), parameter(1));
    EXPECT_EQ(grid().text(13, 12), grid().text(3, 2));
    EXPECT_EQ(grid().rowCount(), 12);
}

TEST_F(GridCommandsTest, refusesASelectionOfAnotherSizeWithTheHeadingsText)
{
    select(2, 1, 3, 3);
    edit(u"mneEditCopy"_s);
    const QString before = grid().blockText({1, 1, 13, 12});
    select(2, 7, 3, 8);
    ModalScript script;
    script.then([](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.text(), u"Pr Read Condition"_s);
        EXPECT_EQ(box.windowTitle(), u"Tabrix"_s);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().blockText({1, 1, 13, 12}), before);
    EXPECT_FALSE(isChanged());
}

TEST_F(GridCommandsTest, pastesIntoASelectionOfTheSameSize)
{
    select(2, 1, 3, 2);
    edit(u"mneEditCopy"_s);
    select(2, 7, 3, 8);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(2, 8), parameter(2));
}

TEST_F(GridCommandsTest, pastesRowsOverRowsCutAtTheEnd)
{
    selectRows(1, 3);
    edit(u"mneEditCopy"_s);
    selectCell(4, 11);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(2, 11), parameter(1));
    EXPECT_EQ(grid().text(2, 12), parameter(2));
    EXPECT_EQ(rowText(11), rowText(1));
    EXPECT_EQ(grid().rowCount(), 12);
    EXPECT_EQ(grid().text(0, 11), u"11"_s);
    EXPECT_TRUE(isRed(1, 12) && isRed(13, 12));
}

TEST_F(GridCommandsTest, pastesForeignTextWholeIntoTheActiveCell)
{
    selectCell(2, 4);
    for (const QString &text : {u"a\tb\r\nc"_s, u"plain"_s}) {
        QApplication::clipboard()->setText(text);
        editor().activate();
        EXPECT_FALSE(isEnabled(u"mneEditAddPaste"_s));
        edit(u"mneEditPaste"_s);
        EXPECT_EQ(grid().text(2, 4), text);
        EXPECT_EQ(grid().text(3, 4), grid().text(3, 5));
        EXPECT_TRUE(isRed(2, 4));
    }
}

TEST_F(GridCommandsTest, pastesOneCellAsItIsIntoATypedCell)
{
    selectCell(2, 4);
    edit(u"mneEditCopy"_s);
    selectCell(1, 5);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(1, 5), parameter(4));
}

TEST_F(GridCommandsTest, acceptsSpreadsheetTextForABlock)
{
    select(2, 1, 3, 2);
    edit(u"mneEditCopy"_s);
    QApplication::clipboard()->setText(u"x\ty\nz\tw\n"_s);
    selectCell(2, 5);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().blockText({2, 5, 3, 6}), u"x\ty\r\nz\tw"_s);
    EXPECT_EQ(grid().text(2, 7), parameter(7));
}

TEST_F(GridCommandsTest, doesNothingWithAnEmptyClipboard)
{
    selectRows(1, 2);
    edit(u"mneEditCopy"_s);
    QApplication::clipboard()->setText(u""_s);
    const QString before = grid().blockText({1, 1, 13, 12});
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    edit(u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 12);
    EXPECT_EQ(grid().blockText({1, 1, 13, 12}), before);
    EXPECT_FALSE(isChanged());
}

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
    edit(u"mneEditDel"_s);
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

TEST_F(GridCommandsTest, forgetsTheClipboardOnEscape)
{
    selectRows(2, 3);
    edit(u"mneEditCopy"_s);
    pressKey(grid(), Qt::Key_Escape, Qt::ControlModifier);
    EXPECT_FALSE(clipboard().isEmpty());
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
    pressKey(grid(), Qt::Key_Escape);
    EXPECT_EQ(clipboard(), QString());
    EXPECT_EQ(clipboardRecord(), ClipboardRecord());
    for (const QString &command : {u"mneEditPaste"_s, u"mneEditAddPaste"_s}) {
        EXPECT_FALSE(isEnabled(command)) << command.toStdString();
    }
    for (const QString &button : {u"ssrbnEdit(2)"_s, u"ssrbnEdit(3)"_s}) {
        EXPECT_FALSE(toolButton(button).isEnabled()) << button.toStdString();
    }
    edit(u"mneEditCopy"_s);
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
}

TEST_F(GridCommandsTest, keepsTheClipboardWhenEscapeEndsAnEdit)
{
    selectCell(2, 2);
    edit(u"mneEditCopy"_s);
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(grid().text(2, 2), parameter(2));
    EXPECT_EQ(clipboard(), parameter(2));
    EXPECT_FALSE(isChanged());
}
