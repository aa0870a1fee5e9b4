#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

/// The box that shows the active row's parameter number. Row r of the document has the number 100 + r.
class PrBox : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        QByteArray bytes = document(12);
        for (int row = 12; row >= 1; --row) {
            const QByteArray number = QByteArray::number(row);
            bytes.replace("\r\n1," + number + ',', "\r\n1," + QByteArray::number(100 + row) + ',');
        }
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, bytes)));
        ASSERT_EQ(grid().text(1, 12), u"112"_s);
        grid().setFocus();
        grid().setActiveCell(2, 7);
    }
    QLineEdit &box() { return control<QLineEdit>(frame(), u"txtPr"_s); }
    QLabel &count() { return control<QLabel>(frame(), u"lblPrcount"_s); }
    void clickBox() { QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(box().width() - 4, box().height() / 2)); }
    static void typeHere(const QString &text)
    {
        for (const QChar character : text) { // the first may open an editor, which takes the focus
            QTest::keyClicks(QApplication::focusWidget(), character);
        }
    }
    void edit(const QString &command) { chooseMenu(u"mneEdit"_s, command); }
    void selectRows(int row1, int row2) { grid().selectBlock({-1, row1, 13, row2}); }
    void deleteAllRows()
    {
        press(Qt::Key_A, Qt::ControlModifier);
        ModalScript script;
        script.thenMessage(u"All 12 rows of the table are selected. Delete them all?"_s, u"&Yes"_s);
        edit(u"mneEditDel"_s);
    }
    void closeAll()
    {
        while (frame().activeEditor()) {
            editor().parentWidget()->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    QString activeNumber() { return grid().text(1, grid().activeRow()); }
};

TEST_F(PrBox, hasItsTextSelectedByAClickSoThatTypingReplacesIt)
{
    clickBox();
    EXPECT_EQ(box().selectedText(), u"107"_s);
    typeHere(u"103"_s);
    EXPECT_EQ(box().text(), u"103"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(grid().activeRow(), 3);
}

TEST_F(PrBox, placesTheCaretByASecondClick)
{
    clickBox();
    clickBox();
    EXPECT_FALSE(box().hasSelectedText());
}

TEST_F(PrBox, isLeftForTheTableByEscapeWithTheNumberRestored)
{
    clickBox();
    typeHere(u"999"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(box().text(), u"107"_s);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
    EXPECT_EQ(grid().activeRow(), 7);
}

TEST_F(PrBox, keepsTheCopiedCellsWhenItIsLeftByEscape)
{
    press(Qt::Key_C, Qt::ControlModifier);
    clickBox();
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::clipboard()->text(), u"Parameter 7"_s);
}

TEST_F(PrBox, showsTheActiveRowsNumberAgainAfterAMiss)
{
    clickBox();
    typeHere(u"999"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(box().text(), u"107"_s);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
}

TEST_F(PrBox, showsTheNumberAsItStandsInTheRowAfterAHit)
{
    clickBox();
    typeHere(u"0107"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(grid().activeRow(), 7);
    EXPECT_EQ(box().text(), u"107"_s);
}

TEST_F(PrBox, forgetsWhatWasTypedWhenTheTableIsClicked)
{
    clickBox();
    typeHere(u"999"_s);
    const QRect cell = grid().visualRect(grid().model()->index(6, 1));
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(box().text(), u"107"_s);
}

struct Act
{
    const char *name;
    void (*run)(PrBox &test);
};

void PrintTo(const Act &act, std::ostream *out)
{
    *out << act.name;
}

class PrBoxCommands : public PrBox, public testing::WithParamInterface<Act>
{
public:
    using PrBox::edit;
    using PrBox::grid;
    using PrBox::press;
    using PrBox::selectRows;
    using PrBox::typeHere;
    static PrBoxCommands &of(PrBox &test) { return static_cast<PrBoxCommands &>(test); }
};

TEST_P(PrBoxCommands, leaveTheActiveRowsNumberInTheBox)
{
    GetParam().run(*this);
    ASSERT_NE(activeNumber(), u"107"_s);
    EXPECT_EQ(box().text(), activeNumber());
    const QString done = activeNumber();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box().text(), activeNumber());
    EXPECT_EQ(activeNumber(), u"107"_s);
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(box().text(), activeNumber());
    EXPECT_EQ(activeNumber(), done);
}

INSTANTIATE_TEST_SUITE_P(Edit, PrBoxCommands,
    testing::ValuesIn(std::vector<Act>{
        {"add", [](PrBox &test) { PrBoxCommands::of(test).edit(u"mneEditAdd"_s); }},
        {"delete", [](PrBox &test) { PrBoxCommands::of(test).edit(u"mneEditDel"_s); }},
        {"cut",
            [](PrBox &box) {
                PrBoxCommands &test = PrBoxCommands::of(box);
                test.selectRows(7, 7);
                test.edit(u"mneEditCut"_s);
            }},
        {"paste of rows",
            [](PrBox &box) {
                PrBoxCommands &test = PrBoxCommands::of(box);
                test.selectRows(3, 4);
                test.edit(u"mneEditCopy"_s);
                test.selectRows(7, 7);
                test.edit(u"mneEditPaste"_s);
            }},
        {"insertion of rows",
            [](PrBox &box) {
                PrBoxCommands &test = PrBoxCommands::of(box);
                test.selectRows(3, 4);
                test.edit(u"mneEditCopy"_s);
                test.selectRows(7, 7);
                test.edit(u"mneEditAddPaste"_s);
            }},
        {"paste into the cell",
            [](PrBox &box) {
                PrBoxCommands &test = PrBoxCommands::of(box);
                QApplication::clipboard()->setText(u"55"_s);
                test.grid().setActiveCell(1, 7);
                PrBoxCommands::press(Qt::Key_V, Qt::ControlModifier);
            }},
        {"Delete key",
            [](PrBox &box) {
                PrBoxCommands::of(box).grid().setActiveCell(1, 7);
                PrBoxCommands::press(Qt::Key_Delete);
            }},
    }));

TEST_F(PrBox, showsATypedNumberThatKeepsItsRowActive)
{
    grid().setActiveCell(1, 7);
    typeHere(u"55"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(grid().activeRow(), 7);
    EXPECT_EQ(box().text(), u"55"_s);
}

TEST_F(PrBox, isEmptyWithoutARowAndFilledAgainByUndo)
{
    deleteAllRows();
    ASSERT_EQ(grid().rowCount(), 0);
    EXPECT_EQ(box().text(), QString());
    EXPECT_EQ(count().text(), u"0"_s);
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box().text(), activeNumber());
    EXPECT_FALSE(box().text().isEmpty());
}

TEST_F(PrBox, isEmptyForADocumentWithoutRows)
{
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(0))));
    EXPECT_EQ(box().text(), QString());
    frame().makeActive(*frame().openEditors().at(1));
    EXPECT_EQ(box().text(), u"107"_s);
    frame().makeActive(*frame().openEditors().at(2));
    EXPECT_EQ(box().text(), QString());
}

TEST_F(PrBox, showsNothingOfAWindowInTheBackground)
{
    SpreadGrid &other = frame().openEditors().at(0)->vaspdParam();
    other.setText(1, 1, u"88"_s);
    EXPECT_EQ(box().text(), u"107"_s);
}

TEST_F(PrBox, isEmptyWithTheCountOnceNoWindowIsOpen)
{
    closeAll();
    EXPECT_EQ(box().text(), QString());
    EXPECT_EQ(count().text(), QString());
    clickBox();
    typeHere(u"5"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(box().text(), QString());
}
