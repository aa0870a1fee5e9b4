// The list of capacities and rated currents in the machine dialog.

#include "dialogs/frmKisyuEdit.h"
#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/MachineDialog.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <QHeaderView>
#include <QTest>

using namespace Qt::StringLiterals;

TEST_F(MachineDialog, addAppendsAndSortsByNumber)
{
    EXPECT_TRUE(show([&] {
        add(u"5.50"_s, u"24"_s);
        EXPECT_EQ(rows(), (QStringList{u"0.4|2.5"_s, u"3.7|16.5"_s, u"5.50|24"_s, u"11|46"_s}));
        add(u"0.2"_s, u"1,5"_s);
        ok();
    }));
    EXPECT_EQ(info().Capacity, (QStringList{u"0.2"_s, u"0.4"_s, u"3.7"_s, u"5.5"_s, u"11"_s}));
    EXPECT_EQ(info().ICapacity, (QStringList{u"1.5"_s, u"2.5"_s, u"16.5"_s, u"24"_s, u"46"_s}));
}

TEST_F(MachineDialog, aCancelledAddChangesNothing)
{
    EXPECT_FALSE(show([&] {
        add(u"5.5"_s, u"24"_s, Qt::Key_Escape);
        EXPECT_EQ(rows().size(), 3);
        ok();
    }));
}

TEST_F(MachineDialog, addWorksOnAnEmptyList)
{
    info().Capacity.clear();
    info().ICapacity.clear();
    EXPECT_TRUE(show([&] {
        add(u"1"_s, u"2"_s);
        ok();
    }));
    EXPECT_EQ(info().Capacity, QStringList{u"1"_s});
    EXPECT_EQ(info().ICapacity, QStringList{u"2"_s});
}

TEST_F(MachineDialog, deleteRemovesTheActiveRow)
{
    EXPECT_TRUE(show([&] {
        clickCell(grid(), 2, 2);
        click(*dialog, u"cmdDel"_s);
        EXPECT_EQ(rows(), (QStringList{u"0.4|2.5"_s, u"11|46"_s}));
        ok();
    }));
    EXPECT_EQ(info().Capacity, (QStringList{u"0.4"_s, u"11"_s}));
    EXPECT_EQ(info().ICapacity, (QStringList{u"2.5"_s, u"46"_s}));
}

TEST_F(MachineDialog, theActiveRowStaysWithItsCapacityWhenAnotherIsAdded)
{
    show([&] {
        clickCell(grid(), 2, 2);
        add(u"0.2"_s, u"1.5"_s);
        click(*dialog, u"cmdDel"_s);
        EXPECT_EQ(rows(), (QStringList{u"0.2|1.5"_s, u"0.4|2.5"_s, u"11|46"_s}));
        ok();
    });
}

TEST_F(MachineDialog, aHeadingSelectsNoCapacities)
{
    show([&] {
        clickCell(grid(), 2, 2);
        QTest::mouseClick(grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, {10, 5});
        press(Qt::Key_Delete);
        EXPECT_EQ(rows(), (QStringList{u"0.4|2.5"_s, u"3.7|"_s, u"11|46"_s}));
        ok();
    });
}

TEST_F(MachineDialog, theLastCapacityCannotBeDeleted)
{
    EXPECT_TRUE(show([&] {
        clickCell(grid(), 1, 3);
        for (int i = 0; i < 4; ++i) {
            click(*dialog, u"cmdDel"_s);
        }
        EXPECT_EQ(rows().size(), 1);
        ok();
    }));
    EXPECT_EQ(info().Capacity.size(), 1);
}

TEST_F(MachineDialog, aRefusedDeletionIsNoChange)
{
    info().Capacity = {u"1"_s};
    info().ICapacity = {u"2"_s};
    EXPECT_FALSE(show([&] {
        click(*dialog, u"cmdDel"_s);
        EXPECT_EQ(rows(), QStringList{u"1|2"_s});
        ok();
    }));
}

TEST_F(MachineDialog, capacitiesAreEditedInPlaceAndNotSorted)
{
    EXPECT_TRUE(show([&] {
        enterIntoCell(grid(), 1, 1, u"15"_s);
        enterIntoCell(grid(), 2, 1, u"60.50"_s);
        ok();
    }));
    EXPECT_EQ(info().Capacity, (QStringList{u"15"_s, u"3.7"_s, u"11"_s}));
    EXPECT_EQ(info().ICapacity, (QStringList{u"60.5"_s, u"16.5"_s, u"46"_s}));
}

TEST_F(MachineDialog, capacitiesGoUpTo3600)
{
    show([&] {
        EXPECT_EQ(grid().cellType(1, -1), CellType::number(0, 3600));
        EXPECT_EQ(grid().cellType(2, -1), CellType::number(0, 3600));
        enterIntoCell(grid(), 1, 1, u"3601"_s);
        press(Qt::Key_Escape); // a refused edit may still be open
        EXPECT_NE(grid().text(1, 1), u"3601"_s);
        dialog->reject();
    });
}

TEST_F(MachineDialog, rowsThatAreNoNumbersAreDropped)
{
    info().Capacity = {u"0.4"_s, u"3.7"_s, u"11kW"_s};
    info().ICapacity = {u"2.5"_s}; // the file had no current for the others
    EXPECT_TRUE(show([&] {
        EXPECT_EQ(rows(), (QStringList{u"0.4|2.5"_s, u"3.7|"_s, u"11kW|"_s}));
        enterIntoCell(grid(), 2, 3, u"5"_s);
        ok();
    }));
    EXPECT_EQ(info().Capacity, QStringList{u"0.4"_s});
    EXPECT_EQ(info().ICapacity, QStringList{u"2.5"_s});
}

TEST_F(MachineDialog, okTakesAnEditThatIsStillOpen)
{
    EXPECT_TRUE(show([&] {
        typeIntoCell(grid(), 1, 1, u"0.2"_s);
        ok();
    }));
    EXPECT_EQ(info().Capacity.value(0), u"0.2"_s);
}

TEST_F(MachineDialog, acceptingTakesAnEditThatIsStillOpen)
{
    EXPECT_TRUE(show([&] {
        typeIntoCell(grid(), 1, 1, u"0.2"_s);
        dialog->accept(); // as assistive tools do, without moving the focus
    }));
    EXPECT_EQ(info().Capacity.value(0), u"0.2"_s);
}

TEST_F(MachineDialog, deleteTakesAnEditThatIsStillOpen)
{
    show([&] {
        typeIntoCell(grid(), 1, 1, u"0.2"_s);
        press(Qt::Key_D, Qt::AltModifier); // the button shows itself pressed for a moment first
        EXPECT_TRUE(QTest::qWaitFor([&] { return grid().rowCount() == 2; }, patience));
        EXPECT_EQ(rows(), (QStringList{u"3.7|16.5"_s, u"11|46"_s}));
        cancel();
    });
}

TEST_F(MachineDialog, columnsAreAsWideAsTheirHeadingsHaveBytes)
{
    useJapanese();
    show([&] {
        // 15 bytes to 11 in code page 932
        EXPECT_NEAR(grid().columnWidth(0) / 15.0, grid().columnWidth(1) / 11.0, 1.0);
        cancel();
    });
}
