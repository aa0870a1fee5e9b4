// The wheel with Ctrl, and Ctrl+0: they change how large the grid is shown, and nothing else.

#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "editor/GridFont.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"
#include "tests/support/PrintedGrid.h"

#include <QApplication>
#include <QFontDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class ZoomTest : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(100))));
        grid().setFocus();
    }

    static void turnWheel(QWidget &widget, int delta, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        const QPointF place = widget.rect().center();
        QWheelEvent event(
            place, widget.mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // as from a mouse: passed on to the parent
        qApp->notify(&widget, &event);
    }
    void turnWheel(int delta, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        turnWheel(*grid().viewport(), delta, modifiers);
    }
    void zoomTo(int percent) { turnWheel((percent - grid().zoom()) * 12); }
    void zoomBack() { pressKey(grid(), Qt::Key_0, Qt::ControlModifier); }

    /// All that is shown larger or smaller, in pixels and points.
    std::vector<double> shown()
    {
        std::vector<double> sizes{double(grid().horizontalHeader()->height()), double(grid().verticalHeader()->width()),
            grid().font().pointSizeF(), grid().horizontalHeader()->font().pointSizeF(),
            grid().verticalHeader()->font().pointSizeF()};
        for (int column = 0; column < grid().columnCount(); ++column) {
            sizes.push_back(grid().columnWidth(column));
        }
        for (int row = 0; row < grid().rowCount(); ++row) {
            sizes.push_back(grid().rowHeight(row));
        }
        return sizes;
    }
};

TEST_F(ZoomTest, scalesFontsWidthsAndHeights)
{
    grid().setRowHeight(6, 77);
    const std::vector<double> unzoomed = shown();
    for (const int percent : {150, 50, 300, 90}) {
        zoomTo(percent);
        ASSERT_EQ(grid().zoom(), percent);
        const std::vector<double> zoomed = shown();
        for (size_t at = 0; at < unzoomed.size(); ++at) {
            EXPECT_NEAR(zoomed[at], unzoomed[at] * percent / 100, 0.51) << percent << " %, size " << at;
        }
    }
    zoomBack();
    EXPECT_EQ(shown(), unzoomed);
}

