// The dialog of the visible columns by keyboard, and whether its captions can be read.

#include "app/services/Settings.h"
#include "editor/ParameterGrid.h"
#include "editor/frmVisualInf.h"
#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

class VisibleColumnsDialog : public testing::Test
{
protected:
    VisibleColumnsDialog()
    {
        useEnglish();
        layOutParameterGrid(grid, 3);
        formerState = ListVisualState;
    }
    ~VisibleColumnsDialog() override
    {
        ListVisualState = formerState;
        useEnglish();
    }

    void show(const std::function<void(SpreadGrid &)> &act)
    {
        frmVisualInf dialog(grid, {&grid}, nullptr);
        whileShown(dialog, [&] { act(control<SpreadGrid>(dialog, u"vaspdVisualInf"_s)); });
        dialog.exec();
    }
    /// Unticks the first column, which is shown.
    static void untickFirst(SpreadGrid &list)
    {
        ASSERT_EQ(list.text(1, 1), u"1"_s);
        press(Qt::Key_Space);
        ASSERT_EQ(list.text(1, 1), u"0"_s);
    }

    SpreadGrid grid;
    std::array<bool, 14> formerState{};
};

TEST_F(VisibleColumnsDialog, takesEnterInTheListAsOk)
{
    show([](SpreadGrid &list) {
        untickFirst(list);
        press(Qt::Key_Return);
    });
    EXPECT_FALSE(grid.isColumnShown(1));
}

TEST_F(VisibleColumnsDialog, takesEscapeInTheListAsCancel)
{
    show([](SpreadGrid &list) {
        untickFirst(list);
        press(Qt::Key_Escape);
    });
    EXPECT_TRUE(grid.isColumnShown(1));
}

TEST_F(VisibleColumnsDialog, letsTabLeaveTheList)
{
    show([](SpreadGrid &list) {
        EXPECT_EQ(focusedName(), list.objectName());
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedName(), u"cmdOK"_s);
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focusedName(), list.objectName());
        press(Qt::Key_Down);
        EXPECT_EQ(list.activeRow(), 2);
        press(Qt::Key_Escape);
    });
}

/// How many rows of a picture's pixels have something dark on them.
int inkHeight(const QImage &picture)
{
    int first = picture.height();
    int last = -1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 110) {
                first = std::min(first, y);
                last = y;
            }
        }
    }
    return last - first + 1;
}

int inkHeightOf(const QString &text, const QFont &font)
{
    QImage paper(600, 100, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.setFont(font);
    painter.drawText(10, 60, text);
    painter.end();
    return inkHeight(paper);
}

class CaptionSize : public VisibleColumnsDialog, public testing::WithParamInterface<float>
{
};

TEST_P(CaptionSize, leavesNoLetterCut)
{
    UserFont.FontSize = GetParam();
    grid.setText(ParameterColumn::Number, 0, u"Wgjpqy"_s);
    show([](SpreadGrid &list) {
        list.setActiveCell(1, 3); // another one than that which is looked at
        const QRect cell = list.visualRect(list.model()->index(0, 0));
        const int box = list.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &list) + 6;
        const QImage caption = list.viewport()->grab(cell.adjusted(box, 0, -2, -2)).toImage();
        EXPECT_EQ(inkHeight(caption), inkHeightOf(list.cellType(1, 1).caption, list.font()));
        press(Qt::Key_Escape);
    });
}

INSTANTIATE_TEST_SUITE_P(, CaptionSize, testing::Values(9.0F, 12.0F, 20.0F, 28.0F));

} // namespace
