#include "grid/SpreadHistory.h"

#include "grid/SpreadGrid.h"
#include "grid/UndoStep.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype textBytes = 20000;

/// A grid whose history is kept. Cell (c, r) holds "c.r".
class SpreadHistoryTest : public testing::Test
{
protected:
    void SetUp() override { fill(10); }

    void fill(int rows)
    {
        m_grid.setColumnCount(3);
        m_grid.setRowCount(rows);
        for (int row = 1; row <= rows; ++row) {
            for (int column = 1; column <= 3; ++column) {
                m_grid.setText(column, row, u"%1.%2"_s.arg(column).arg(row));
            }
        }
        history().start();
    }
    SpreadHistory &history() { return m_grid.history(); }
    void write(int column, int row, const QString &text)
    {
        const UndoStep step(history());
        m_grid.setText(column, row, text);
    }
    /// A step that drives a text of textBytes out of the grid, after the first call.
    void writeLongText(int number) { write(1, 1, QString(textBytes / 2 - 2, u'x') + QString::number(number)); }
    int undoAll()
    {
        int steps = 0;
        while (history().undo()) {
            ++steps;
        }
        return steps;
    }

    SpreadGrid m_grid;
};

} // namespace

TEST_F(SpreadHistoryTest, dropsTheOldestStepsBeyondItsBytes)
{
    history().setMaxBytes(5 * textBytes);
    for (int number = 10; number < 50; ++number) {
        writeLongText(number);
        EXPECT_LE(history().size(), 5 * textBytes);
    }
    EXPECT_EQ(undoAll(), 4);
    EXPECT_TRUE(m_grid.text(1, 1).endsWith(u"45"_s));
    EXPECT_FALSE(history().undo());
    EXPECT_TRUE(history().redo());
    EXPECT_TRUE(m_grid.text(1, 1).endsWith(u"46"_s));
}

TEST_F(SpreadHistoryTest, keepsTheLastStepHoweverGreat)
{
    history().setMaxBytes(textBytes / 2);
    writeLongText(10);
    writeLongText(11);
    EXPECT_GT(history().size(), textBytes);
    EXPECT_EQ(undoAll(), 1);
    EXPECT_TRUE(m_grid.text(1, 1).endsWith(u"10"_s));
}

TEST_F(SpreadHistoryTest, countsTheBytesOfStepsThatAreGone)
{
    writeLongText(10);
    writeLongText(11);
    const qsizetype before = history().size();
    writeLongText(12);
    writeLongText(13);
    history().undo();
    history().undo();
    writeLongText(12);
    history().undo();
    write(2, 2, u"y"_s);
    EXPECT_LT(history().size(), before + 1000);
    m_grid.setText(1, 1, QString()); // by the program
    EXPECT_EQ(history().size(), 0);
}

TEST_F(SpreadHistoryTest, countsRowsThatWereOnlyMovedAsPointers)
{
    constexpr int rows = 2000;
    fill(rows);
    for (int row = 1; row <= rows; ++row) {
        m_grid.setText(2, row, QString(200, u'x'));
    }
    {
        const UndoStep step(history());
        m_grid.setRowCount(rows + 1);
        m_grid.moveRowTexts(1, rows, 2);
        m_grid.setText(2, 1, u"new"_s);
    }
    EXPECT_LT(history().size(), rows * qsizetype(sizeof(void *)) + 2000);
    {
        const UndoStep step(history());
        m_grid.moveRowTexts(501, rows + 1, 1);
        m_grid.setRowCount(rows - 499);
    }
    EXPECT_GT(history().size(), 500 * 400);
    EXPECT_LT(history().size(), 800 * 400);
    EXPECT_EQ(undoAll(), 2);
    EXPECT_EQ(m_grid.text(1, rows), u"1.%1"_s.arg(rows));
}

TEST_F(SpreadHistoryTest, knowsNoCleanStateBeforeItIsTold)
{
    EXPECT_FALSE(history().isClean());
    history().setClean();
    EXPECT_TRUE(history().isClean());
    write(1, 1, u"x"_s);
    EXPECT_FALSE(history().isClean());
    history().undo();
    EXPECT_TRUE(history().isClean());
    history().forgetClean();
    EXPECT_FALSE(history().isClean());
}