TEST_F(ZoomTest, goesByTensFromFiftyToThreeHundred)
{
    turnWheel(120);
    EXPECT_EQ(grid().zoom(), 110);
    turnWheel(-240);
    EXPECT_EQ(grid().zoom(), 90);
    turnWheel(-120 * 100);
    EXPECT_EQ(grid().zoom(), 50);
    turnWheel(120 * 100);
    EXPECT_EQ(grid().zoom(), 300);
    zoomBack();
    EXPECT_EQ(grid().zoom(), 100);
    pressKey(grid(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(grid().zoom(), 110);
    pressKey(grid(), Qt::Key_Minus, Qt::ControlModifier);
    pressKey(grid(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(grid().zoom(), 90);
}

TEST_F(ZoomTest, addsUpTheSmallStepsOfAFineWheel)
{
    for (int part = 0; part < 7; ++part) {
        turnWheel(15);
    }
    EXPECT_EQ(grid().zoom(), 100);
    turnWheel(15);
    EXPECT_EQ(grid().zoom(), 110);
    turnWheel(90);
    turnWheel(-90); // what was left of the other direction does not count
    EXPECT_EQ(grid().zoom(), 110);
    turnWheel(-30);
    EXPECT_EQ(grid().zoom(), 100);
}

TEST_F(ZoomTest, leavesTheWheelAloneWithoutCtrl)
{
    turnWheel(-120, Qt::NoModifier);
    EXPECT_EQ(grid().zoom(), 100);
    EXPECT_GT(grid().topRow(), 1);
    turnWheel(-120, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(grid().zoom(), 100);
}

TEST_F(ZoomTest, worksOverTheHeadersToo)
{
    turnWheel(*grid().horizontalHeader()->viewport(), 120);
    turnWheel(*grid().verticalHeader()->viewport(), 120);
    EXPECT_EQ(grid().zoom(), 120);
}

TEST_F(ZoomTest, keepsThePlaceInTheTable)
{
    grid().setActiveCell(1, 1);
    grid().setTopRow(40);
    grid().horizontalScrollBar()->setValue(60);
    zoomTo(200);
    EXPECT_EQ(grid().topRow(), 40);
    EXPECT_EQ(grid().horizontalScrollBar()->value(), 120);
    grid().setActiveCell(2, grid().bottomRow() - 1);
    zoomTo(300);
    const QRect cell = grid().visualRect(grid().currentIndex());
    EXPECT_TRUE(grid().viewport()->rect().contains(cell.adjusted(0, 0, -cell.width() / 2, 0)));
}

TEST_F(ZoomTest, scalesTheOpenEditor)
{
    grid().setActiveCell(2, 3);
    pressKey(grid(), Qt::Key_F2);
    auto &edit = dynamic_cast<QLineEdit &>(*QApplication::focusWidget());
    const double points = edit.font().pointSizeF();
    const int width = edit.width();
    turnWheel(edit, 120 * 10);
    EXPECT_EQ(grid().zoom(), 200);
    EXPECT_EQ(edit.font().pointSizeF(), 2 * points);
    EXPECT_NEAR(edit.width(), 2 * width, 2);
    EXPECT_EQ(edit.geometry().topLeft(), grid().visualRect(grid().currentIndex()).topLeft());
    QTest::keyClicks(&edit, u"!"_s);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(grid().text(2, 3), u"Parameter 3!"_s);
}

TEST_F(ZoomTest, keepsWhatTheUserDoesToWidthsAndHeightsMeanwhile)
{
    zoomTo(200);
    grid().setColumnWidth(1, 300); // as a dragged edge does
    grid().setRowHeight(4, 90);
    zoomBack();
    EXPECT_EQ(grid().columnWidth(1), 150);
    EXPECT_EQ(grid().rowHeight(4), 45);
}

TEST_F(ZoomTest, fitsAColumnToTheTextsAsTheyAreShown)
{
    const QFont unzoomed = grid().gridFont();
    for (const int percent : {60, 80, 130, 300}) {
        zoomTo(percent);
        grid().fitColumnWidth(2);
        EXPECT_GE(grid().columnWidth(1), grid().fontMetrics().horizontalAdvance(u"Parameter 100"_s)) << percent;
    }
    zoomBack();
    EXPECT_GE(grid().columnWidth(1), QFontMetrics(unzoomed).horizontalAdvance(u"Parameter 100"_s));
    EXPECT_LT(grid().columnWidth(1), QFontMetrics(unzoomed).horizontalAdvance(u"Parameter 100"_s) * 3 / 2);
}

TEST_F(ZoomTest, givesHiddenColumnsTheirWidthBack)
{
    ListVisualState.fill(false);
    applyVisibleColumns(grid());
    const int width = grid().columnWidth(7);
    grid().setColumnShown(8, false);
    zoomTo(200);
    grid().setColumnShown(8, true);
    EXPECT_EQ(grid().columnWidth(7), 2 * width);
    grid().setColumnShown(8, false);
    zoomBack();
    grid().setColumnShown(8, true);
    EXPECT_EQ(grid().columnWidth(7), width);
}

TEST_F(ZoomTest, holdsForRowsThatComeAndGo)
{
    const int height = grid().rowHeight(0);
    grid().setRowHeight(99, 63);
    grid().selectBlock({-1, 100, 13, 100});
    clickTool(u"ssrbnEdit(5)"_s);
    zoomTo(200);
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid().rowHeight(99), 126);
    grid().setActiveCell(1, 1);
    clickTool(u"ssrbnEdit(4)"_s);
    EXPECT_EQ(grid().rowHeight(100), 2 * height);
    zoomBack();
    EXPECT_EQ(grid().rowHeight(99), 63);
    EXPECT_EQ(grid().rowHeight(100), height);
}

TEST_F(ZoomTest, letsAnotherFontGrowTheHeaderAndNoRow)
{
    const int row = grid().rowHeight(0);
    const int header = grid().horizontalHeader()->height();
    QFont font = grid().gridFont();
    font.setPointSizeF(font.pointSizeF() * 2);
    zoomTo(150);
    applyGridFont(grid(), font);
    EXPECT_EQ(grid().font().pointSizeF(), font.pointSizeF() * 1.5);
    EXPECT_EQ(grid().gridFont().pointSizeF(), font.pointSizeF());
    zoomBack();
    EXPECT_EQ(grid().font().pointSizeF(), font.pointSizeF());
    EXPECT_EQ(grid().horizontalHeader()->font().pointSizeF(), font.pointSizeF());
    EXPECT_EQ(grid().rowHeight(0), row);
    EXPECT_GT(grid().horizontalHeader()->height(), header);
}

TEST_F(ZoomTest, changesNeitherSettingsNorDocument)
{
    const QByteArray before = readFile(editor().windowTitle());
    const float size = UserFont.FontSize;
    const double points = grid().gridFont().pointSizeF();
    zoomTo(200);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_EQ(UserFont.FontSize, size);
    ModalScript script;
    script.then([points](QWidget &dialog) {
        EXPECT_EQ(dynamic_cast<QFontDialog &>(dialog).currentFont().pointSizeF(), points);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    editor().document().markChanged();
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(editor().windowTitle()), before);
}

TEST_F(ZoomTest, belongsToOneWindow)
{
    zoomTo(200);
    const frmPrFile &first = editor();
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(4))));
    EXPECT_EQ(grid().zoom(), 100);
    EXPECT_EQ(first.vaspdParam().zoom(), 200);
}

TEST_F(ZoomTest, printsTheSame)
{
    const auto places = [this] {
        std::vector<QRectF> boxes;
        for (const PdfPage &page : PrintedGrid().print(grid())) {
            for (const PdfWord &word : page.words) {
                boxes.push_back(word.box);
            }
        }
        return boxes;
    };
    const std::vector<QRectF> unzoomed = places();
    ASSERT_GT(unzoomed.size(), 500U);
    zoomTo(180);
    EXPECT_EQ(places(), unzoomed);
}
