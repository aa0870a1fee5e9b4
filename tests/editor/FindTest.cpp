#include "app/services/Settings.h"
#include "desktop/Contrast.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/FindFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

class Find : public FindFixture
{
protected:
    void SetUp() override
    {
        ListVisualState.fill(false);
        start(writeFile(u"a.inv"_s, document(200)));
        ListVisualState.fill(false);
        applyVisibleColumns(grid());
        grid().setActiveCell(1, 1);
    }

    /// The darkest or lightest pixel of a cell's text, whichever differs more from its background.
    QColor ink(int column, int row)
    {
        const QRect cell = grid().visualRect(grid().model()->index(row - 1, column - 1)).adjusted(3, 3, -4, -4);
        const QImage picture = grid().viewport()->grab(cell).toImage();
        const int base = background(column, row).lightness();
        QColor farthest = background(column, row);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                farthest =
                    std::abs(pixel.lightness() - base) > std::abs(farthest.lightness() - base) ? pixel : farthest;
            }
        }
        return farthest;
    }
};

TEST_F(Find, opensASmallFieldWithoutAnyTextOverTheGridsCorner)
{
    EXPECT_FALSE(field().isVisible());
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(field().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &field());
    EXPECT_TRUE(field().text().isEmpty());
    EXPECT_TRUE(field().placeholderText().isEmpty());
    EXPECT_TRUE(field().toolTip().isEmpty());
    EXPECT_EQ(field().accessibleName(), editor().windowTitle());
    EXPECT_EQ(field().y(), 0);
    EXPECT_EQ(
        field().geometry().right(), grid().viewport()->mapTo(&editor(), grid().viewport()->rect().topRight()).x());
    EXPECT_LT(field().width(), editor().width() / 2);
    EXPECT_TRUE(field().findChildren<QLabel *>().isEmpty());
}

TEST_F(Find, staysInItsCornerWhileTheWindowIsSized)
{
    press(Qt::Key_F, Qt::ControlModifier);
    auto *window = editor().parentWidget();
    for (const int width : {500, 100, 700}) {
        window->resize(width, 300);
        QApplication::processEvents();
        EXPECT_EQ(
            field().geometry().right(), grid().viewport()->mapTo(&editor(), grid().viewport()->rect().topRight()).x());
        EXPECT_LE(field().width(), grid().viewport()->width());
    }
}

TEST_F(Find, goesToTheFirstMatchAsOneTypes)
{
    find(u"p"_s);
    EXPECT_EQ(active(), Cell(2, 1));
    type(u"arameter 15"_s);
    EXPECT_EQ(active(), Cell(2, 15));
    type(u"7"_s);
    EXPECT_EQ(active(), Cell(2, 157));
    EXPECT_EQ(QApplication::focusWidget(), &field());
    EXPECT_LE(grid().topRow(), 157);
    EXPECT_GE(grid().bottomRow(), 157);
}

TEST_F(Find, beginsAtTheActiveCell)
{
    grid().setActiveCell(2, 120);
    find(u"Parameter 1"_s);
    EXPECT_EQ(active(), Cell(2, 120));
    press(Qt::Key_Escape);
    grid().setActiveCell(3, 120);
    find(u"Parameter 1"_s);
    EXPECT_EQ(active(), Cell(2, 121));
}

TEST_F(Find, goesOnAtTheTopWhenThereIsNoMatchBelow)
{
    grid().setActiveCell(4, 150);
    find(u"parameter 42"_s);
    EXPECT_EQ(active(), Cell(2, 42));
}

TEST_F(Find, doesNotMindUpperAndLowerCase)
{
    grid().setText(2, 77, u"Motor ÄΩ"_s);
    find(u"mOTOR "_s);
    field().insert(u"äω"_s);
    EXPECT_EQ(active(), Cell(2, 77));
}

TEST_F(Find, showsThePrNumberOfTheMatch)
{
    find(u"parameter 42"_s);
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), u"42"_s);
}

