// Ctrl+D, Ctrl+R, Ctrl+Enter, Ctrl+Shift+D and Space over the selected cells of the editor window.

#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/UndoSupport.h"
#include "tests/support/GrowthOfWork.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
constexpr GridBlock nothing{0, 0, 0, 0};

struct Keys
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};
constexpr Keys down{Qt::Key_D, ctrl};
constexpr Keys right{Qt::Key_R, ctrl};
constexpr Keys everywhere{Qt::Key_Return, ctrl};
constexpr Keys series{Qt::Key_D, ctrlShift};
constexpr Keys space{Qt::Key_Space, Qt::NoModifier};

} // namespace

class FillTest : public UndoTest
{
protected:
    /// Puts a block text into the grid, as if its file held it.
    void put(int column, int row, const QString &text)
    {
        if (!text.isNull()) {
            grid().setBlockText({column, row, grid().columnCount(), grid().rowCount()}, text);
            editor().document().noteLoaded();
        }
    }

    void press(Keys keys) { pressKey(grid(), keys.key, keys.modifiers); }

    void type(const QString &text)
    {
        for (const QChar letter : text) {
            QTest::keyClicks(QApplication::focusWidget(), letter);
        }
    }

    void typeEverywhere(const QString &text)
    {
        type(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, ctrl);
    }

    /// The texts of a grid in which the block held that block text.
    QString textsWith(const GridBlock &block, const QString &text)
    {
        QStringList rows = grid().blockText({1, 1, 13, grid().rowCount()}).split(u"\r\n"_s);
        const QStringList changed = text.split(u"\r\n"_s);
        for (int row = block.row1; row <= block.row2; ++row) {
            QStringList cells = rows.at(row - 1).split(u'\t');
            for (int column = block.column1; column <= block.column2; ++column) {
                cells[column - 1] = changed.at(row - block.row1).split(u'\t').at(column - block.column1);
            }
            rows[row - 1] = cells.join(u'\t');
        }
        return rows.join(u"\r\n"_s);
    }

    /// A field of a row of the saved file; both count from 1.
    QByteArray savedField(int row, int field)
    {
        save();
        const QByteArray rows = readFile(path(u"a.inv"_s)).split('[').last();
        return rows.split('\n').value(row).trimmed().split(',').value(field - 1);
    }
};

struct FillCase
{
    const char *name;
    GridBlock selection;
    Keys keys;
    GridBlock target;
    QString filled;
    QString given = {}; ///< a block text, from the selection's top left cell on
};

void PrintTo(const FillCase &test, std::ostream *out)
{
    *out << test.name;
}

class Filling : public FillTest, public testing::WithParamInterface<FillCase>
{
};

TEST_P(Filling, changesItsCellsInOneStep)
{
    const FillCase &test = GetParam();
    const ModalScript noMessage;
    open(12);
    put(std::max(test.selection.column1, 1), test.selection.row1, test.given);
    grid().selectBlock(test.selection);
    const Shown before = shown();
    const QString expected = test.target == nothing ? before.texts : textsWith(test.target, test.filled);
    press(test.keys);
    const Shown after = shown();
    EXPECT_EQ(after.texts, expected);
    EXPECT_EQ(after.changed, expected != before.texts);
    EXPECT_EQ(grid().selectedBlock(), test.selection);
    for (int row = 1; row <= 12; ++row) {
        for (int column = 1; column <= 13; ++column) {
            const bool isOther = before.texts.split(u"\r\n"_s)[row - 1].split(u'\t')[column - 1]
                != expected.split(u"\r\n"_s)[row - 1].split(u'\t')[column - 1];
            EXPECT_EQ(grid().textColour(column, row) == QColor(128, 0, 0), isOther) << column << ' ' << row;
        }
    }
    selectCell(1, 12);
    undo();
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(grid().selectedBlock(), test.target == nothing ? (GridBlock{1, 12, 1, 12}) : test.selection);
    selectCell(1, 12);
    redo();
    EXPECT_EQ(shown(), after);
    EXPECT_EQ(grid().selectedBlock(), test.target == nothing ? (GridBlock{1, 12, 1, 12}) : test.selection);
}

