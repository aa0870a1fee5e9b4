// Line ends and the editors of cells: none goes in by a key, the clipboard, a drop or an input method, and none that a
// text already has is lost by looking at it.

#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPlainTextEdit>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

void pasteIntoEditor(SpreadGrid &grid, const QString &text)
{
    QApplication::clipboard()->setText(text);
    pressKey(grid, Qt::Key_V, Qt::ControlModifier);
}

void composeIntoEditor(SpreadGrid &grid, const QString &text)
{
    QInputMethodEvent composed;
    composed.setCommitString(text);
    QApplication::sendEvent(openEditor(grid), &composed);
}

void dropIntoEditor(SpreadGrid &grid, const QString &text)
{
    auto *box = qobject_cast<QPlainTextEdit *>(openEditor(grid));
    QWidget *target = box ? box->viewport() : openEditor(grid);
    QMimeData dropped;
    dropped.setText(text);
    const QPoint behind(target->width() - 2, target->height() - 2);
    QDragEnterEvent enter(behind, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(behind, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
}

} // namespace

struct InsertionWay
{
    const char *name;
    void (*insert)(SpreadGrid &grid, const QString &text);
};

void PrintTo(const InsertionWay &way, std::ostream *out)
{
    *out << way.name;
}

class SpreadGridLineEnd : public testing::TestWithParam<InsertionWay>
{
protected:
    /// Opens a cell's editor with the caret after its text, inserts, and ends the edit.
    QString after(int column, const QString &before, const QString &inserted)
    {
        const auto grid = shownGrid();
        grid->setText(column, 2, before);
        grid->setActiveCell(column, 2);
        pressKey(*grid, Qt::Key_F2);
        GetParam().insert(*grid, inserted);
        pressKey(*grid, Qt::Key_Return);
        EXPECT_EQ(openEditor(*grid), nullptr);
        return grid->text(column, 2);
    }
};

TEST_P(SpreadGridLineEnd, doesNotGoIntoATextOfOneLine)
{
    EXPECT_EQ(after(2, u"old "_s, u"single cell\r\n"_s), u"old single cell"_s);
    EXPECT_EQ(after(2, u"old "_s, u"two\r\nlines\n"_s), u"old two lines"_s);
    EXPECT_EQ(after(2, u""_s, u"a\rb"_s), u"a b"_s);
    EXPECT_EQ(after(3, u""_s, u"ab\ncd\r\n"_s), u"ab cd"_s);
}

TEST_P(SpreadGridLineEnd, doesNotKeepANumberOut)
{
    EXPECT_EQ(after(1, u""_s, u"12\r\n"_s), u"12"_s);
    EXPECT_EQ(after(1, u"1"_s, u"2\n"_s), u"12"_s);
}

TEST_P(SpreadGridLineEnd, isNotAddedToATextOfSeveralLines)
{
    EXPECT_EQ(after(2, u"one\r\ntwo"_s, u" three\r\nfour\n"_s), u"one\r\ntwo three four"_s);
}

INSTANTIATE_TEST_SUITE_P(Ways, SpreadGridLineEnd,
    testing::ValuesIn(std::vector<InsertionWay>{
        {"paste", pasteIntoEditor},
        {"drop", dropIntoEditor},
        {"input method", composeIntoEditor},
    }));

TEST(SpreadGridLineEnds, leaveNoSpaceInTheMiddleOfAText)
{
    const auto grid = shownGrid();
    grid->setText(2, 2, u"aa-aa"_s);
    grid->setActiveCell(2, 2);
    pressKey(*grid, Qt::Key_F2);
    for (int press = 0; press < 2; ++press) {
        pressKey(*grid, Qt::Key_Left);
    }
    pasteIntoEditor(*grid, u"aa\r\n"_s);
    typeText(*grid, u"x"_s);
    pressKey(*grid, Qt::Key_Return);
    EXPECT_EQ(grid->text(2, 2), u"aa-aaxaa"_s);
}

TEST(SpreadGridLineEnds, areNotTyped)
{
    for (const Qt::KeyboardModifiers modifiers :
        {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::KeyboardModifiers(Qt::AltModifier)}) {
        const auto grid = shownGrid();
        grid->setText(2, 2, u"one\r\ntwo"_s);
        grid->setActiveCell(2, 2);
        pressKey(*grid, Qt::Key_F2);
        typeText(*grid, u"3"_s);
        pressKey(*grid, Qt::Key_Return, modifiers);
        EXPECT_EQ(openEditor(*grid), nullptr);
        EXPECT_EQ(grid->text(2, 2), u"one\r\ntwo3"_s);
    }
}

TEST(SpreadGridLineEnds, stayWhenTheEditorIsOnlyOpened)
{
    for (const QString &text : {u"one\rtwo\nthree\r\n"_s, u"\n"_s, u"a\u2028b"_s}) {
        const auto grid = shownGrid();
        grid->setText(2, 2, text);
        grid->setActiveCell(2, 2);
        pressKey(*grid, Qt::Key_F2);
        ASSERT_NE(openEditor(*grid), nullptr);
        pressKey(*grid, Qt::Key_Return);
        EXPECT_EQ(grid->text(2, 2), text);
    }
}
