// Keys and wheels beside those of typing: what the menu shows of them, the pop-up menu, the way to changed cells.

#include "app/services/Settings.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

using Cell = std::pair<int, int>; // column, row

} // namespace

class EditorKeys : public FrameTest
{
protected:
    void SetUp() override
    {
        start(writeFile(u"a.inv"_s, document(100)));
        ListVisualState.fill(false);
        applyVisibleColumns(grid());
        grid().setActiveCell(2, 10);
        grid().setFocus();
    }

    Cell active() { return {grid().activeColumn(), grid().activeRow()}; }
    static void turnWheel(QWidget &widget, QPoint delta, Qt::KeyboardModifiers modifiers)
    {
        const QPointF place = widget.rect().center();
        QWheelEvent event(
            place, widget.mapToGlobal(place), {}, delta, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // as from a mouse: passed on to the parent
        qApp->notify(&widget, &event);
    }
};

// Measured by what is painted: the line is as wide as its caption and its key need.
TEST_F(EditorKeys, theEditMenuShowsItsKeys)
{
    const std::pair<QString, QString> shown[] = {
        {u"mneEditCut"_s, u"Ctrl+X"_s}, {u"mneEditCopy"_s, u"Ctrl+C"_s}, {u"mneEditPaste"_s, u"Ctrl+V"_s}};
    QMenu &menu = menuInBar(u"mneEdit"_s);
    const int width = menu.sizeHint().width();
    for (const auto &[command, key] : shown) {
        EXPECT_EQ(menuCommand(u"mneEdit"_s, command).shortcut().toString(QKeySequence::PortableText), key);
    }
    for (const auto &[command, key] : shown) {
        menuCommand(u"mneEdit"_s, command).setShortcut({});
    }
    EXPECT_LT(menu.sizeHint().width(), width);
}

TEST_F(EditorKeys, theKeysOfTheEditMenuAreThoseOfWhatHasTheFocus)
{
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"Parameter 10"_s);
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"zzz"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"zzz"_s);
    EXPECT_EQ(grid().text(2, 10), u"Parameter 10"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 10), QString());
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 10), u"Parameter 10"_s);
}

TEST_F(EditorKeys, shiftF10OpensThePopUpMenuAtTheActiveCell)
{
    press(Qt::Key_F10, Qt::ShiftModifier);
    QWidget *menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), u"mneEdit"_s);
    const QRect cell = grid().visualRect(grid().currentIndex());
    EXPECT_EQ(menu->pos(), grid().viewport()->mapToGlobal(cell.center()));
    EXPECT_EQ(active(), Cell(2, 10));
    menu->close();
}

TEST_F(EditorKeys, shiftF10OpensTheMenuOfATextBoxInItself)
{
    press(Qt::Key_F2);
    QWidget *open = QApplication::focusWidget();
    ASSERT_NE(open, &grid());
    press(Qt::Key_F10, Qt::ShiftModifier);
    QWidget *menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->parentWidget(), open);
    menu->close();
    EXPECT_FALSE(menuInBar(u"mneEdit"_s).isVisible());
}

TEST_F(EditorKeys, theWheelScrollsSidewaysWithShift)
{
    editor().parentWidget()->showNormal();
    editor().parentWidget()->resize(400, 300);
    QApplication::processEvents();
    const int top = grid().topRow();
    const QScrollBar &bar = *grid().horizontalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    for (QWidget *part : {grid().viewport(), grid().horizontalHeader()->viewport()}) {
        turnWheel(*part, {0, -120}, Qt::ShiftModifier);
        const int scrolled = bar.value();
        EXPECT_GT(scrolled, 0);
        turnWheel(*part, {0, -120}, Qt::ShiftModifier);
        EXPECT_GT(bar.value(), scrolled);
        turnWheel(*part, {0, 120}, Qt::ShiftModifier);
        EXPECT_EQ(bar.value(), scrolled);
        turnWheel(*part, {0, 120}, Qt::ShiftModifier);
        EXPECT_EQ(bar.value(), 0);
    }
    EXPECT_EQ(grid().topRow(), top);
    turnWheel(*grid().viewport(), {-120, 0}, Qt::ShiftModifier); // where the system has tilted it already
    EXPECT_GT(bar.value(), 0);
    turnWheel(*grid().viewport(), {0, -120}, Qt::NoModifier);
    EXPECT_GT(grid().topRow(), top);
}

TEST_F(EditorKeys, f7GoesFromChangedCellToChangedCell)
{
    typeInto(2, 40, u"a"_s);
    typeInto(9, 40, u"b"_s);
    typeInto(3, 90, u"c"_s);
    grid().setActiveCell(4, 40);
    const Cell cells[] = {{9, 40}, {3, 90}, {2, 40}};
    for (const Cell &cell : cells) {
        press(Qt::Key_F7);
        EXPECT_EQ(active(), cell);
        EXPECT_LE(grid().topRow(), cell.second);
        EXPECT_GE(grid().bottomRow(), cell.second);
    }
    for (const int at : {1, 0, 2}) {
        press(Qt::Key_F7, Qt::ShiftModifier);
        EXPECT_EQ(active(), cells[at]);
    }
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), u"40"_s);
}

TEST_F(EditorKeys, f7CountsPastedAndTickedCells)
{
    QApplication::clipboard()->setText(u"x"_s);
    grid().setActiveCell(8, 30);
    press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(grid().text(8, 30), u"x"_s);
    ASSERT_EQ(grid().textColour(8, 30), QColor(changedCellColour));
    grid().setActiveCell(4, 60);
    press(Qt::Key_Space);
    grid().setActiveCell(2, 10);
    press(Qt::Key_F7);
    EXPECT_EQ(active(), Cell(8, 30));
    press(Qt::Key_F7);
    EXPECT_EQ(active(), Cell(4, 60));
}

TEST_F(EditorKeys, f7StaysWhereNothingIsChanged)
{
    press(Qt::Key_F7);
    EXPECT_EQ(active(), Cell(2, 10));
    typeInto(2, 40, u"a"_s);
    press(Qt::Key_Z, Qt::ControlModifier); // nor is it any more
    grid().setActiveCell(2, 10);
    press(Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_EQ(active(), Cell(2, 10));
}

TEST_F(EditorKeys, f7TakesWhatIsBeingTypedAndPassesOverHiddenColumns)
{
    typeInto(3, 20, u"a"_s);
    typeInto(2, 40, u"b"_s);
    ListVisualState[2] = true;
    applyVisibleColumns(grid());
    grid().setActiveCell(2, 10);
    press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"c"_s);
    press(Qt::Key_F7);
    EXPECT_EQ(grid().text(2, 10), u"Parameter 10c"_s);
    EXPECT_EQ(active(), Cell(2, 40));
    press(Qt::Key_F7);
    EXPECT_EQ(active(), Cell(2, 10));
    ListVisualState.fill(false);
}

TEST_F(EditorKeys, f7LeadsFromOtherControlsIntoTheTable)
{
    typeInto(2, 40, u"a"_s);
    control<QLineEdit>(frame(), u"txtPr"_s).setFocus();
    press(Qt::Key_F7);
    EXPECT_EQ(active(), Cell(2, 40));
    EXPECT_EQ(QApplication::focusWidget(), &grid());
}

TEST_F(EditorKeys, f7DoesNothingWithoutADocument)
{
    while (frame().activeEditor()) {
        editor().parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    pressKey(frame(), Qt::Key_F7);
    pressKey(frame(), Qt::Key_F7, Qt::ShiftModifier);
    EXPECT_FALSE(frame().activeEditor());
}
