#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOption>

#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Whether a pixel of nearly that colour is in the part of the picture.
bool hasColour(const QImage &picture, const QRect &part, const QColor &colour)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) < 24 && std::abs(pixel.green() - colour.green()) < 24
                && std::abs(pixel.blue() - colour.blue()) < 24) {
                return true;
            }
        }
    }
    return false;
}

/// Counts the boxes that are drawn, and those for which there is an object to animate.
class BoxStyle : public QProxyStyle
{
public:
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const override
    {
        if (element == PE_IndicatorCheckBox) {
            ++boxes;
            animated += option->styleObject ? 1 : 0;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable int boxes = 0;
    mutable int animated = 0;
};

} // namespace

TEST(SpreadGridPaint, paintsTextsInTheColourOfTheirCells)
{
    const auto grid = shownGrid();
    const QColor darkRed(128, 0, 0);
    grid->setActiveCell(6, 10);
    grid->setTextColour({2, 2, 2, 2}, darkRed);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 2), darkRed));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 3), darkRed));
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 3), grid->palette().color(QPalette::Text)));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 1, 3), grid->palette().color(QPalette::Text)));
}

TEST(SpreadGridPaint, paintsBoxesInTheColourOfTheirCells)
{
    const auto grid = shownGrid();
    const QColor darkRed(128, 0, 0);
    grid->setActiveCell(6, 10);
    for (const QString &text : {u"0"_s, u"1"_s}) {
        grid->setText(4, 2, text);
        grid->setText(4, 3, text);
        grid->setTextColour({4, 2, 4, 2}, QColor());
        ASSERT_FALSE(hasColour(pictureOf(*grid), innerRect(*grid, 4, 2), darkRed));
        grid->setTextColour({4, 2, 4, 2}, darkRed);
        const QImage picture = pictureOf(*grid);
        EXPECT_TRUE(hasColour(picture, innerRect(*grid, 4, 2), darkRed)) << text.toStdString();
        EXPECT_FALSE(hasColour(picture, innerRect(*grid, 4, 3), darkRed)) << text.toStdString();
    }
}

TEST(SpreadGridPaint, marksTheSelectionAndTheActiveCell)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 2, 3, 4});
    const QColor highlight = grid->palette().color(QPalette::Highlight);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 3, 3), highlight));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 2), highlight)); // active: a frame around its own background
    EXPECT_TRUE(hasColour(picture, cellRect(*grid, 2, 2), highlight));
    EXPECT_FALSE(hasColour(picture, cellRect(*grid, 4, 3), highlight));
}

// Only what is new is painted; what stays is moved. No piece of the frame may be left where it was.
TEST(SpreadGridPaint, showsTheSameAfterScrollingAsAfterPaintingAll)
{
    const auto grid = shownGrid(200);
    grid->resize(300, 321);
    grid->setActiveCell(1, 1);
    const auto onScreen = [&] {
        QApplication::processEvents();
        return grid->screen()->grabWindow(grid->winId()).toImage();
    };
    const QColor highlight = grid->palette().color(QPalette::Highlight);
    const auto step = [&](int rows, int pixels) {
        grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->value() + rows);
        grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->value() + pixels);
    };
    const std::vector<std::vector<QPoint>> scrolls{// rows and pixels
        {{100, 0}}, {{1, 0}}, {{-1, 0}}, {{2, 0}, {1, 0}}, {{0, 13}}, {{-3, -2}}, {{0, 200}}, {{-90, 0}}, {{-20, -300}},
        {{7, 0}, {-7, 0}}, {{1, 0}}, {{40, 0}}, {{-1, 0}, {-2, 5}}, {{-60, 0}}};
    int aroundView = 0;
    for (std::size_t i = 0; i < scrolls.size(); ++i) {
        for (const QPoint &move : scrolls[i]) {
            step(move.x(), move.y());
        }
        const QImage moved = onScreen();
        grid->viewport()->update();
        ASSERT_EQ(moved, onScreen()) << i;
        const QPoint corner = grid->viewport()->mapTo(grid.get(), grid->viewport()->rect().bottomRight());
        aroundView += moved.pixelColor(corner) == highlight ? 1 : 0;
    }
    EXPECT_EQ(aroundView, 11);
}

