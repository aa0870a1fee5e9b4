#include "grid/SpreadGrid.h"
#include "tests/support/PrintedGrid.h"

#include <gtest/gtest.h>

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int DotsPerInch = 144;

/// Looks at a print-out as a picture.
class GridPrintPicture : public testing::Test
{
protected:
    void print()
    {
        page = paper.print(grid).value(0);
        picture = renderPdfPage(paper.fileName(), 1, DotsPerInch);
    }

    /// How many pixels around a position (in points) are of a kind.
    template <typename Predicate>
    int countPixels(const QRectF &points, Predicate isOfKind) const
    {
        constexpr double scale = DotsPerInch / 72.0;
        const QRect area = QRectF(points.topLeft() * scale, points.size() * scale).toAlignedRect();
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                count += isOfKind(picture.pixelColor(x, y)) ? 1 : 0;
            }
        }
        return count;
    }

    static bool isDark(const QColor &colour) { return qGray(colour.rgb()) < 110; }
    static bool isDarkRed(const QColor &colour)
    {
        return colour.red() > 100 && colour.red() < 160 && colour.green() < 60 && colour.blue() < 60;
    }

    /// A cell's middle part, in a column whose heading is centred and a row with that text in column 1.
    QRectF cellAt(const QString &heading, const QString &inRow) const
    {
        const QPointF middle(page.word(heading).box.center().x(), page.word(inRow).box.center().y());
        return {middle - QPointF(8, 7), QSizeF(16, 14)};
    }

    SpreadGrid grid;
    PrintedGrid paper;
    PdfPage page;
    QImage picture;
};

TEST_F(GridPrintPicture, keepsTextColours)
{
    fillGrid(grid, 2, 2);
    grid.setTextColour({2, 2, 2, 2}, QColor(128, 0, 0));
    print();
    EXPECT_GT(countPixels(page.word(u"c2r2"_s).box, isDarkRed), 10);
    EXPECT_EQ(countPixels(page.word(u"c1r2"_s).box, isDarkRed), 0);
    EXPECT_EQ(countPixels(page.word(u"c2r1"_s).box, isDarkRed), 0);
}

TEST_F(GridPrintPicture, isBlackOnWhiteOnADarkDesktop)
{
    fillGrid(grid, 2, 2);
    QPalette dark = grid.palette();
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, Qt::black);
    grid.setPalette(dark);
    print();
    const QRectF word = page.word(u"c2r2"_s).box;
    EXPECT_GT(countPixels(word, isDark), 10);
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::white));
}

TEST_F(GridPrintPicture, drawsCheckBoxesInsteadOfTheirNumbers)
{
    fillGrid(grid, 3, 3);
    grid.setCellType(2, -1, CellType::checkBox());
    grid.setAlignment(2, Qt::AlignCenter);
    grid.setText(2, 1, u"1"_s);
    grid.setText(2, 2, u"0"_s);
    grid.setText(2, 3, QString());
    print();
    EXPECT_EQ(page.count(u"0"_s), 0);
    EXPECT_EQ(page.count(u"1"_s), 1); // the row number
    const int ticked = countPixels(cellAt(u"h2"_s, u"c1r1"_s), isDark);
    const int empty = countPixels(cellAt(u"h2"_s, u"c1r2"_s), isDark);
    EXPECT_GT(empty, 20);
    EXPECT_GT(ticked, empty + 10);
    EXPECT_NEAR(countPixels(cellAt(u"h2"_s, u"c1r3"_s), isDark), empty, 5); // a place between two pixels differs
}

TEST_F(GridPrintPicture, writesACheckBoxsCaptionBesideIt)
{
    fillGrid(grid, 2, 1);
    grid.setCellType(2, 1, CellType::checkBox(u"shown"_s));
    grid.setText(2, 1, u"1"_s);
    print();
    EXPECT_EQ(page.count(u"shown"_s), 1);
    const QRectF caption = page.word(u"shown"_s).box;
    EXPECT_GT(countPixels({caption.left() - 16, caption.top(), 14, caption.height()}, isDark), 20);
}

TEST_F(GridPrintPicture, shadesHeadingsAndRowNumbers)
{
    fillGrid(grid, 2, 2);
    print();
    const auto isGrey = [](const QColor &colour) { return colour.red() > 200 && colour.red() < 240; };
    EXPECT_GT(countPixels(page.word(u"h2"_s).box, isGrey), 100);
    EXPECT_GT(countPixels(page.word(u"2"_s).box, isGrey), 50);
    EXPECT_LT(countPixels(page.word(u"c2r2"_s).box, isGrey), 50);
}

} // namespace