TEST_F(SpreadHistoryTest, losesTheCleanStateWithTheStepsThatLedToIt)
{
    history().setMaxBytes(3 * textBytes);
    history().setClean();
    writeLongText(10);
    writeLongText(11);
    writeLongText(12);
    history().setClean(); // after three steps, of which the last two stay
    writeLongText(13);
    writeLongText(14);
    EXPECT_EQ(undoAll(), 2);
    EXPECT_TRUE(history().isClean());
    for (int number = 20; number < 30; ++number) {
        writeLongText(number);
    }
    undoAll();
    EXPECT_FALSE(history().isClean());
}

TEST_F(SpreadHistoryTest, losesTheCleanStateWhenAnotherWayIsTaken)
{
    write(1, 1, u"x"_s);
    history().setClean();
    history().undo();
    write(1, 1, u"y"_s);
    EXPECT_FALSE(history().isClean());
    EXPECT_FALSE(history().redo());
}

TEST_F(SpreadHistoryTest, makesNoStepWithoutADifference)
{
    write(1, 1, u"1.1"_s);
    {
        const UndoStep step(history());
        m_grid.setTextColour({1, 1, 3, 3}, QColor());
        m_grid.setRowCount(10);
    }
    EXPECT_FALSE(history().undo());
    {
        const UndoStep step(history());
        m_grid.setTextColour({1, 1, 3, 3}, Qt::red);
    }
    EXPECT_TRUE(history().undo());
    EXPECT_FALSE(m_grid.textColour(2, 2).isValid());
    history().redo();
    EXPECT_EQ(m_grid.textColour(2, 2), QColor(Qt::red));
}

TEST_F(SpreadHistoryTest, joinsStepsWithinAStep)
{
    {
        const UndoStep step(history());
        write(1, 1, u"x"_s);
        write(1, 2, u"y"_s);
        EXPECT_FALSE(history().undo()); // not in the middle of one
    }
    EXPECT_EQ(undoAll(), 1);
    EXPECT_EQ(m_grid.blockText({1, 1, 1, 2}), u"1.1\r\n1.2"_s);
}

TEST_F(SpreadHistoryTest, forgetsAllWhenTheProgramChangesTheGridOutsideAStep)
{
    write(1, 1, u"x"_s);
    history().setClean();
    m_grid.setText(2, 2, u"y"_s);
    EXPECT_FALSE(history().undo());
    EXPECT_FALSE(history().isClean());
    write(1, 1, u"z"_s);
    m_grid.setRowCount(11);
    EXPECT_FALSE(history().undo());
}

TEST_F(SpreadHistoryTest, keepsNothingBeforeItIsStarted)
{
    SpreadGrid grid;
    grid.setColumnCount(1);
    grid.setRowCount(1);
    {
        const UndoStep step(grid.history());
        grid.setText(1, 1, u"x"_s);
    }
    EXPECT_FALSE(grid.history().undo());
    EXPECT_EQ(grid.history().size(), 0);
    EXPECT_EQ(grid.text(1, 1), u"x"_s);
}

TEST_F(SpreadHistoryTest, bringsBackTheOnlyRows)
{
    m_grid.setTextColour({2, 10, 2, 10}, Qt::red);
    {
        const UndoStep step(history());
        m_grid.setRowCount(0);
    }
    EXPECT_EQ(m_grid.activeRow(), 0);
    history().undo();
    EXPECT_EQ(m_grid.text(3, 10), u"3.10"_s);
    EXPECT_EQ(m_grid.textColour(2, 10), QColor(Qt::red));
    EXPECT_FALSE(m_grid.textColour(2, 9).isValid());
    history().redo();
    EXPECT_EQ(m_grid.rowCount(), 0);
    history().undo();
    EXPECT_EQ(m_grid.textColour(2, 10), QColor(Qt::red));
}
