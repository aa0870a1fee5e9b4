#include "tests/platform/SpreadGridSupport.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>

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

} // namespace

TEST(SpreadGridPaint, paintsTextsInTheColourOfTheirCells)
{
    const auto grid = shownGrid();
    const QColor darkRed(128, 0, 0);
    grid->setActiveCell(6, 10);
    grid->setForeColour({2, 2, 2, 2}, darkRed);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 2), darkRed));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 3), darkRed));
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 2, 3), grid->palette().color(QPalette::Text)));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 1, 3), grid->palette().color(QPalette::Text)));
}

TEST(SpreadGridPaint, marksTheSelectionAndTheActiveCell)
{
    const auto grid = shownGrid();
    grid->selectBlock({2, 2, 3, 4});
    const QColor highlight = grid->palette().color(QPalette::Highlight);
    const QImage picture = pictureOf(*grid);
    EXPECT_TRUE(hasColour(picture, innerRect(*grid, 3, 3), highlight));
    EXPECT_FALSE(hasColour(picture, innerRect(*grid, 2, 2), highlight)); // active: a frame around its own ground
    EXPECT_TRUE(hasColour(picture, cellRect(*grid, 2, 2), highlight));
    EXPECT_FALSE(hasColour(picture, cellRect(*grid, 4, 3), highlight));
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
