#include "app/services/Common.h"
#include "desktop/RefusedInput.h"
#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolTip>

#include <vector>

using namespace Qt::StringLiterals;

// Typing

struct TypingCase
{
    int column;
    QString before;
    QString typed;
    QString after;
};

class SpreadGridTyping : public testing::TestWithParam<TypingCase>
{
};

TEST_P(SpreadGridTyping, takesWhatTheCellTypeTakes)
{
    const TypingCase &typing = GetParam();
    const auto grid = shownGrid();
    grid->setText(typing.column, 3, typing.before);
    clickCell(*grid, typing.column, 3);
    QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    typeText(*grid, typing.typed);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(typing.column, 3), typing.after);
    EXPECT_EQ(edited.count(), typing.before == typing.after ? 0 : 1);
    EXPECT_EQ(openEditor(*grid), nullptr);
    EXPECT_EQ(grid->activeRow(), 4);
}

INSTANTIATE_TEST_SUITE_P(Cells, SpreadGridTyping,
    testing::ValuesIn(std::vector<TypingCase>{
        {1, u"7"_s, u"1000"_s, u"1000"_s},
        {1, u"7"_s, u"1001"_s, u"100"_s}, // the last 1 is refused
        {1, u"7"_s, u"-5"_s, u"5"_s},
        {1, u"7"_s, u"0x1"_s, u"1"_s},
        {1, u"5"_s, u"007"_s, u"7"_s},
        {1, u"5"_s, u"000"_s, u"0"_s},
        {1, u"007"_s, u"07"_s, u"7"_s},
        {6, u""_s, u"1."_s, u"1"_s},
        {6, u""_s, u".5"_s, u"0.5"_s},
        {6, u""_s, u"00.50"_s, u"0.50"_s},
        {6, u""_s, u"0."_s, u"0"_s},
        {5, u"1"_s, u"No"_s, u"No"_s}, // though it is not in the list
        {5, u"1"_s, u"no"_s, u"No"_s},
        {5, u"1"_s, u"x"_s, u"1"_s},
        {1, u"A1"_s, u"z"_s, u"A1"_s},
        {1, u"A1"_s, u"12"_s, u"12"_s},
        {2, u"old"_s, u"a new name"_s, u"a new name"_s},
        {3, u"old"_s, u"123456"_s, u"12345"_s},
        {5, u"No"_s, u"0"_s, u"0.1"_s},
        {5, u"No"_s, u"0.01"_s, u"0.01"_s},
        {6, u""_s, u"3600.5"_s, u"3600"_s}, // beyond the limit
        {6, u""_s, u"1.50"_s, u"1.50"_s}, // as it was typed
        {6, u""_s, u"1e5"_s, u"15"_s},
        {6, u""_s, u"1.2.3"_s, u"1.23"_s},
    }));

TEST(SpreadGridEdit, openingAndClosingAnEditorKeepsEveryText)
{
    const auto grid = shownGrid();
    const QString longText = u"longer than five"_s;
    const QString texts[] = {u"A1"_s, u"a\r\nb"_s, longText, u"1"_s, u"No"_s, u"x"_s};
    QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    for (int column = 1; column <= 6; ++column) {
        grid->setText(column, 2, texts[column - 1]);
        grid->setActiveCell(column, 2);
        pressKey(*grid, Qt::Key_F2);
        EXPECT_EQ(openEditor(*grid) == nullptr, column == 4) << column;
        grid->commitEdit();
        EXPECT_EQ(openEditor(*grid), nullptr) << column;
        EXPECT_EQ(grid->text(column, 2), texts[column - 1]);
    }
    EXPECT_EQ(edited.count(), 0);
}

TEST(SpreadGridEdit, keepsAFilesNumberThatIsTypedAgain)
{
    const auto grid = shownGrid();
    grid->setText(1, 2, u"007"_s);
    clickCell(*grid, 1, 2);
    pressKey(*grid, Qt::Key_F2);
    pressKey(*grid, Qt::Key_Backspace);
    typeText(*grid, u"7"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(1, 2), u"007"_s);
}

TEST(SpreadGridEdit, showsNoUnlistedTextInTheList)
{
    const auto grid = shownGrid();
    grid->setText(5, 2, u"1"_s);
    clickCell(*grid, 5, 2);
    pressKey(*grid, Qt::Key_F2);
    auto &box = dynamic_cast<QComboBox &>(*openEditor(*grid));
    QStringList shown;
    for (int row = 0; row < box.count(); ++row) {
        shown << box.itemText(row);
    }
    EXPECT_EQ(shown, (QStringList{u"1"_s, u"0.1"_s, u"0.01"_s}));
}

struct RefusalCase
{
    int column;
    QString typed; ///< the last character is refused
    QString tip;
};

class Refusal : public testing::TestWithParam<RefusalCase>
{
};

