#include "tests/editor/UndoSupport.h"

#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

void PrintTo(const Shown &shown, std::ostream *out)
{
    *out << shown.texts.toStdString() << "\nlabel " << shown.countLabel.toStdString() << ", parameters "
         << shown.parameters << ", changed " << shown.changed << ", coloured "
         << shown.colours.size() - size_t(std::ranges::count(shown.colours, 0U));
}

void UndoTest::open(int rows)
{
    start();
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(rows))));
    ListVisualState.fill(false);
    applyVisibleColumns(grid());
    grid().setFocus();
}

Shown UndoTest::shown()
{
    Shown now;
    now.texts = grid().blockText({1, 1, grid().columnCount(), grid().rowCount()});
    now.countLabel = control<QLabel>(frame(), u"lblPrcount"_s).text();
    now.parameters = MachineInfos[docNo()].Paramater;
    now.changed = isChanged();
    for (int row = 1; row <= grid().rowCount(); ++row) {
        now.heights.push_back(grid().rowHeight(row - 1));
        for (int column = 1; column <= grid().columnCount(); ++column) {
            const QColor colour = grid().textColour(column, row);
            now.colours.push_back(colour.isValid() ? colour.rgb() : 0U);
        }
    }
    return now;
}

bool UndoTest::isChanged()
{
    return DocFlags[docNo()].changed;
}

void UndoTest::undo()
{
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
}

void UndoTest::redo()
{
    pressKey(grid(), Qt::Key_Y, Qt::ControlModifier);
}

void UndoTest::copy(const GridBlock &block)
{
    grid().selectBlock(block);
    pressKey(grid(), Qt::Key_C, Qt::ControlModifier);
}

void UndoTest::paste()
{
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
}

void UndoTest::save()
{
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
}

void UndoTest::selectCell(int column, int row)
{
    grid().selectBlock({column, row, column, row});
}

void UndoTest::type()
{
    typeInto(2, 5, u"other"_s);
}

void UndoTest::pressDelete()
{
    grid().selectBlock({2, 3, 4, 5});
    pressKey(grid(), Qt::Key_Delete);
}

void UndoTest::cut()
{
    grid().selectBlock({2, 3, 3, 4});
    pressKey(grid(), Qt::Key_X, Qt::ControlModifier);
}

void UndoTest::pasteForeignText()
{
    QApplication::clipboard()->setText(u"x\ty\r\nz"_s);
    selectCell(2, 4);
    paste();
}

void UndoTest::pasteBlock()
{
    copy({1, 1, 3, 4});
    selectCell(2, 7);
    paste();
}

void UndoTest::pasteRows()
{
    copy({-1, 1, 13, 3});
    selectCell(1, 6);
    paste();
}

void UndoTest::addPaste()
{
    copy({-1, 2, 13, 4});
    selectCell(1, 7);
    clickTool(u"ssrbnEdit(3)"_s);
}

void UndoTest::addLine()
{
    selectCell(3, 4);
    clickTool(u"ssrbnEdit(4)"_s);
}

void UndoTest::deleteLines()
{
    grid().selectBlock({-1, 3, 13, 5});
    clickTool(u"ssrbnEdit(5)"_s);
}

void UndoTest::deleteLastLines()
{
    grid().selectBlock({2, 10, 3, 12});
    clickTool(u"ssrbnEdit(5)"_s);
}

void UndoTest::toggleByKey()
{
    selectCell(4, 2);
    pressKey(grid(), Qt::Key_Space);
}

void UndoTest::toggleByMouse()
{
    const QPoint place = grid().visualRect(grid().model()->index(4, 3)).center();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
}

void UndoTest::chooseFromList()
{
    selectCell(5, 3);
    pressKey(grid(), Qt::Key_F2);
    auto &list = control<QComboBox>(grid(), u"cellEditor"_s);
    QTest::keyClick(list.view(), Qt::Key_End);
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !grid().findChild<QComboBox *>(u"cellEditor"_s); }, patience));
}

void UndoTest::editFuncCode()
{
    selectCell(2, 3);
    ModalScript script;
    script.then([](QWidget &dialog) {
        QTest::mouseClick(&control<QCheckBox>(dialog, u"chkFunc(4)"_s), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
    });
    clickTool(u"ssrbnEdit(6)"_s);
}

void UndoTest::editConditions()
{
    selectCell(2, 3);
    ModalScript script;
    script.then([](QWidget &dialog) {
        QTest::mouseClick(&control<QPushButton>(dialog, u"cmdDell(0)"_s), Qt::LeftButton);
        QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
}
