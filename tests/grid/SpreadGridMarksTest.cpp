#include "grid/cells/CellMarks.h"
#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/ContrastRatio.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// An error in row 2, a warning in row 3, in every column.
class RowMarks : public CellMarks
{
public:
    CellMark mark(int, int row) override
    {
        return row == 2 ? CellMark::Error : row == 3 ? CellMark::Warning : CellMark::None;
    }
    QString text(int column, int row) override { return u"First <%1>\nSecond %2"_s.arg(column).arg(row); }
};

/// The upper right corner of a cell in device pixels, as it is with and without marks.
struct Corner
{
    QImage marked;
    QImage unmarked;

    bool isPainted(int x, int y) const { return marked.pixel(x, y) != unmarked.pixel(x, y); }
    int count() const
    {
        int painted = 0;
        for (int y = 0; y < marked.height(); ++y) {
            for (int x = 0; x < marked.width(); ++x) {
                painted += isPainted(x, y) ? 1 : 0;
            }
        }
        return painted;
    }
    /// Whether what is painted fills the upper right corner of the space that it takes.
    bool isCornerFilled() const
    {
        int right = 0;
        int top = marked.height();
        for (int y = 0; y < marked.height(); ++y) {
            for (int x = 0; x < marked.width(); ++x) {
                right = isPainted(x, y) ? std::max(right, x) : right;
                top = isPainted(x, y) ? std::min(top, y) : top;
            }
        }
        return contrastRatio(marked.pixelColor(right, top), unmarked.pixelColor(right, top)) > 2;
    }
    /// The most that a painted pixel differs from the background.
    double contrastWith(const QColor &background) const
    {
        double most = 0;
        for (int y = 0; y < marked.height(); ++y) {
            for (int x = 0; x < marked.width(); ++x) {
                most = isPainted(x, y) ? std::max(most, contrastRatio(marked.pixelColor(x, y), background)) : most;
            }
        }
        return most;
    }
};