TEST_F(Find, goesToTheNextAndThePreviousMatchAroundTheEnd)
{
    grid().setText(2, 10, u"needle"_s);
    grid().setText(3, 10, u"a needle"_s);
    grid().setText(13, 190, u"needles"_s);
    find(u"needle"_s);
    const Cell cells[] = {{2, 10}, {3, 10}, {13, 190}};
    EXPECT_EQ(active(), cells[0]);
    for (const auto &[key, modifiers] : {std::pair(Qt::Key_F3, Qt::NoModifier),
             std::pair(Qt::Key_Return, Qt::NoModifier), std::pair(Qt::Key_Enter, Qt::KeypadModifier)}) {
        for (const int at : {1, 2, 0}) {
            press(key, modifiers);
            EXPECT_EQ(active(), cells[at]);
        }
    }
    for (const Qt::Key key : {Qt::Key_F3, Qt::Key_Return}) {
        for (const int at : {2, 1, 0}) {
            press(key, Qt::ShiftModifier);
            EXPECT_EQ(active(), cells[at]);
        }
    }
    EXPECT_EQ(QApplication::focusWidget(), &field());
}

TEST_F(Find, staysOnTheOnlyMatch)
{
    find(u"parameter 42"_s);
    press(Qt::Key_F3);
    EXPECT_EQ(active(), Cell(2, 42));
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(active(), Cell(2, 42));
}

TEST_F(Find, goesOnWithTheLastTextWhileTheFieldIsClosed)
{
    find(u"parameter 4"_s);
    press(Qt::Key_Tab);
    EXPECT_FALSE(field().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &grid());
    press(Qt::Key_F3);
    EXPECT_EQ(active(), Cell(2, 40));
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(active(), Cell(2, 4));
    EXPECT_FALSE(field().isVisible());
    EXPECT_EQ(background(2, 4), background(2, 5));
}

TEST_F(Find, offersTheLastTextToBeTypedOver)
{
    find(u"parameter 4"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(field().selectedText(), u"parameter 4"_s);
    type(u"parameter 9"_s);
    EXPECT_EQ(active(), Cell(2, 9));
}

TEST_F(Find, opensTheFieldForTheNextMatchOfNothing)
{
    press(Qt::Key_F3);
    EXPECT_EQ(QApplication::focusWidget(), &field());
}

TEST_F(Find, returnsToTheGridOnEscapeAndLeavesTheClipboardAlone)
{
    QApplication::clipboard()->setText(u"kept"_s);
    find(u"parameter 4"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::clipboard()->text(), u"kept"_s);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
    EXPECT_EQ(active(), Cell(1, 1));
}

TEST_F(Find, passesOverHiddenColumns)
{
    grid().setText(2, 10, u"needle"_s);
    grid().setText(8, 20, u"needle"_s);
    ListVisualState[1] = true;
    applyVisibleColumns(grid());
    find(u"needle"_s);
    EXPECT_EQ(active(), Cell(8, 20));
    press(Qt::Key_F3);
    EXPECT_EQ(active(), Cell(8, 20));
}

TEST_F(Find, passesOverCheckBoxesWhoseValueNobodySees)
{
    for (int row = 1; row <= grid().rowCount(); ++row) {
        grid().setRowTexts(row, std::array<QStringView, 13>{u"", u"", u"", u"1"});
    }
    grid().setText(9, 50, u"1"_s);
    find(u"1"_s);
    EXPECT_EQ(active(), Cell(9, 50));
    press(Qt::Key_F3);
    EXPECT_EQ(active(), Cell(9, 50));
}

TEST_F(Find, doesNotFindATextThatOnlyNeighboursMakeUp)
{
    grid().setText(2, 10, u"xy"_s);
    grid().setText(3, 10, u"zx"_s);
    find(u"y"_s);
    EXPECT_EQ(active(), Cell(2, 10));
    type(u"z"_s);
    EXPECT_EQ(active(), Cell(1, 1));
    EXPECT_NE(field().palette().color(QPalette::Base), grid().palette().color(QPalette::Base));
}

TEST_F(Find, showsByColourThatThereIsNoMatch)
{
    const Cell before = active();
    find(u"parameter"_s);
    const QColor plain = field().palette().color(QPalette::Base);
    type(u"q"_s);
    EXPECT_NE(field().palette().color(QPalette::Base), plain);
    EXPECT_EQ(active(), before);
    press(Qt::Key_Backspace);
    EXPECT_EQ(field().palette().color(QPalette::Base), plain);
    type(u"q"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(field().palette().color(QPalette::Base), plain);
}

TEST_F(Find, showsWhyNothingHappensWhenTheLastTextIsGone)
{
    find(u"parameter 42"_s);
    press(Qt::Key_Escape);
    typeInto(2, 42, u"other"_s);
    press(Qt::Key_F3);
    EXPECT_TRUE(field().isVisible());
    EXPECT_NE(field().palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
}

TEST_F(Find, marksEveryMatchInViewInLightAndDark)
{
    const QPalette light = frame().palette();
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    typeInto(2, 4, u"needle"_s); // in the colour of changed cells
    grid().setText(2, 6, u"needle"_s);
    for (const QPalette &palette : {light, dark}) {
        frame().setPalette(palette);
        grid().setActiveCell(1, 9);
        find(u"needle"_s);
        grid().setActiveCell(1, 9);
        const QColor plain = background(2, 5);
        EXPECT_EQ(plain, palette.color(QPalette::Base));
        for (const int row : {4, 6}) {
            EXPECT_NE(background(2, row), plain) << row;
            EXPECT_EQ(background(2, row), tinted(plain, Qt::yellow));
            EXPECT_GT(std::abs(ink(2, row).lightness() - background(2, row).lightness()), 60) << row;
        }
        type(u"q"_s);
        const QPalette colours = field().palette();
        EXPECT_NE(colours.color(QPalette::Base), plain);
        EXPECT_GT(std::abs(colours.color(QPalette::Text).lightness() - colours.color(QPalette::Base).lightness()), 60);
        press(Qt::Key_Escape);
        EXPECT_EQ(background(2, 4), plain);
    }
}

TEST_F(Find, takesWhatIsBeingTypedIntoACellBeforeItSearches)
{
    grid().setActiveCell(2, 3);
    press(Qt::Key_F2);
    type(u" needle"_s);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 3), u"Parameter 3 needle"_s);
    EXPECT_EQ(QApplication::focusWidget(), &field());
    type(u"needle"_s);
    EXPECT_EQ(active(), Cell(2, 3));
}

TEST_F(Find, opensFromTheJumpBoxAsWell)
{
    control<QLineEdit>(frame(), u"txtPr"_s).setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &field());
}

