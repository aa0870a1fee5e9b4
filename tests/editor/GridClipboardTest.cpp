// Cut, Copy and Paste of cells and rows, and what the clipboard holds.

#include "desktop/RibbonButton.h"
#include "editor/Clipboard.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/GridCommandsSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

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

TEST_F(GridCommandsTest, pastesForeignTextWholeWhateverWasCopiedHereBefore)
{
    const QString text = u"x\ty\nz\tw\n"_s;
    for (const GridBlock &copied : {GridBlock{2, 1, 2, 1}, GridBlock{2, 1, 3, 2}, GridBlock{-1, 1, 13, 2}}) {
        grid().selectBlock(copied);
        edit(u"mneEditCopy"_s);
        QApplication::clipboard()->setText(text);
        const QString beside = rowText(6);
        selectCell(2, 5);
        edit(u"mneEditPaste"_s);
        EXPECT_EQ(grid().text(2, 5), text);
        EXPECT_EQ(rowText(6), beside);
        EXPECT_EQ(clipboardRecord(), ClipboardRecord());
    }
}

TEST_F(GridCommandsTest, switchesAddPasteOffAsSoonAsOthersCopy)
{
    selectRows(3, 4);
    edit(u"mneEditCopy"_s);
    ASSERT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    QApplication::clipboard()->setText(u"foreign"_s);
    EXPECT_FALSE(isEnabled(u"mneEditAddPaste"_s));
    EXPECT_FALSE(toolButton(u"ssrbnEdit(3)"_s).isEnabled());
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
    edit(u"mneEditCopy"_s);
    QApplication::clipboard()->setText(u""_s);
    EXPECT_FALSE(isEnabled(u"mneEditAddPaste"_s));
    EXPECT_FALSE(isEnabled(u"mneEditPaste"_s));
    EXPECT_FALSE(toolButton(u"ssrbnEdit(2)"_s).isEnabled());
}

// Some desktops tell late, or never.
TEST_F(GridCommandsTest, findsOutByItselfThatOthersCopied)
{
    const QSignalBlocker silence(QApplication::clipboard());
    selectRows(3, 4);
    edit(u"mneEditCopy"_s);
    QApplication::clipboard()->setText(u"foreign"_s);
    ASSERT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    selectCell(2, 7);
    clickTool(u"ssrbnEdit(3)"_s);
    EXPECT_EQ(grid().rowCount(), 12);
    EXPECT_FALSE(isChanged());
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(2, 7), u"foreign"_s);
    EXPECT_EQ(grid().text(2, 8), parameter(8));
}

// As a program does that keeps what was copied when the one that copied it ends.
TEST_F(GridCommandsTest, knowsItsOwnTextWhoeverOffersIt)
{
    selectRows(3, 4);
    edit(u"mneEditCopy"_s);
    QApplication::clipboard()->setText(clipboard());
    EXPECT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    selectCell(2, 7);
    edit(u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 14);
    EXPECT_EQ(names().mid(6, 3), QStringList({parameter(3), parameter(4), parameter(7)}));
}

TEST_F(GridCommandsTest, pastesAForeignCellWithoutItsLineEnd)
{
    const std::pair<QString, QString> texts[] = {{u"cell\r\n"_s, u"cell"_s}, {u"cell\n"_s, u"cell"_s},
        {u"cell\r"_s, u"cell"_s}, {u"a\tb\r\n"_s, u"a\tb"_s}, {u"\n"_s, u""_s}, {u"a\n\n"_s, u"a\n\n"_s},
        {u"\na"_s, u"\na"_s}, {u"a\r\nb\r\n"_s, u"a\r\nb\r\n"_s}};
    selectCell(2, 4);
    for (const auto &[copied, pasted] : texts) {
        QApplication::clipboard()->setText(copied);
        pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(grid().text(2, 4), pasted) << copied.toStdString();
    }
}

TEST_F(GridCommandsTest, pastesACellOfItsOwnExactly)
{
    grid().setText(2, 4, u"cell\r\n"_s);
    selectCell(2, 4);
    edit(u"mneEditCopy"_s);
    selectCell(2, 5);
    edit(u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(2, 5), u"cell\r\n"_s);
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