QImage picture(SpreadGrid &grid, qreal scale)
{
    QImage image(grid.viewport()->size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    grid.viewport()->render(&image);
    return image;
}

struct Look
{
    int fontSize;
    bool isDark;
    int scale;
};

class SpreadGridMarks : public testing::TestWithParam<Look>
{
protected:
    void SetUp() override
    {
        m_grid = shownGrid(8);
        QFont font = m_grid->gridFont();
        font.setPointSize(GetParam().fontSize);
        m_grid->setRowCount(0); // a grid without rows takes its heights from the font
        m_grid->setGridFont(font);
        m_grid->setRowCount(8);
        if (GetParam().isDark) {
            QPalette dark = m_grid->palette();
            dark.setColor(QPalette::Base, QColor(30, 30, 30));
            dark.setColor(QPalette::Text, Qt::white);
            dark.setColor(QPalette::Highlight, QColor(20, 80, 160));
            dark.setColor(QPalette::HighlightedText, Qt::white);
            m_grid->setPalette(dark);
        }
        m_grid->setActiveCell(2, 6);
    }
    Corner corner(int column, int row)
    {
        const qreal scale = GetParam().scale;
        m_grid->setMarks(nullptr);
        const QImage before = picture(*m_grid, scale);
        m_grid->setMarks(&m_marks);
        const QImage after = picture(*m_grid, scale);
        m_grid->setMarks(nullptr);
        const QRect cell = cellRect(*m_grid, column, row);
        const int side = cell.height() / 2;
        const QRect part(
            int((cell.right() - side) * scale), int(cell.top() * scale), int(side * scale), int(side * scale));
        return {after.copy(part), before.copy(part)};
    }
    QColor background(int column, int row)
    {
        m_grid->setMarks(nullptr);
        const QRect inside = innerRect(*m_grid, column, row);
        return picture(*m_grid, 1).pixelColor(inside.bottomRight());
    }

    std::unique_ptr<SpreadGrid> m_grid;
    RowMarks m_marks;
};

TEST_P(SpreadGridMarks, canBeSeenAndToldApartOnEveryBackground)
{
    m_grid->setTextColour({3, 2, 3, 3}, QColor(128, 0, 0));
    for (const bool isSelected : {false, true}) {
        isSelected ? m_grid->selectBlock({1, 1, 6, 5}) : m_grid->selectBlock({2, 6, 2, 6});
        for (const int column : {2, 3, 4, 5}) {
            SCOPED_TRACE(testing::Message() << column << ' ' << isSelected);
            const Corner error = corner(column, 2);
            const Corner warning = corner(column, 3);
            const Corner none = corner(column, 4);
            EXPECT_EQ(none.count(), 0);
            const int enough = 12 * GetParam().scale * GetParam().scale;
            EXPECT_GT(error.count(), enough);
            EXPECT_GT(warning.count(), enough);
            EXPECT_GE(error.contrastWith(background(column, 2)), 4.4);
            EXPECT_GE(warning.contrastWith(background(column, 3)), 4.4);
            EXPECT_TRUE(error.isCornerFilled()); // by a triangle
            EXPECT_FALSE(warning.isCornerFilled()); // by a dot
        }
    }
}

TEST_P(SpreadGridMarks, areSeenInTheActiveCell)
{
    m_grid->setFocus();
    m_grid->setActiveCell(2, 2);
    const int enough = 12 * GetParam().scale * GetParam().scale;
    EXPECT_GT(corner(2, 2).count(), enough);
    m_grid->setActiveCell(5, 3); // with its arrow
    EXPECT_GT(corner(5, 3).count(), enough);
}

INSTANTIATE_TEST_SUITE_P(Looks, SpreadGridMarks,
    testing::Values(Look{6, false, 1}, Look{9, false, 1}, Look{9, true, 1}, Look{9, false, 2}, Look{20, false, 1},
        Look{20, true, 2}));

QString tipOf(SpreadGrid &grid, int column, int row)
{
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, patience)); // it takes its time
    const QPoint place = placeOf(grid, column, row);
    QHelpEvent event(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(grid.viewport(), &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

TEST(SpreadGridMarkTexts, areInTheToolTipBelowATextThatIsCut)
{
    const auto grid = shownGrid();
    RowMarks marks;
    grid->setText(2, 3, QString(200, u'x'));
    EXPECT_TRUE(tipOf(*grid, 2, 3).contains(u"xxx"));
    EXPECT_EQ(tipOf(*grid, 2, 2), QString());
    grid->setMarks(&marks);
    EXPECT_TRUE(tipOf(*grid, 2, 2).contains(u"First &lt;2&gt;<br>"_s)) << tipOf(*grid, 2, 2).toStdString();
    EXPECT_TRUE(tipOf(*grid, 4, 2).contains(u"Second 2"_s)); // a check box
    const QString both = tipOf(*grid, 2, 3);
    EXPECT_LT(both.indexOf(u"xxx"), both.indexOf(u"Second"));
    EXPECT_EQ(tipOf(*grid, 2, 4), QString());
    grid->setMarks(nullptr);
    EXPECT_EQ(tipOf(*grid, 2, 2), QString());
    QToolTip::hideText();
}

TEST(SpreadGridMarkTexts, describeTheCellsToScreenReaders)
{
    const auto grid = shownGrid();
    RowMarks marks;
    grid->setMarks(&marks);
    const auto described = [&grid](int column, int row) {
        QAccessibleTableInterface *table = QAccessible::queryAccessibleInterface(grid.get())->tableInterface();
        return table->cellAt(row - 1, column - 1)->text(QAccessible::Description);
    };
    EXPECT_EQ(described(2, 2), u"First <2>\nSecond 2"_s);
    EXPECT_EQ(described(4, 3), u"First <4>\nSecond 3"_s);
    EXPECT_EQ(described(2, 4), QString());
    grid->setMarks(nullptr);
}

} // namespace
