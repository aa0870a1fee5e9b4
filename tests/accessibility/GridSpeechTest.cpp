// The parameter grid as a screen reader finds it: a table with headers, cells and an active cell.

#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList focusedNames; // of what the program announced as focused, in that order
QStringList alerts; // likewise, of what it said by itself
QList<QAccessible::Event> events;

void noteEvent(QAccessibleEvent *event)
{
    events << event->type();
    if (event->type() == QAccessible::Focus && event->accessibleInterface()) {
        focusedNames << event->accessibleInterface()->text(QAccessible::Name);
    }
    if (event->type() == QAccessible::Alert && event->accessibleInterface()) {
        alerts << event->accessibleInterface()->text(QAccessible::Name);
    }
}

class GridSpeech : public FrameTest, public testing::WithParamInterface<int>
{
protected:
    GridSpeech() { setCountryCode(GetParam()); }

    void SetUp() override
    {
        start(writeFile(u"a.inv"_s, document(30)));
        grid().setFocus();
        ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }, patience)) << "no screen reader is on";
        QApplication::processEvents();
        QAccessible::installUpdateHandler(noteEvent);
        focusedNames.clear();
        events.clear();
    }
    void TearDown() override { QAccessible::installUpdateHandler(nullptr); }

    QAccessibleTableInterface &table() { return *QAccessible::queryAccessibleInterface(&grid())->tableInterface(); }
    QAccessibleInterface &cell(int column, int row) { return *table().cellAt(row - 1, column - 1); }
    QString spoken(int column, int row) { return cell(column, row).text(QAccessible::Name); }
    /// The name of what a cell made as its only header. Whoever asks has to delete it, which goes through its number.
    static QString nameOfOnly(const QList<QAccessibleInterface *> &headers)
    {
        EXPECT_EQ(headers.size(), 1);
        QString name;
        for (QAccessibleInterface *header : headers) {
            name = header->text(QAccessible::Name);
            QAccessible::deleteAccessibleInterface(QAccessible::registerAccessibleInterface(header));
        }
        return name;
    }
};

} // namespace

TEST_P(GridSpeech, everyCellInViewHasItsTextAndItsHeaders)
{
    for (int row = grid().topRow(); row <= grid().bottomRow(); ++row) {
        for (int column = 1; column <= grid().columnCount(); ++column) {
            SCOPED_TRACE(testing::Message() << column << ' ' << row);
            const bool isBox = column == ParameterColumn::RangeCheck;
            EXPECT_EQ(spoken(column, row), grid().text(column, isBox ? 0 : row));
            QAccessibleTableCellInterface &place = *cell(column, row).tableCellInterface();
            EXPECT_EQ(nameOfOnly(place.columnHeaderCells()), grid().text(column, 0));
            EXPECT_EQ(nameOfOnly(place.rowHeaderCells()), QString::number(row));
        }
    }
    EXPECT_EQ(spoken(ParameterColumn::Name, 3), u"Parameter 3"_s);
}

TEST_P(GridSpeech, theTableKnowsItsSizeAndItsColumns)
{
    EXPECT_EQ(table().rowCount(), 30);
    EXPECT_EQ(table().columnCount(), ParameterColumn::Count);
    for (int column = 1; column <= grid().columnCount(); ++column) {
        EXPECT_EQ(table().columnDescription(column - 1), grid().text(column, 0));
    }
    EXPECT_EQ(table().rowDescription(6), u"7"_s);
}

TEST_P(GridSpeech, aCheckBoxTellsItsState)
{
    for (const bool ticked : {false, true, false}) {
        grid().setText(ParameterColumn::RangeCheck, 2, ticked ? u"1"_s : u"0"_s);
        const QAccessible::State state = cell(ParameterColumn::RangeCheck, 2).state();
        EXPECT_TRUE(state.checkable);
        EXPECT_EQ(bool(state.checked), ticked);
    }
    EXPECT_FALSE(cell(ParameterColumn::Name, 2).state().checkable);
}

TEST_P(GridSpeech, theActiveCellIsAnnouncedAsItMoves)
{
    grid().setActiveCell(ParameterColumn::Name, 1);
    focusedNames.clear();
    pressKey(grid(), Qt::Key_Down);
    pressKey(grid(), Qt::Key_Right);
    EXPECT_EQ(focusedNames, (QStringList{u"Parameter 2"_s, grid().text(ParameterColumn::SettingRange, 2)}));
    EXPECT_TRUE(cell(ParameterColumn::SettingRange, 2).state().focused);
    EXPECT_FALSE(cell(ParameterColumn::Name, 2).state().focused);
}

TEST_P(GridSpeech, theActiveCellIsAnnouncedWhenTheGridGetsTheFocus)
{
    grid().setActiveCell(ParameterColumn::Name, 4);
    auto &jumpBox = control<QLineEdit>(frame(), u"txtPr"_s);
    jumpBox.setFocus();
    focusedNames.clear();
    grid().setFocus();
    QApplication::processEvents();
    EXPECT_EQ(focusedNames, (QStringList{editor().windowTitle(), u"Parameter 4"_s}));
}

TEST_P(GridSpeech, selectedCellsAreToldAsSelected)
{
    grid().selectBlock({2, 2, 3, 4});
    EXPECT_TRUE(cell(3, 4).state().selected);
    EXPECT_FALSE(cell(4, 4).state().selected);
    grid().selectBlock({-1, 2, -1, 3});
    EXPECT_TRUE(table().isRowSelected(2));
    EXPECT_FALSE(table().isRowSelected(3));
}

TEST_P(GridSpeech, aChangedTextIsAnnounced)
{
    typeInto(ParameterColumn::Unit, 3, u"Hz"_s);
    EXPECT_TRUE(events.contains(QAccessible::TableModelChanged));
    EXPECT_EQ(spoken(ParameterColumn::Unit, 3), u"Hz"_s);
}

TEST_P(GridSpeech, whatF8ReachesIsAnnouncedAndDescribed)
{
    grid().setText(ParameterColumn::Name, 1, u"Boost, torque"_s); // a comma
    grid().setActiveCell(ParameterColumn::Number, 1);
    focusedNames.clear();
    alerts.clear();
    pressKey(grid(), Qt::Key_F8);
    EXPECT_EQ(focusedNames, QStringList(u"Boost, torque"_s));
    EXPECT_TRUE(cell(ParameterColumn::Name, 1).text(QAccessible::Description).contains(u"[comma-in-text]"_s));
    EXPECT_EQ(cell(ParameterColumn::Name, 2).text(QAccessible::Description), QString());
    ASSERT_EQ(alerts.size(), 1);
    EXPECT_TRUE(alerts.first().contains(u"[comma-in-text]"_s)) << alerts.first().toStdString();
}

TEST_P(GridSpeech, theCornerIsCalledAsItsHeader)
{
    EXPECT_EQ(spokenName(control<QWidget>(grid(), u"corner"_s)), grid().text(0, 0));
}

INSTANTIATE_TEST_SUITE_P(, GridSpeech, testing::Values(1, 81));
