// The keys of the machine dialog: in its list, and how its boxes are entered.

#include "dialogs/frmKisyuEdit.h"
#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/MachineDialog.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <QLineEdit>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

TEST_F(MachineDialog, tabLeavesTheListAndShiftTabReturns)
{
    show([&] {
        clickCell(grid(), 1, 2);
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), u"cmdAdd"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focusedName(), u"vaSpread1"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focusedName(), u"txtCode"_s);
        cancel();
    });
}

TEST_F(MachineDialog, enterAfterAFinishedEditIsOk)
{
    EXPECT_TRUE(show([&] {
        typeIntoCell(grid(), 1, 1, u"0.2"_s);
        press(Qt::Key_Return);
        EXPECT_TRUE(dialog->isVisible());
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(info().Capacity.value(0), u"0.2"_s);
}

TEST_F(MachineDialog, insertInTheListAsksForACapacity)
{
    EXPECT_TRUE(show([&] {
        clickCell(grid(), 1, 2);
        whileNextIsShown([](QDialog &) {
            type(u"0.2"_s);
            press(Qt::Key_Tab);
            type(u"1.5"_s);
            press(Qt::Key_Return);
        });
        press(Qt::Key_Insert);
        EXPECT_EQ(rows(), (QStringList{u"0.2|1.5"_s, u"0.4|2.5"_s, u"3.7|16.5"_s, u"11|46"_s}));
        dialog->activateWindow(); // as a window manager does
        ASSERT_TRUE(QTest::qWaitFor([] { return focusedName() == u"vaSpread1"_s; }, patience));
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(info().Capacity.size(), 4);
}

TEST_F(MachineDialog, deleteTakesWholeRowsAway)
{
    EXPECT_TRUE(show([&] {
        clickCell(grid(), 2, 1);
        press(Qt::Key_Space, Qt::ShiftModifier);
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(), QStringList{u"11|46"_s});
        EXPECT_EQ(grid().selectedBlock(), (GridBlock{2, 1, 2, 1}));
        ok();
    }));
    EXPECT_EQ(info().Capacity, QStringList{u"11"_s});
}

TEST_F(MachineDialog, deleteOfAllRowsLeavesTheLastCapacity)
{
    EXPECT_TRUE(show([&] {
        clickCell(grid(), 1, 1);
        for (int time = 0; time < 2; ++time) {
            press(Qt::Key_A, Qt::ControlModifier);
            press(Qt::Key_Delete);
            EXPECT_EQ(rows(), QStringList{u"11|46"_s});
        }
        ok();
    }));
}

TEST_F(MachineDialog, aFramesKeyAlwaysLeadsToItsFirstControl)
{
    show([&] {
        press(Qt::Key_T, Qt::AltModifier);
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), u"txtKigo"_s);
        press(Qt::Key_V, Qt::AltModifier);
        press(Qt::Key_T, Qt::AltModifier);
        EXPECT_EQ(focusedName(), u"txtKisyuName"_s);
        press(Qt::Key_Tab);
        press(Qt::Key_T, Qt::AltModifier);
        EXPECT_EQ(focusedName(), u"txtKisyuName"_s) << "from its second control too";
        press(Qt::Key_C, Qt::AltModifier);
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), u"cmdAdd"_s);
        press(Qt::Key_P, Qt::AltModifier);
        press(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(focusedName(), u"vaSpread1"_s);
        cancel();
    });
}

struct Entry
{
    QString from;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

class MachineOptions : public MachineDialog, public testing::WithParamInterface<Entry>
{
};

TEST_P(MachineOptions, keepTheirTextUnselectedWhenEnteredByKeys)
{
    show([&] {
        QLineEdit &options = box(u"txtOption"_s);
        options.setFocus();
        press(Qt::Key_Home);
        press(Qt::Key_Right);
        control<QWidget>(*dialog, GetParam().from).setFocus();
        press(GetParam().key, GetParam().modifiers);
        EXPECT_EQ(focusedName(), u"txtOption"_s);
        EXPECT_EQ(options.selectedText(), QString());
        type(u"x"_s);
        EXPECT_EQ(options.text(), u"Ax1,B"_s);
        cancel();
    });
}

INSTANTIATE_TEST_SUITE_P(Ways, MachineOptions,
    testing::ValuesIn(std::vector<Entry>{
        {u"cmdDel"_s, Qt::Key_Tab, Qt::NoModifier},
        {u"cmdOK"_s, Qt::Key_Backtab, Qt::ShiftModifier},
        {u"txtV"_s, Qt::Key_P, Qt::AltModifier},
    }));
