// The keys of the lists in the read condition dialog.

#include "grid/SpreadGrid.h"
#include "tests/dialogs/CondDialog.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString listName(int kind)
{
    return u"vaspdCond(%1)"_s.arg(kind);
}

} // namespace

TEST_F(CondDialog, tabLeavesAListAndShiftTabReturns)
{
    show(mixedText, 4, [&] {
        clickCell(grid(0), 2, 1);
        press(Qt::Key_Down);
        press(Qt::Key_Right);
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{3, 2, 3, 2}));
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), u"cmdAdd(0)"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focusedName(), listName(0));
        EXPECT_EQ(grid(0).selectedBlock(), (GridBlock{3, 2, 3, 2}));
        press(Qt::Key_Escape);
    });
}

TEST_F(CondDialog, enterEndsAnEditAndIsOkAfterIt)
{
    EXPECT_TRUE(show(u"10=1"_s, 1, [&] {
        typeIntoCell(grid(0), 3, 1, u"7"_s);
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(rows(0), QStringList{u"10|=|7|"_s});
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(text, u"10=7"_s);
}

class CondList : public CondDialog, public testing::WithParamInterface<int>
{
};

TEST_P(CondList, insertAddsARowAndGoesToItsFirstCell)
{
    show(u"OP=A,1=1,MODE=1"_s, 3, [&] {
        clickCell(grid(GetParam()), 2, 1);
        press(Qt::Key_Insert);
        EXPECT_EQ(rows(GetParam()).size(), 2);
        EXPECT_EQ(grid(GetParam()).selectedBlock(), (GridBlock{1, 2, 1, 2}));
        EXPECT_EQ(focusedName(), listName(GetParam()));
        press(Qt::Key_Escape);
    });
}

TEST_P(CondList, insertWorksInAnEmptyList)
{
    show(u""_s, 0, [&] {
        grid(GetParam()).setFocus();
        press(Qt::Key_Insert);
        EXPECT_EQ(grid(GetParam()).selectedBlock(), (GridBlock{1, 1, 1, 1}));
        EXPECT_TRUE(canDelete(GetParam()));
        press(Qt::Key_Escape);
    });
}

TEST_P(CondList, deleteTakesWholeRowsAway)
{
    const QStringList before[] = {{u"1|=|1|"_s, u"2|=|2|"_s, u"3|=|3|"_s, u"4|=|4|"_s},
        {u"=|EXT"_s, u"=|PU"_s, u"=|EXT JOG"_s, u"=|PU JOG"_s}, {u"=|A"_s, u"=|B"_s, u"=|C"_s, u"=|D"_s}};
    show(u"OP=A,OP=B,OP=C,OP=D,1=1,2=2,3=3,4=4,MODE=0,MODE=1,MODE=2,MODE=3"_s, 12, [&] {
        const int kind = GetParam();
        ASSERT_EQ(rows(kind), before[kind]);
        clickCell(grid(kind), 2, 2);
        press(Qt::Key_Space, Qt::ShiftModifier);
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(kind), (QStringList{before[kind][0], before[kind][3]}));
        EXPECT_EQ(grid(kind).selectedBlock(), (GridBlock{2, 2, 2, 2}));
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(kind), QStringList());
        EXPECT_FALSE(canDelete(kind));
        press(Qt::Key_Delete); // of nothing
        EXPECT_EQ(focusedName(), listName(kind));
        press(Qt::Key_Escape);
    });
}

TEST_P(CondList, deleteEmptiesASingleCell)
{
    show(u"OP=A,1=1,MODE=1"_s, 3, [&] {
        const int column = GetParam() == 0 ? 3 : 2;
        clickCell(grid(GetParam()), column, 1);
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(GetParam()).size(), 1);
        EXPECT_EQ(grid(GetParam()).text(column, 1), QString());
        press(Qt::Key_Escape);
    });
}

// What is typed at once after the key belongs into the new row.
TEST_P(CondList, theAccessKeysActOnTheListThatHasTheFocus)
{
    show(u"OP=A,1=1,MODE=1"_s, 3, [&] {
        const int kind = GetParam();
        clickCell(grid(kind), 2, 1);
        press(Qt::Key_A, Qt::AltModifier);
        EXPECT_EQ(grid(kind).selectedBlock(), (GridBlock{1, 2, 1, 2}));
        EXPECT_EQ(focusedName(), listName(kind));
        type(kind == 0 ? u"5"_s : u"<"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(grid(kind).text(1, 2), kind == 0 ? u"5"_s : u"<>"_s);
        press(Qt::Key_D, Qt::AltModifier);
        press(Qt::Key_D, Qt::AltModifier);
        for (int other = 0; other < 3; ++other) {
            EXPECT_EQ(rows(other).size(), other == kind ? 0 : 1) << other;
        }
        press(Qt::Key_D, Qt::AltModifier); // of nothing, not of another list
        EXPECT_EQ(rows((kind + 1) % 3).size(), 1);
        EXPECT_EQ(focusedName(), listName(kind));
        press(Qt::Key_Escape);
    });
}

INSTANTIATE_TEST_SUITE_P(Lists, CondList, testing::Range(0, 3));

TEST_F(CondDialog, theAccessKeysOfAButtonsOwnListAndOfTheLastOneElsewhere)
{
    show(u"OP=A"_s, 1, [&] {
        clickCell(grid(2), 2, 1);
        control<QPushButton>(dialog, u"cmdOK"_s).setFocus();
        press(Qt::Key_A, Qt::AltModifier);
        EXPECT_EQ(rows(2).size(), 2);
        control<QPushButton>(dialog, u"cmdAdd(1)"_s).setFocus();
        press(Qt::Key_A, Qt::AltModifier);
        EXPECT_EQ(rows(1).size(), 1);
        press(Qt::Key_Escape);
    });
    show(u"OP=A"_s, 1, [&] {
        press(Qt::Key_A, Qt::AltModifier);
        EXPECT_EQ(rows(0).size(), 1) << "each opening begins in the first list";
        press(Qt::Key_Escape);
    });
}

TEST_F(CondDialog, addGoesToTheNewRowByTheMouseToo)
{
    show(u"OP=A,OP=B"_s, 2, [&] {
        add(2);
        EXPECT_EQ(focusedName(), listName(2));
        EXPECT_EQ(grid(2).selectedBlock(), (GridBlock{1, 3, 1, 3}));
        press(Qt::Key_Escape);
    });
}