TEST(SpreadGridPaint, paintsATickForANumberOtherThanZero)
{
    const auto grid = shownGrid();
    grid->setActiveCell(6, 10);
    grid->setText(4, 1, u"0"_s);
    grid->setText(4, 2, u"1"_s);
    grid->setText(4, 3, u"-1"_s);
    grid->setText(4, 4, u"0"_s);
    const QImage picture = pictureOf(*grid);
    const auto cell = [&](int row) { return picture.copy(innerRect(*grid, 4, row)); };
    EXPECT_EQ(cell(1), cell(4));
    EXPECT_EQ(cell(2), cell(3));
    EXPECT_NE(cell(1), cell(2));
}

// The pictures are kept: one of a tick that is only just fading in would stay for ever.
TEST(SpreadGridPaint, givesTheStyleNothingToAnimateInABox)
{
    BoxStyle style;
    const auto grid = shownGrid();
    grid->setStyle(&style);
    grid->setText(4, 2, u"1"_s);
    grid->setTextColour({4, 2, 4, 2}, QColor(0, 90, 0)); // of which there is no picture yet
    pictureOf(*grid);
    EXPECT_GT(style.boxes, 0);
    EXPECT_EQ(style.animated, 0);
}

// "99,99" of "99,9999" would pass for a value.
TEST(SpreadGridPaint, showsNoDigitOfANumberThatDoesNotFit)
{
    const auto grid = shownGrid();
    grid->setActiveCell(6, 10);
    grid->setWidthInCharacters(2, 5);
    const auto cell = [&](const QString &text) {
        grid->setText(2, 2, text);
        return pictureOf(*grid).copy(innerRect(*grid, 2, 2));
    };
    const QImage hashes = cell(u"99,9999"_s);
    EXPECT_EQ(hashes, cell(u"10,0000"_s));
    EXPECT_EQ(hashes, cell(u"-1234567.8"_s));
    EXPECT_NE(hashes, cell(u"99,99"_s)) << "fits";
    EXPECT_NE(hashes, cell(QString()));
    EXPECT_TRUE(hasColour(hashes, hashes.rect(), grid->palette().color(QPalette::Text)));
}

TEST(SpreadGridPaint, showsByAnEllipsisThatATextGoesOn)
{
    const auto grid = shownGrid();
    grid->setActiveCell(6, 10);
    grid->setWidthInCharacters(2, 8);
    const auto cell = [&](const QString &text) {
        grid->setText(2, 2, text);
        return pictureOf(*grid).copy(innerRect(*grid, 2, 2));
    };
    const QImage cut = cell(u"abcdefghijklmnopqrstuvwxyz"_s);
    const int room = grid->columnWidth(1) - 1 - 8;
    EXPECT_EQ(cut, cell(grid->fontMetrics().elidedText(u"abcdefghijklmnopqrstuvwxyz"_s, Qt::ElideRight, room)));
    EXPECT_NE(cut, cell(u"abcdef"_s));
    EXPECT_EQ(cell(u"abc\r\nde"_s), cell(u"abc\u2026"_s)) << "the row has room for one line";
}

TEST(SpreadGridPaint, showsTheCornersText)
{
    const auto grid = shownGrid();
    auto *corner = grid->findChild<QWidget *>(u"corner"_s);
    const QImage empty = corner->grab().toImage();
    grid->setText(0, 0, u"No"_s);
    EXPECT_NE(corner->grab().toImage(), empty);
    EXPECT_EQ(grid->text(0, 0), u"No"_s);
}

class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST(SpreadGridPaint, paintsNothingWhileRedrawIsOff)
{
    const auto grid = shownGrid();
    QApplication::processEvents();
    PaintCounter paints;
    grid->viewport()->installEventFilter(&paints);
    grid->setRedraw(false);
    grid->setRedraw(false);
    grid->setText(2, 1, u"x"_s);
    QApplication::processEvents();
    grid->setRedraw(true);
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    grid->setRedraw(true);
    QApplication::processEvents();
    EXPECT_GT(paints.count, 0);
}
