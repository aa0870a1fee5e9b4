// What a check finds, shown in the cells of the grid: marks, tool tips, F8.

#include "editor/FindingMarks.h"

#include "app/services/Settings.h"
#include "check/FileCheck.h"
#include "desktop/InputHold.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// A document of three parameters: a factory setting of 9 outside 0-7, a range check without a range, a number that
/// repeats and, in a hidden column, a condition on a parameter that is not there.
QByteArray faultyDocument(const QByteArray &name = "XT")
{
    return "[Inverter]\r\nName=" + name
        + "\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nSoftWareVersion=1\r\nParamater=3\r\n"
          "[Paramater]\r\n0,1,1001,One,%,1,-1,-1,9,1,0,1,0,7\r\n0,2,1002,Two,%,1,-1,-1,5,1,1,0,"
          "1,2,1003,Three,%,1,-1,-1,5,1,0,1,0,7,99,0,1\r\n";
}

class FindingMarksTest : public FrameTest
{
protected:
    void open(const QByteArray &bytes)
    {
        start();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, bytes)));
    }
    bool isUpToDate()
    {
        return QTest::qWaitFor([this] { return editor().findings().isUpToDate(); }, patience);
    }
    QString described(int column, int row)
    {
        QAccessibleTableInterface *table = QAccessible::queryAccessibleInterface(&grid())->tableInterface();
        return table->cellAt(row - 1, column - 1)->text(QAccessible::Description);
    }
    QString tip(int column, int row)
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience)); // it takes its time
        const QPoint place = grid().visualRect(grid().model()->index(row - 1, column - 1)).center();
        QHelpEvent event(QEvent::ToolTip, place, grid().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(grid().viewport(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    QLabel &notice() { return control<QLabel>(frame(), u"lblNotice"_s); }
    /// The active cell and what is said after F8.
    void expectAt(int column, int row, const QString &said)
    {
        EXPECT_EQ(grid().activeColumn(), column);
        EXPECT_EQ(grid().activeRow(), row);
        EXPECT_EQ(notice().accessibleName(), said);
    }
    /// Every cell that is marked, as "column,row".
    QStringList markedCells()
    {
        QStringList cells;
        for (int row = 1; row <= grid().rowCount(); ++row) {
            for (int column = 1; column <= grid().columnCount(); ++column) {
                if (!described(column, row).isEmpty()) {
                    cells << u"%1,%2"_s.arg(column).arg(row);
                }
            }
        }
        return cells;
    }
};

QString outsideAs(const QString &place)
{
    return place
        + u"Warning: Parameter 1, \"Factory Setting\": 9 is outside its ranges 0-7. [factory-outside-ranges]"_s;
}

} // namespace

TEST_F(FindingMarksTest, areThereSoonAfterADocumentIsShown)
{
    open(faultyDocument());
    EXPECT_EQ(editor().findings().checkedRows(), 0); // nothing was done while it was opened
    ASSERT_TRUE(isUpToDate());
    EXPECT_EQ(markedCells(), (QStringList{u"9,1"_s, u"4,2"_s, u"1,3"_s, u"13,3"_s}));
    EXPECT_FALSE(DocFlags[docNo()].changed);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

TEST_F(FindingMarksTest, waitWhileAFileIsReadOrWritten)
{
    open(faultyDocument());
    {
        const InputHold hold;
        for (int pass = 0; pass < 20; ++pass) {
            grid().viewport()->repaint();
            QApplication::processEvents();
        }
        EXPECT_EQ(editor().findings().checkedRows(), 0);
    }
    EXPECT_TRUE(isUpToDate());
    EXPECT_GT(editor().findings().checkedRows(), 0);
}

TEST_F(FindingMarksTest, saySoInTheToolTipOfTheCell)
{
    open(faultyDocument());
    ASSERT_TRUE(isUpToDate());
    EXPECT_TRUE(tip(ParameterColumn::FactorySetting, 1).contains(u"9 is outside its ranges 0-7."_s));
    EXPECT_TRUE(tip(ParameterColumn::FactorySetting, 1).contains(u"Warning: "_s));
    EXPECT_EQ(tip(ParameterColumn::FactorySetting, 2), QString());
    typeInto(ParameterColumn::Name, 1, u"a, b"_s);
    EXPECT_TRUE(tip(ParameterColumn::Name, 1).contains(u"Error: "_s)) << tip(ParameterColumn::Name, 1).toStdString();
}

TEST_F(FindingMarksTest, saySeveralThingsOneALine)
{
    open(faultyDocument());
    ASSERT_TRUE(isUpToDate());
    ListVisualState.fill(false);
    applyVisibleColumns(grid());
    grid().setText(ParameterColumn::Condition, 1, u"99=1,98=2"_s);
    EXPECT_EQ(described(ParameterColumn::Condition, 1).count(u'\n'), 1);
    EXPECT_EQ(tip(ParameterColumn::Condition, 1).count(u"<br"_s), 1);
}

TEST_F(FindingMarksTest, speakTheLanguageOfTheInterface)
{
    setCountryCode(81);
    open(faultyDocument());
    ASSERT_TRUE(isUpToDate());
    EXPECT_TRUE(tip(ParameterColumn::FactorySetting, 1).contains(u"警告: "_s));
    press(Qt::Key_F8);
    EXPECT_TRUE(notice().accessibleName().startsWith(u"4 件中 1 件目"_s)) << notice().accessibleName().toStdString();
    setCountryCode(1);
}

TEST_F(FindingMarksTest, areReachedByF8AroundTheEnds)
{
    open(faultyDocument());
    press(Qt::Key_F8);
    expectAt(ParameterColumn::FactorySetting, 1, outsideAs(u"1 of 4. "_s));
    press(Qt::Key_F8);
    expectAt(ParameterColumn::RangeCheck, 2, notice().accessibleName());
    press(Qt::Key_F8);
    expectAt(ParameterColumn::Number, 3, notice().accessibleName());
    press(Qt::Key_F8); // in a hidden column: the row, and the text says so
    expectAt(ParameterColumn::Number, 3, notice().accessibleName());
    EXPECT_TRUE(
        notice().accessibleName().startsWith(u"4 of 4. In the hidden column \"Pr Read Condition\": Warning: "_s))
        << notice().accessibleName().toStdString();
    press(Qt::Key_F8);
    expectAt(ParameterColumn::FactorySetting, 1, outsideAs(u"1 of 4. "_s));
    press(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_TRUE(notice().accessibleName().startsWith(u"4 of 4."_s));
    press(Qt::Key_F8, Qt::ShiftModifier);
    expectAt(ParameterColumn::Number, 3, notice().accessibleName());
    EXPECT_TRUE(notice().accessibleName().startsWith(u"3 of 4."_s));
}

TEST_F(FindingMarksTest, areReachedByF8FromWhereTheUserIs)
{
    open(faultyDocument());
    press(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_TRUE(notice().accessibleName().startsWith(u"4 of 4."_s));
    grid().setActiveCell(ParameterColumn::Name, 2);
    EXPECT_EQ(notice().accessibleName(), QString()); // what was said is about another cell
    press(Qt::Key_F8);
    expectAt(ParameterColumn::RangeCheck, 2, notice().accessibleName());
    EXPECT_TRUE(notice().accessibleName().startsWith(u"2 of 4."_s));
}

TEST_F(FindingMarksTest, ofTheMachineInformationComeFirstAndMoveNothing)
{
    open(faultyDocument().replace(
        "SoftWare", "Capacity0=0.4\r\nICapacity0=1\r\nCapacity1=0.4\r\nICapacity1=2\r\nSoftWare"));
    grid().setActiveCell(ParameterColumn::Name, 3);
    press(Qt::Key_F8);
    press(Qt::Key_F8);
    expectAt(ParameterColumn::Name, 3, notice().accessibleName());
    EXPECT_TRUE(notice().accessibleName().startsWith(u"1 of 5. Warning: Capacity1"_s))
        << notice().accessibleName().toStdString();
    press(Qt::Key_F8);
    expectAt(ParameterColumn::FactorySetting, 1, outsideAs(u"2 of 5. "_s));
}

TEST_F(FindingMarksTest, saySoIfThereIsNothingToGoTo)
{
    open(document(3));
    grid().setTexts({ParameterColumn::Condition, 1, ParameterColumn::Condition, 3}, [](int, int) { return u""; });
    press(Qt::Key_F8);
    expectAt(1, 1, u"There are no errors or warnings."_s);
    EXPECT_EQ(notice().text(), u"There are no errors or warnings."_s);
}

TEST_F(FindingMarksTest, followAnEditByLookingAtFewRows)
{
    open(document(2000));
    ASSERT_TRUE(isUpToDate());
    const qint64 before = editor().findings().checkedRows();
    typeInto(ParameterColumn::Number, 1000, u"7"_s);
    EXPECT_TRUE(described(ParameterColumn::Number, 1000).contains(u"Warning: "_s));
    ASSERT_TRUE(isUpToDate());
    clickTool(u"ssrbnEdit(4)"_s); // a line is added
    ASSERT_TRUE(isUpToDate());
    EXPECT_LE(editor().findings().checkedRows() - before, 8);
}

// Otherwise the first picture after it would wait for all of its rows.
TEST_F(FindingMarksTest, followALargeChangeInParts)
{
    open(document(2000));
    ASSERT_TRUE(isUpToDate());
    const qint64 before = editor().findings().checkedRows();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_D, Qt::ControlModifier); // every row becomes the first one
    grid().viewport()->grab();
    EXPECT_FALSE(editor().findings().isUpToDate());
    EXPECT_EQ(editor().findings().checkedRows(), before);
    EXPECT_EQ(described(ParameterColumn::Number, 2), QString()); // not known yet
    ASSERT_TRUE(isUpToDate());
    EXPECT_FALSE(described(ParameterColumn::Number, 2000).isEmpty());
    EXPECT_GE(editor().findings().checkedRows() - before, 1999);
}

TEST_F(FindingMarksTest, followTheNameOfTheFile)
{
    open(faultyDocument());
    ASSERT_TRUE(isUpToDate());
    grid().setText(ParameterColumn::FuncCode, 1, u"1000"_s);
    EXPECT_TRUE(described(ParameterColumn::FuncCode, 1).contains(u"[unknown-function-bits]"_s));
    editor().document().setPath(path(u"KQM3.inv"_s));
    ASSERT_TRUE(isUpToDate());
    EXPECT_EQ(described(ParameterColumn::FuncCode, 1), QString());
}

TEST_F(FindingMarksTest, goByTheRulesForTheFolder)
{
    start();
    writeFile(u"tabrix-check.ini"_s,
        "[factory-outside-ranges]\nseverity=error\nreason=Ours must fit\n[number-twice]\nseverity=off\n"
        "reason=On purpose\n[number-order]\nseverity=warning\nreason=Read in order\n");
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, faultyDocument())));
    ASSERT_TRUE(isUpToDate());
    EXPECT_TRUE(described(ParameterColumn::FactorySetting, 1).startsWith(u"Error: "_s));
    EXPECT_EQ(described(ParameterColumn::Number, 3), QString());
    grid().setText(ParameterColumn::Number, 3, u"0"_s);
    EXPECT_TRUE(described(ParameterColumn::Number, 3).startsWith(u"Warning: "_s));
    writeFile(u"tabrix-check.ini"_s, "[number-order]\nseverity=off\nreason=Any order\n");
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    ASSERT_TRUE(isUpToDate());
    EXPECT_EQ(described(ParameterColumn::Number, 3), QString());
    writeFile(u"tabrix-check.ini"_s, "[number-order]\nseverity=error\nreason=Read in order\n");
    clickTool(u"ssrbnSave"_s); // which leaves the name alone
    ASSERT_TRUE(isUpToDate());
    EXPECT_TRUE(described(ParameterColumn::Number, 3).startsWith(u"Error: "_s));
}

TEST_F(FindingMarksTest, tellOfRulesThatCannotBeUsed)
{
    start();
    writeFile(u"tabrix-check.ini"_s, "[no-such-check]\nseverity=off\nreason=x\n");
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, faultyDocument())));
    press(Qt::Key_F8);
    EXPECT_TRUE(notice().accessibleName().startsWith(outsideAs(u"1 of 4. "_s)));
    EXPECT_TRUE(notice().accessibleName().contains(u"no-such-check"_s)) << notice().accessibleName().toStdString();
}
