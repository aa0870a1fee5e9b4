// Where finding leads, how many matches there are, and which of them has been reached.

#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/FindFixture.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

class FindPlace : public FindFixture
{
protected:
    void SetUp() override
    {
        start(writeFile(u"a.inv"_s, document(200)));
        grid().setText(2, 20, u"needle"_s);
        grid().setText(3, 20, u"needles"_s);
        grid().setText(2, 120, u"needle case"_s);
        grid().setActiveCell(2, 50);
        grid().setFocus();
    }

    /// The count as a screen reader tells it.
    QString count() { return field().accessibleDescription(); }
    /// The count's end of the field as it is painted.
    QImage countPicture()
    {
        const int width = field().fontMetrics().horizontalAdvance(u"100/100"_s);
        return field().grab(field().rect().adjusted(field().width() - width, 3, -3, -3)).toImage();
    }
};

TEST_F(FindPlace, countsTheMatchesAndTellsWhichOneIsReached)
{
    find(u"needle"_s);
    EXPECT_EQ(active(), Cell(2, 120));
    EXPECT_EQ(count(), u"3/3"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(count(), u"1/3"_s);
    press(Qt::Key_F3);
    EXPECT_EQ(active(), Cell(3, 20));
    EXPECT_EQ(count(), u"2/3"_s);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(count(), u"1/3"_s);
    type(u"s"_s);
    EXPECT_EQ(count(), u"1/1"_s);
    type(u"x"_s);
    EXPECT_EQ(count(), u"0/0"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(count(), QString());
}

TEST_F(FindPlace, showsTheCountInTheField)
{
    find(u"parameter 19"_s);
    EXPECT_EQ(count(), u"2/11"_s);
    const QImage first = countPicture();
    press(Qt::Key_Return);
    EXPECT_EQ(count(), u"3/11"_s);
    EXPECT_NE(countPicture(), first);
    EXPECT_EQ(field().text(), u"parameter 19"_s);
    type(QString(40, u'w')); // and never beneath what is typed
    field().grab(); // scrolls to the caret
    const QRect caret = field().inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_LT(caret.right(), field().width() - field().fontMetrics().horizontalAdvance(count()));
}

TEST_F(FindPlace, countsAgainWhenTheTableOrTheActiveCellHasChanged)
{
    find(u"needle"_s);
    typeInto(2, 121, u"a needle"_s); // Enter leads below it
    EXPECT_TRUE(QTest::qWaitFor([this] { return count() == u"0/4"_s; }, patience)) << count().toStdString();
    press(Qt::Key_Up);
    EXPECT_TRUE(QTest::qWaitFor([this] { return count() == u"4/4"_s; }, patience)) << count().toStdString();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return count() == u"0/3"_s; }, patience)) << count().toStdString();
}

TEST_F(FindPlace, showsTheMatchThatIsReachedUnlikeTheOthers)
{
    grid().setText(2, 119, u"needle"_s);
    for (const bool dark : {false, true}) {
        QPalette palette = frame().palette();
        palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(255, 255, 255));
        palette.setColor(QPalette::Text, dark ? QColor(230, 230, 230) : QColor(0, 0, 0));
        frame().setPalette(palette);
        grid().setActiveCell(2, 50);
        find(u"needle"_s);
        ASSERT_EQ(active(), Cell(2, 119));
        press(Qt::Key_Return);
        const QColor reached = background(2, 120);
        const QColor other = background(2, 119);
        const QColor none = background(2, 118);
        EXPECT_NE(reached, other);
        EXPECT_NE(reached, none);
        EXPECT_NE(other, none);
        press(Qt::Key_Return, Qt::ShiftModifier);
        EXPECT_EQ(background(2, 120), other);
        EXPECT_EQ(background(2, 119), reached);
        press(Qt::Key_Escape);
    }
}

TEST_F(FindPlace, staysWhereTheSearchBeganWhenNothingIsFound)
{
    grid().setTopRow(45);
    find(u"need"_s);
    EXPECT_EQ(active(), Cell(2, 120));
    type(u"q"_s);
    EXPECT_EQ(active(), Cell(2, 50));
    EXPECT_EQ(grid().topRow(), 45);
    press(Qt::Key_Backspace);
    EXPECT_EQ(active(), Cell(2, 120));
    type(u"q"_s);
    press(Qt::Key_Return); // there is none to go on to
    EXPECT_EQ(active(), Cell(2, 50));
    press(Qt::Key_Escape);
    EXPECT_EQ(active(), Cell(2, 50));
    EXPECT_EQ(grid().topRow(), 45);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
}

TEST_F(FindPlace, goesBackToASelectedBlockToo)
{
    grid().selectBlock({3, 50, 5, 60});
    find(u"needle"_s);
    EXPECT_EQ(active(), Cell(2, 120));
    type(u"q"_s);
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{3, 50, 5, 60}));
}

TEST_F(FindPlace, beginsAnewAtTheMatchFromWhichTheUserWentOn)
{
    find(u"needle"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    ASSERT_EQ(active(), Cell(3, 20));
    type(u"q"_s);
    EXPECT_EQ(active(), Cell(3, 20));
}

TEST_F(FindPlace, returnsOnEscapeToWhereTheSearchBegan)
{
    grid().setTopRow(45);
    find(u"needle"_s);
    ASSERT_EQ(active(), Cell(2, 120));
    press(Qt::Key_Escape);
    EXPECT_EQ(active(), Cell(2, 50));
    EXPECT_EQ(grid().topRow(), 45);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
}

TEST_F(FindPlace, staysOnEscapeWhereTheUserHasGoneOn)
{
    find(u"needle case"_s);
    press(Qt::Key_Return); // to the only match
    press(Qt::Key_Escape);
    EXPECT_EQ(active(), Cell(2, 120));
    find(u"needle"_s);
    grid().setActiveCell(2, 118);
    press(Qt::Key_Escape);
    EXPECT_EQ(active(), Cell(2, 118));
}

TEST_F(FindPlace, staysAtTheMatchOnTab)
{
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        grid().setActiveCell(2, 50);
        find(u"needle"_s);
        press(key);
        EXPECT_EQ(active(), Cell(2, 120));
        EXPECT_EQ(QApplication::focusWidget(), &grid());
        EXPECT_FALSE(field().isVisible());
    }
}
