// What has no text can be seen too: boxes without a tick, the lines between cells, what an empty field is for.

#include "desktop/PrintSetupDialog.h"
#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "grid/SpreadGrid.h"
#include "help/HelpWindow.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/ContrastRatio.h"
#include "tests/support/FrameTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr double forTexts = 4.5;
constexpr double forPictures = 3;
constexpr double forLines = 1.5;

class OnDesktop : public FrameTest, public testing::WithParamInterface<QPalette (*)()>
{
protected:
    OnDesktop() : m_formerPalette(QApplication::palette()) { QApplication::setPalette(GetParam()()); }
    ~OnDesktop() override { QApplication::setPalette(m_formerPalette); }

    QRect placeOf(int column, int row)
    {
        const QModelIndex index = grid().model()->index(row - 1, column - 1);
        grid().scrollTo(index);
        return grid().visualRect(index);
    }
    QImage pictureAt(const QRect &place) { return grid().viewport()->grab(place).toImage(); }

private:
    QPalette m_formerPalette;
};

/// The part of a check box or an option that the user ticks.
template <typename Button>
QImage tickedPart(Button &button)
{
    const bool isOption = button.inherits("QRadioButton");
    const auto width = isOption ? QStyle::PM_ExclusiveIndicatorWidth : QStyle::PM_IndicatorWidth;
    const int size = button.style()->pixelMetric(width, nullptr, &button);
    // As it stands in its window: alone it would be painted on a background of its own.
    const QPoint place = button.mapTo(button.window(), QPoint(0, (button.height() - size) / 2 - 1));
    return button.window()->grab({place, QSize(size + 2, size + 2)}).toImage();
}

/// Looks at the boxes and options of a window that can be ticked and are not; returns how many there are.
int emptyBoxesSeenIn(QWidget &window)
{
    int boxes = 0;
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        const bool isBox = button->inherits("QCheckBox") || button->inherits("QRadioButton");
        if (isBox && button->isVisible() && button->isEnabled() && !button->isChecked()) {
            EXPECT_GE(contrastIn(tickedPart(*button)), forPictures) << button->text().toStdString();
            ++boxes;
        }
    }
    return boxes;
}

} // namespace

TEST_P(OnDesktop, boxesWithoutATickInCellsAreSeen)
{
    start(writeFile(u"a.inv"_s, document(30)));
    grid().setActiveCell(ParameterColumn::Unit, 8);
    grid().setText(ParameterColumn::RangeCheck, 2, u"0"_s);
    const QRect place = placeOf(ParameterColumn::RangeCheck, 2).adjusted(2, 2, -3, -3);
    EXPECT_GE(contrastIn(pictureAt(place)), forPictures);
}

TEST_P(OnDesktop, theLinesBetweenCellsAreSeen)
{
    start(writeFile(u"a.inv"_s, document(30)));
    grid().setActiveCell(ParameterColumn::Unit, 8);
    grid().setText(ParameterColumn::Name, 2, {});
    const QRect cell = placeOf(ParameterColumn::Name, 2);
    const QColor background = pictureAt(cell).pixelColor(cell.width() / 2, cell.height() / 2);
    const QRect below(cell.left() + 3, cell.bottom() - 1, 10, 4);
    const QRect beside(cell.right() - 1, cell.top() + 3, 4, 10);
    for (const QRect &edge : {below, beside}) {
        const QImage picture = pictureAt(edge);
        double greatest = 1;
        for (int i = 0; i < 4; ++i) {
            const QColor pixel = edge == below ? picture.pixelColor(5, i) : picture.pixelColor(i, 5);
            greatest = std::max(greatest, contrastRatio(pixel, background));
        }
        EXPECT_GE(greatest, forLines);
    }
}

TEST_P(OnDesktop, boxesWithoutATickInDialogsAreSeen)
{
    useEnglish();
    int boxes = 0;
    const auto look = [&boxes](QDialog &dialog) {
        for (auto *option : dialog.findChildren<QRadioButton *>()) {
            if (option->isEnabled() && !option->isChecked()) {
                EXPECT_GE(contrastIn(tickedPart(*option)), forPictures) << option->objectName().toStdString();
                ++boxes;
            }
        }
        for (auto *box : dialog.findChildren<QCheckBox *>()) {
            box->setChecked(false);
            EXPECT_GE(contrastIn(tickedPart(*box)), forPictures) << box->objectName().toStdString();
            ++boxes;
        }
        dialog.reject();
    };
    openPrint(look);
    EXPECT_EQ(boxes, 2 + 2);
}

TEST_P(OnDesktop, boxesWithoutATickInTheFontDialogAreSeen)
{
    start(writeFile(u"a.inv"_s, document(3)));
    int boxes = 0;
    ModalScript script;
    script.then([&boxes](QWidget &dialog) {
        boxes = emptyBoxesSeenIn(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    EXPECT_EQ(boxes, 2);
}

TEST_P(OnDesktop, boxesWithoutATickInThePrintersSettingAreSeen)
{
    if (!printSetupTakesFiles()) {
        GTEST_SKIP() << "there it is the system's own dialog";
    }
    start(writeFile(u"a.inv"_s, document(3)));
    int boxes = 0;
    ModalScript script;
    script.then([](QWidget &print) {
        QTimer::singleShot(0, &print, [&print] { // later, because the script answers the next dialog too
            click(print, u"cmdSet"_s);
            QTest::keyClick(&print, Qt::Key_Escape);
        });
    });
    script.then([&boxes](QWidget &setup) {
        for (auto *button : setup.findChildren<QPushButton *>()) {
            if (button->text().endsWith(u">>"_s)) {
                QTest::mouseClick(button, Qt::LeftButton); // shows the rest of the dialog
            }
        }
        boxes = emptyBoxesSeenIn(setup);
        QTest::keyClick(&setup, Qt::Key_Escape);
    });
    chooseMenu(u"mneFile"_s, u"mneFilePrint"_s);
    EXPECT_EQ(boxes, 2);
}

TEST_P(OnDesktop, theHelpsPlaceholdersCanBeRead)
{
    ASSERT_TRUE(HelpWindow::showTopic(QStringLiteral(TABRIX_HELP_FOLDER "/TABRIXE.HLP"), 1, nullptr));
    QWidget *help = nullptr;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        help = window->objectName() == u"helpWindow" ? window : help;
    }
    ASSERT_NE(help, nullptr);
    auto &field = control<QLineEdit>(*help, u"helpFind"_s);
    const auto readable = [&field] {
        QApplication::processEvents();
        return contrastIn(field.grab(field.rect().adjusted(4, 4, -4, -4)).toImage());
    };
    ASSERT_FALSE(field.placeholderText().isEmpty());
    EXPECT_GE(readable(), forTexts);
    QApplication::setPalette(GetParam() == darkPalette ? lightPalette() : darkPalette());
    EXPECT_GE(readable(), forTexts) << "the desktop's colours have changed meanwhile";
    delete help;
}

INSTANTIATE_TEST_SUITE_P(, OnDesktop, testing::Values(lightPalette, darkPalette),
    [](const auto &palette) { return palette.param == lightPalette ? "Light" : "Dark"; });