INSTANTIATE_TEST_SUITE_P(Down, Filling,
    testing::ValuesIn(std::vector<FillCase>{
        {"column", {10, 2, 10, 5}, down, {10, 3, 10, 5}, u"1002\r\n1002\r\n1002"_s},
        {"block", {1, 2, 2, 4}, down, {1, 3, 2, 4}, u"2\tParameter 2\r\n2\tParameter 2"_s},
        {"increments that are no choice", {5, 1, 6, 2}, down, {5, 2, 6, 2}, u"1\tNo"_s, u"1\tNo"_s},
        {"boxes", {4, 1, 4, 3}, down, {4, 2, 4, 3}, u"0\r\n0"_s, u"0"_s},
        {"empty text", {2, 1, 2, 2}, down, {2, 2, 2, 2}, u""_s, u"\t"_s},
        {"whole rows", {-1, 2, 13, 3}, down, {1, 3, 13, 3},
            u"2\tParameter 2\t0-30\t1\t0.1\tNo\tNo\t%\t2\t1002\t0003\t1\t79=1"_s},
        {"one row from above", {2, 5, 3, 5}, down, {2, 5, 3, 5}, u"Parameter 4\t0-30"_s},
        {"the first row", {2, 1, 3, 1}, down, nothing, {}},
        {"equal texts", {5, 1, 8, 12}, down, nothing, {}},
    }));

INSTANTIATE_TEST_SUITE_P(Right, Filling,
    testing::ValuesIn(std::vector<FillCase>{
        {"block", {5, 2, 7, 3}, right, {6, 2, 7, 3}, u"0.1\t0.1\r\n0.1\t0.1"_s},
        {"a number into boxes", {3, 2, 4, 2}, right, {4, 2, 4, 2}, u"1"_s, u"7\t0"_s},
        {"numbers into boxes", {3, 2, 4, 4}, right, {4, 2, 4, 4}, u"1\r\n0\r\n1"_s, u"7\t0\r\n0\t1\r\n9\t0"_s},
        {"rows of their own", {9, 2, 10, 3}, right, {10, 2, 10, 3}, u"2\r\n3"_s},
        {"one column from the left", {6, 2, 6, 3}, right, {6, 2, 6, 3}, u"0.1\r\n0.1"_s},
        {"the first column", {1, 2, 1, 3}, right, nothing, {}},
        {"whole rows", {-1, 1, 13, 2}, right, nothing, {}},
    }));

INSTANTIATE_TEST_SUITE_P(Series, Filling,
    testing::ValuesIn(std::vector<FillCase>{
        {"numbers", {1, 1, 1, 4}, series, {1, 3, 1, 4}, u"30\r\n40"_s, u"10\r\n20\r\n\r\n"_s},
        {"filled cells", {1, 1, 1, 4}, series, {1, 3, 1, 4}, u"30\r\n40"_s, u"10\r\n20"_s},
        {"names", {2, 1, 2, 3}, series, {2, 2, 2, 3}, u"Speed 10\r\nSpeed 11"_s, u"Speed 9\r\n\r\n"_s},
        {"codes", {11, 1, 11, 3}, series, {11, 2, 11, 3}, u"000A\r\n000B"_s, u"0009\r\n0000\r\n0000"_s},
        {"each column by itself", {9, 1, 10, 3}, series, {9, 3, 10, 3}, u"0.3\t7"_s, u"0.1\t5\r\n0.2\t6"_s},
        {"a range", {3, 1, 3, 3}, series, {3, 2, 3, 3}, u"0-9\r\n0-9"_s, u"0-9\r\n\r\n"_s},
        {"increments", {5, 1, 5, 4}, series, {5, 3, 5, 4}, u"1\r\n0.01"_s, u"1\r\n0.01\r\nNo\r\nNo"_s},
        {"one row from those above", {1, 12, 1, 12}, series, nothing, {}},
        {"one row with another number", {1, 12, 1, 12}, series, {1, 12, 1, 12}, u"12"_s, u"500"_s},
        {"one row from the one above", {2, 3, 2, 3}, series, {2, 3, 2, 3}, u"Parameter 3"_s, u"x"_s},
        {"the first row", {1, 1, 1, 1}, series, nothing, {}},
        {"nothing above", {1, 1, 1, 3}, series, nothing, {}, u"\r\n5"_s},
    }));

INSTANTIATE_TEST_SUITE_P(Boxes, Filling,
    testing::ValuesIn(std::vector<FillCase>{
        {"all ticked", {4, 2, 4, 5}, space, {4, 2, 4, 5}, u"0\r\n0\r\n0\r\n0"_s},
        {"none ticked", {4, 2, 4, 3}, space, {4, 2, 4, 3}, u"1\r\n1"_s, u"0\r\n0"_s},
        {"one ticked", {4, 2, 4, 4}, space, {4, 3, 4, 4}, u"1\r\n1"_s, u"1\r\n0\r\n0"_s},
        {"whole rows", {-1, 2, 13, 3}, space, {4, 2, 4, 3}, u"0\r\n0"_s},
        {"with other cells", {3, 2, 5, 3}, space, {4, 2, 4, 3}, u"0\r\n0"_s},
    }));