TEST_P(Refusal, isShownByAMarkAndATip)
{
    RefusedInput::setWording(limitText);
    const auto grid = shownGrid();
    clickCell(*grid, GetParam().column, 2);
    typeText(*grid, GetParam().typed.chopped(1));
    QWidget &editor = *openEditor(*grid);
    const QColor usual = editor.palette().color(QPalette::Base);
    EXPECT_FALSE(QToolTip::isVisible());
    typeText(*grid, GetParam().typed.right(1));
    EXPECT_EQ(dynamic_cast<QLineEdit &>(editor).text(), GetParam().typed.chopped(1));
    EXPECT_NE(editor.palette().color(QPalette::Base), usual);
    EXPECT_EQ(editor.grab().toImage().pixelColor(1, 1), editor.palette().color(QPalette::Base));
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), GetParam().tip);
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor.palette().color(QPalette::Base) == usual; }, patience));
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience));
    RefusedInput::setWording({});
}

INSTANTIATE_TEST_SUITE_P(Cells, Refusal,
    testing::ValuesIn(std::vector<RefusalCase>{
        {1, u"1001"_s, u"Only whole numbers from 0 to 1000 can be entered here."_s},
        {1, u"5x"_s, u"Only whole numbers from 0 to 1000 can be entered here."_s},
        {6, u"3601"_s, u"Only numbers from 0 to 3600 can be entered here."_s},
        {3, u"123456"_s, u"No more than 5 characters can be entered here."_s},
    }));

TEST(SpreadGridEdit, goesOnBehindThePresentTextWithF2)
{
    const auto grid = shownGrid();
    clickCell(*grid, 2, 1);
    pressKey(*grid, Qt::Key_F2);
    typeText(*grid, u"x"_s);
    pressKey(*grid, Qt::Key_Tab);
    EXPECT_EQ(grid->text(2, 1), u"2.1x"_s);
    EXPECT_EQ(grid->activeColumn(), 3);
}

TEST(SpreadGridEdit, letsTheUserDeleteWhatTheTypeWouldNotTake)
{
    const auto grid = shownGrid();
    grid->setText(1, 1, u"A1"_s);
    clickCell(*grid, 1, 1);
    pressKey(*grid, Qt::Key_F2);
    pressKey(*grid, Qt::Key_Backspace);
    EXPECT_EQ(qobject_cast<QLineEdit *>(openEditor(*grid))->text(), u"A"_s);
    pressKey(*grid, Qt::Key_Return); // "A" is not a number: the editor stays open
    ASSERT_NE(openEditor(*grid), nullptr);
    pressKey(*grid, Qt::Key_Backspace);
    typeText(*grid, u"12"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(1, 1), u"12"_s);
}

TEST(SpreadGridEdit, cancelsWithEscapeWithoutTellingTheGrid)
{
    const auto grid = shownGrid();
    QSignalSpy escaped(grid.get(), &SpreadGrid::escapePressed);
    clickCell(*grid, 2, 1);
    typeText(*grid, u"new"_s);
    pressKey(*grid, Qt::Key_Escape);
    EXPECT_EQ(grid->text(2, 1), u"2.1"_s);
    EXPECT_EQ(escaped.count(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(openEditor(*grid) == nullptr, patience);
    pressKey(*grid, Qt::Key_Escape, Qt::ControlModifier);
    ASSERT_EQ(escaped.count(), 1);
    EXPECT_EQ(escaped.first().first().value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
}

TEST(SpreadGridEdit, keepsTheLineBreaksOfATextThatIsChanged)
{
    const auto grid = shownGrid();
    grid->setText(2, 1, u"one\r\ntwo"_s);
    clickCell(*grid, 2, 1);
    pressKey(*grid, Qt::Key_F2);
    ASSERT_NE(qobject_cast<QPlainTextEdit *>(openEditor(*grid)), nullptr);
    typeText(*grid, u"3"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(2, 1), u"one\r\ntwo3"_s);
}

TEST(SpreadGridEdit, doesNotLengthenALongTextFromAFile)
{
    const auto grid = shownGrid();
    grid->setText(3, 1, u"1234567"_s);
    clickCell(*grid, 3, 1);
    pressKey(*grid, Qt::Key_F2);
    typeText(*grid, u"8"_s);
    pressKey(*grid, Qt::Key_Backspace);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(3, 1), u"123456"_s);
}

TEST(SpreadGridEdit, commitsWhenTheFocusGoesElsewhere)
{
    const auto grid = shownGrid();
    clickCell(*grid, 2, 1);
    typeText(*grid, u"new"_s);
    clickCell(*grid, 3, 4);
    EXPECT_EQ(grid->text(2, 1), u"new"_s);
    EXPECT_EQ(grid->activeRow(), 4);
}

TEST(SpreadGridEdit, commitsWhenTheMouseGoesBesideTheCells)
{
    const auto grid = shownGrid(200);
    QWidget *const besides[] = {grid->horizontalHeader()->viewport(), grid->verticalScrollBar()};
    for (QWidget *beside : besides) {
        clickCell(*grid, 2, 1);
        typeText(*grid, u"new"_s);
        ASSERT_NE(openEditor(*grid), nullptr);
        QTest::mouseClick(beside, Qt::LeftButton, {}, beside->rect().center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return openEditor(*grid) == nullptr; }));
        EXPECT_EQ(grid->text(2, 1), u"new"_s);
        grid->setText(2, 1, u"old"_s);
        grid->setTopRow(1);
    }
}