TEST_F(Find, searchesTheActiveDocument)
{
    find(u"parameter 7"_s);
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(30))));
    find(u"parameter 9"_s);
    EXPECT_EQ(active(), Cell(2, 9));
    EXPECT_EQ(frame().openEditors().at(1)->vaspdParam().activeRow(), 7);
}

TEST_F(Find, doesNothingWithoutADocument)
{
    while (frame().activeEditor()) {
        editor().parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    for (const auto &[key, modifiers] : {std::pair(Qt::Key_F, Qt::ControlModifier),
             std::pair(Qt::Key_F3, Qt::NoModifier), std::pair(Qt::Key_F3, Qt::ShiftModifier)}) {
        pressKey(frame(), key, modifiers);
    }
    EXPECT_FALSE(frame().activeEditor());
}

TEST_F(Find, changesNothing)
{
    find(u"parameter 7"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_TRUE(editor().parentWidget()->close()); // without a question
}

// Compared with the simplest possible search, over texts in which matches are frequent.
TEST_F(Find, agreesWithAPlainSearchFromEveryCell)
{
    grid().setRowCount(6);
    QRandomGenerator random(7);
    for (int row = 1; row <= 6; ++row) {
        for (int column = 1; column <= 13; ++column) {
            QString text;
            for (int length = random.bounded(4); length > 0; --length) {
                text += QChar(u"abAB"[random.bounded(4)]);
            }
            grid().setText(column, row, text);
        }
    }
    grid().setColumnShown(5, false);
    const auto holds = [this](int place, const QString &text) {
        const int column = place % 13 + 1;
        return column != 4 && column != 5 && grid().text(column, place / 13 + 1).contains(text, Qt::CaseInsensitive);
    };
    for (const QString &text : {u"a"_s, u"ab"_s, u"bba"_s}) {
        grid().setSearchedText(text);
        for (int start = 0; start < 6 * 13; ++start) {
            for (const int step : {1, -1}) {
                grid().setActiveCell(start % 13 + 1, start / 13 + 1);
                const Cell from = active();
                int place = (from.second - 1) * 13 + from.first - 1;
                int passed = 0;
                do {
                    place = (place + step + 6 * 13) % (6 * 13);
                } while (++passed <= 6 * 13 && !holds(place, text));
                const bool found = grid().goToFound(step);
                ASSERT_EQ(found, passed <= 6 * 13);
                ASSERT_EQ(active(), found ? Cell(place % 13 + 1, place / 13 + 1) : from) << start << ' ' << step;
            }
        }
    }
}