// What is typed, what is copied

TEST_F(FillTest, putsWhatIsTypedIntoEverySelectedCell)
{
    open(12);
    grid().selectBlock({2, 3, 3, 5});
    const Shown before = shown();
    const QString expected = textsWith({2, 3, 3, 5}, u"77\t77\r\n77\t77\r\n77\t77"_s);
    typeEverywhere(u"77"_s);
    EXPECT_EQ(shown().texts, expected);
    EXPECT_TRUE(grid().hasFocus());
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{2, 3, 3, 5}));
    EXPECT_EQ(savedField(5, 4), "77");
    undo();
    EXPECT_EQ(shown().texts, before.texts);
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{2, 3, 3, 5}));
}

TEST_F(FillTest, putsWhatStandsInAnOpenEditorIntoEverySelectedCell)
{
    open(12);
    grid().selectBlock({2, 3, 2, 4});
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(grid().text(2, 3), u"Parameter 3"_s);
    EXPECT_EQ(grid().text(2, 4), u"Parameter 3"_s);
}

TEST_F(FillTest, ofOneCellKeepsWhatIsTypedWhateverWasCopied)
{
    open(12);
    copy({2, 1, 2, 1});
    selectCell(2, 3);
    typeEverywhere(u"typed"_s);
    EXPECT_EQ(grid().text(2, 3), u"typed"_s);
    EXPECT_EQ(grid().activeRow(), 3);
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(FillTest, putsTheOneCellThatWasCopiedIntoEverySelectedCell)
{
    open(12);
    copy({10, 7, 10, 7});
    grid().selectBlock({10, 8, 11, 9});
    const QString expected = textsWith({10, 8, 11, 9}, u"1007\t1007\r\n1007\t1007"_s);
    press(everywhere);
    EXPECT_EQ(shown().texts, expected);
    EXPECT_EQ(savedField(9, 3), "1007");
}

TEST_F(FillTest, fillsInNothingElseThatWasCopied)
{
    open(12);
    const ModalScript noMessage;
    const Shown before = shown();
    copy({2, 1, 2, 2});
    grid().selectBlock({2, 8, 2, 9});
    press(everywhere);
    copy({-1, 1, 13, 1});
    grid().selectBlock({2, 8, 2, 9});
    press(everywhere);
    QApplication::clipboard()->setText(u"of another program"_s);
    press(everywhere);
    EXPECT_EQ(shown(), before);
}

TEST_F(FillTest, takesWhatIsBeingTypedBeforeItFillsDown)
{
    open(12);
    grid().selectBlock({2, 3, 2, 5});
    type(u"new"_s);
    QTest::keyClick(QApplication::focusWidget(), down.key, down.modifiers);
    EXPECT_EQ(grid().text(2, 3), u"new"_s);
    EXPECT_EQ(grid().text(2, 5), u"new"_s);
}

// In the file

TEST_F(FillTest, isSaved)
{
    open(12);
    grid().selectBlock({2, 1, 2, 3});
    press(down);
    EXPECT_EQ(savedField(3, 4), "Parameter 1");
    grid().selectBlock({5, 4, 7, 4});
    press(right);
    EXPECT_EQ(savedField(4, 8), "0.1");
    grid().selectBlock({4, 1, 4, 12});
    press(space);
    EXPECT_EQ(savedField(12, 11), "0");
    put(11, 1, u"000F\r\n0000"_s);
    grid().selectBlock({11, 1, 11, 2});
    press(series);
    EXPECT_EQ(savedField(2, 10), "16");
    EXPECT_FALSE(isChanged());
    undo();
    EXPECT_TRUE(isChanged());
    redo();
    EXPECT_FALSE(isChanged());
}

// What does not fit

struct RefusedFill
{
    const char *name;
    GridBlock selection;
    Keys keys;
    QString given; ///< a block text, from the selection's top left cell on
    QString message;
};

void PrintTo(const RefusedFill &test, std::ostream *out)
{
    *out << test.name;
}

class RefusedFilling : public FillTest, public testing::WithParamInterface<RefusedFill>
{
};

TEST_P(RefusedFilling, tellsWhyAndChangesNothing)
{
    const RefusedFill &test = GetParam();
    open(12);
    put(std::max(test.selection.column1, 1), test.selection.row1, test.given);
    grid().selectBlock(test.selection);
    const Shown before = shown();
    ModalScript script;
    script.thenMessage(test.message, u"OK"_s);
    press(test.keys);
    EXPECT_EQ(script.asked(), 1);
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(grid().selectedBlock(), test.selection);
    undo();
    EXPECT_EQ(shown(), before);
}

INSTANTIATE_TEST_SUITE_P(Fills, RefusedFilling,
    testing::ValuesIn(std::vector<RefusedFill>{
        {"beyond the largest number", {1, 1, 1, 4}, series, u"980\r\n990"_s,
            u"Row 4, \"Pr\": only whole numbers from 0 to 1000 fit here. Nothing was filled."_s},
        {"below the smallest number", {1, 1, 1, 3}, series, u"1\r\n0\r\n7"_s,
            u"Row 3, \"Pr\": only whole numbers from 0 to 1000 fit here. Nothing was filled."_s},
        {"a text into numbers", {9, 2, 10, 3}, right, u"x\t1\r\n1\t1"_s,
            u"Row 2, \"Help ID\": only whole numbers from 0 to 32767 fit here. Nothing was filled."_s},
        {"a text into boxes", {3, 2, 4, 2}, right, u"0-5"_s,
            u"Row 2, \"Range Check\": only one of these fits here: 0, 1. Nothing was filled."_s},
        {"a step that is no choice", {5, 2, 5, 3}, down, u"0.5"_s,
            u"Row 3, \"Min1\": only one of these fits here: 1, 0.1, 0.01, 0.001, No. Nothing was filled."_s},
        {"a text that is too long", {2, 2, 3, 2}, right, QString(101, u'x'),
            u"Row 2, \"Setting Range\": no more than 100 characters fit here. Nothing was filled."_s},
        {"a line break", {8, 1, 9, 2}, down, u"a\u2028b"_s,
            u"Row 2, \"Unit\": no text with a line break fits here. Nothing was filled."_s},
        {"a code of five digits", {11, 1, 11, 3}, series, u"FFFE\r\n0000\r\n0000"_s,
            u"Row 3, \"Func. Code\": the series ends before this cell. Nothing was filled."_s},
    }));

TEST_F(FillTest, whatDoesNotFitEverywhereStaysInTheEditor)
{
    open(12);
    grid().selectBlock({2, 3, 4, 5});
    const Shown before = shown();
    {
        ModalScript script;
        script.thenMessage(
            u"Row 3, \"Range Check\": only one of these fits here: 0, 1. Nothing was filled."_s, u"OK"_s);
        typeEverywhere(u"typed"_s);
    }
    auto &cell = ::control<QLineEdit>(grid(), u"cellEditor"_s);
    EXPECT_EQ(cell.text(), u"typed"_s);
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(frame().focusWidget(), &cell);
    QTest::keyClick(&cell, Qt::Key_Escape);
    EXPECT_EQ(shown(), before);
}

// Hidden columns, sizes, nothing at all

TEST_F(FillTest, leavesHiddenColumnsAloneUnlessWholeRowsAreSelected)
{
    open(12);
    grid().setColumnShown(3, false);
    grid().setColumnShown(4, false);
    put(3, 1, u"1-9\t0"_s);
    grid().selectBlock({2, 1, 5, 2});
    press(down);
    EXPECT_EQ(grid().blockText({2, 2, 5, 2}), u"Parameter 1\t0-30\t1\t0.1"_s);
    press(space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(grid().text(4, 2), u"1"_s);
    put(2, 2, u"1"_s);
    selectCell(5, 2);
    press(right);
    EXPECT_EQ(grid().blockText({2, 2, 5, 2}), u"1\t0-30\t1\t1"_s);
    grid().selectBlock({-1, 1, 13, 2});
    press(down);
    EXPECT_EQ(grid().blockText({2, 2, 5, 2}), u"Parameter 1\t1-9\t0\t0.1"_s);
}

TEST_F(FillTest, ofNoRowsDoesNothing)
{
    open(0);
    for (const Keys keys : {down, right, everywhere, series, space}) {
        press(keys);
    }
    EXPECT_EQ(grid().rowCount(), 0);
    EXPECT_FALSE(isChanged());
}

TEST_F(FillTest, ofAWholeColumnTakesWorkInProportion)
{
    constexpr int few = 2000;
    constexpr int growth = 8;
    open(few * growth);
    const auto fill = [this](int rows) {
        grid().selectBlock({1, 1, 13, rows});
        grid().setText(2, 1, grid().text(2, 1) + u'x');
        press(down);
        EXPECT_EQ(grid().text(2, rows), grid().text(2, 1));
    };
    EXPECT_LT(growthOfWork(fill, few, growth), 3 * growth);
}