TEST(SpreadGridEdit, keepsTheTypingWhenTheProgramColoursTheCell)
{
    const auto grid = shownGrid();
    clickCell(*grid, 2, 1);
    typeText(*grid, u"new"_s);
    grid->setTextColour({2, 1, 2, 1}, Qt::red);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(2, 1), u"new"_s);
}

TEST(SpreadGridEdit, beginsNoEditWithAnAccessKey)
{
    const auto grid = shownGrid();
    clickCell(*grid, 2, 1);
    pressKey(*grid, Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(openEditor(*grid), nullptr);
    pressKey(*grid, Qt::Key_Z, Qt::AltModifier | Qt::ControlModifier);
    EXPECT_NE(openEditor(*grid), nullptr);
}

// Drop-down lists

TEST(SpreadGridEdit, showsAPresentTextAboveTheItemsOfTheList)
{
    const auto grid = shownGrid();
    grid->setText(5, 1, u"No"_s);
    clickCell(*grid, 5, 1);
    pressKey(*grid, Qt::Key_Down, Qt::AltModifier);
    auto *list = qobject_cast<QComboBox *>(openEditor(*grid));
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->view()->isVisible());
    EXPECT_EQ(list->currentText(), u"No"_s);
    EXPECT_EQ(list->count(), 4);
}

TEST(SpreadGridEdit, takesTheItemThatIsChosenInTheList)
{
    const auto grid = shownGrid();
    grid->setText(5, 1, u"1"_s);
    doubleClickCell(*grid, 5, 1);
    auto *list = qobject_cast<QComboBox *>(openEditor(*grid));
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return openEditor(*grid) == nullptr; }, patience));
    EXPECT_EQ(grid->text(5, 1), u"0.1"_s);
}

TEST(SpreadGridEdit, endsAnEditOnceThatEndsByItsListAndByTheGrid)
{
    static int warnings;
    warnings = 0;
    const auto grid = shownGrid();
    doubleClickCell(*grid, 5, 1);
    auto *list = qobject_cast<QComboBox *>(openEditor(*grid));
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list->view(), Qt::Key_End);
    const auto former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
        warnings += message.contains(u"editor"_s) ? 1 : 0;
    });
    QTest::keyClick(list->view(), Qt::Key_Return);
    grid->commitEdit();
    qInstallMessageHandler(former);
    EXPECT_EQ(warnings, 0);
    EXPECT_EQ(grid->text(5, 1), u"0.01"_s);
}

TEST(SpreadGridEdit, dropsTheListDownByItsArrow)
{
    const auto grid = shownGrid();
    grid->setText(5, 1, u"1"_s);
    clickCell(*grid, 5, 1);
    const QRect cell = grid->visualRect(grid->model()->index(0, 4));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, QPoint(cell.right() - 6, cell.center().y()));
    ASSERT_NE(qobject_cast<QComboBox *>(openEditor(*grid)), nullptr);
}

// Check boxes

TEST(SpreadGridEdit, ticksACheckBoxByClickAndBySpace)
{
    const auto grid = shownGrid();
    QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    clickCell(*grid, 4, 2);
    EXPECT_EQ(grid->text(4, 2), u"1"_s);
    pressKey(*grid, Qt::Key_Space);
    EXPECT_EQ(grid->text(4, 2), u"0"_s);
    grid->setText(4, 2, u"7"_s); // any number but 0 is ticked
    pressKey(*grid, Qt::Key_Space);
    EXPECT_EQ(grid->text(4, 2), u"0"_s);
    EXPECT_EQ(edited.count(), 3);
}

TEST(SpreadGridEdit, doesNotTickBesideTheBox)
{
    const auto grid = shownGrid();
    const QRect cell = grid->visualRect(grid->model()->index(1, 3));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(3, 3));
    EXPECT_EQ(grid->activeColumn(), 4);
    EXPECT_EQ(grid->text(4, 2), QString());
}

TEST(SpreadGridEdit, ticksTwiceByADoubleClick)
{
    const auto grid = shownGrid();
    QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    doubleClickCell(*grid, 4, 2);
    EXPECT_EQ(edited.count(), 2);
    EXPECT_EQ(grid->text(4, 2), u"0"_s);
}

// Clearing

TEST(SpreadGridEdit, clearsTheSelectedCellsWithDelete)
{
    const auto grid = shownGrid();
    grid->setText(4, 2, u"1"_s);
    QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    grid->selectBlock({2, 1, 4, 2});
    pressKey(*grid, Qt::Key_Delete);
    EXPECT_EQ(grid->blockText({2, 1, 4, 3}), u"\t\t0\r\n\t\t0\r\n2.3\t3.3\t"_s);
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited.first().first().value<GridBlock>(), (GridBlock{2, 1, 4, 2}));
    pressKey(*grid, Qt::Key_Delete);
    EXPECT_EQ(edited.count(), 1);
}

TEST(SpreadGridEdit, beginsEmptyWithBackspace)
{
    const auto grid = shownGrid();
    clickCell(*grid, 2, 1);
    pressKey(*grid, Qt::Key_Backspace);
    typeText(*grid, u"x"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(2, 1), u"x"_s);
}

struct ClipboardKey
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    void (SpreadGrid::*request)();
};

class SpreadGridClipboardKeys : public testing::TestWithParam<ClipboardKey>
{
};

TEST_P(SpreadGridClipboardKeys, askForTheCommand)
{
    const auto grid = shownGrid();
    const QString before = grid->blockText({1, 1, 6, 20});
    QSignalSpy requested(grid.get(), GetParam().request);
    pressKey(*grid, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(requested.count(), 1);
    EXPECT_EQ(grid->blockText({1, 1, 6, 20}), before);
}

INSTANTIATE_TEST_SUITE_P(Keys, SpreadGridClipboardKeys,
    testing::ValuesIn(std::vector<ClipboardKey>{
        {Qt::Key_C, Qt::ControlModifier, &SpreadGrid::copyRequested},
        {Qt::Key_Insert, Qt::ControlModifier, &SpreadGrid::copyRequested},
        {Qt::Key_X, Qt::ControlModifier, &SpreadGrid::cutRequested},
        {Qt::Key_Delete, Qt::ShiftModifier, &SpreadGrid::cutRequested},
        {Qt::Key_V, Qt::ControlModifier, &SpreadGrid::pasteRequested},
        {Qt::Key_Insert, Qt::ShiftModifier, &SpreadGrid::pasteRequested},
        {Qt::Key_Z, Qt::ControlModifier, &SpreadGrid::undoRequested},
        {Qt::Key_Y, Qt::ControlModifier, &SpreadGrid::redoRequested},
        {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, &SpreadGrid::redoRequested},
    }));

// Several cells at once

TEST(SpreadGridFill, endsTheEditOfOneCellWhereNobodyFills)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 3, 2, 5});
    typeText(*grid, u"abc"_s);
    pressKey(*grid, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(openEditor(*grid), nullptr);
    EXPECT_EQ(grid->text(2, 3), u"abc"_s);
    EXPECT_EQ(grid->text(2, 4), u"2.4"_s);
    EXPECT_EQ(grid->activeRow(), 3);
}

TEST(SpreadGridFill, asksWhoeverFillsWhileTheEditorIsOpen)
{
    const auto grid = shownGrid();
    std::optional<QString> typed;
    QObject::connect(grid.get(), &SpreadGrid::fillRequested, grid.get(), [&](SpreadGrid::Fill way) {
        EXPECT_EQ(way, SpreadGrid::Fill::Selection);
        typed = grid->editorText();
        grid->dropEdit();
    });
    grid->selectBlock({2, 3, 2, 5});
    typeText(*grid, u"abc"_s);
    pressKey(*grid, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(typed, u"abc"_s);
    EXPECT_EQ(openEditor(*grid), nullptr);
    EXPECT_EQ(grid->text(2, 3), u"2.3"_s);
}

TEST(SpreadGridFill, ticksAllSelectedBoxesInOneAct)
{
    const auto grid = shownGrid();
    grid->setText(4, 2, u"1"_s);
    grid->setText(4, 3, u"0"_s);
    grid->setText(4, 4, u"0"_s);
    const QSignalSpy edited(grid.get(), &SpreadGrid::cellsEdited);
    grid->selectBlock({4, 2, 4, 4});
    pressKey(*grid, Qt::Key_Space);
    EXPECT_EQ(grid->blockText({4, 2, 4, 4}), u"1\r\n1\r\n1"_s);
    ASSERT_EQ(edited.size(), 1);
    EXPECT_EQ(edited[0][0].value<GridBlock>(), (GridBlock{4, 3, 4, 4}));
    pressKey(*grid, Qt::Key_Space);
    EXPECT_EQ(grid->blockText({4, 2, 4, 4}), u"0\r\n0\r\n0"_s);
}
