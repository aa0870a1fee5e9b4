// Every dialog on the screen that the test runs on: nothing of it is off the screen, cut or overlapped, and every text
// is shown whole. Lists may scroll.

#include "app/services/Settings.h"
#include "desktop/FileDialog.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

using Language = void (*)();
using Case = std::tuple<OpenedDialog, Language, float>;

bool isPartOfOther(const QWidget &widget)
{
    const QString name = widget.objectName();
    return name.isEmpty() || name.startsWith("qt_"_L1);
}

/// What a user reads, presses or fills in; not what holds others.
QList<QWidget *> controlsIn(const QDialog &dialog)
{
    QList<QWidget *> controls = dialog.findChildren<QWidget *>();
    controls.removeIf([](const QWidget *widget) {
        const bool isControl = qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLabel *>(widget)
            || qobject_cast<const QLineEdit *>(widget) || qobject_cast<const SpreadGrid *>(widget);
        const bool isPart = isPartOfOther(*widget) || qobject_cast<const SpreadGrid *>(widget->parentWidget());
        return !isControl || !widget->isVisible() || isPart;
    });
    return controls;
}

QRect placeIn(const QDialog &dialog, const QWidget &control)
{
    return {control.mapTo(&dialog, QPoint()), control.size()};
}

/// The part of the control that none of the widgets around it cuts off.
QRect seenPart(const QDialog &dialog, const QWidget &control)
{
    QRect seen = placeIn(dialog, control);
    for (const QWidget *around = control.parentWidget(); around != &dialog; around = around->parentWidget()) {
        seen &= placeIn(dialog, *around);
    }
    return seen & dialog.rect();
}

bool fitsItsText(const QLabel &label)
{
    return label.wordWrap() ? label.height() >= label.heightForWidth(label.width())
                            : label.width() >= label.sizeHint().width() && label.height() >= label.sizeHint().height();
}

bool fitsItsText(const QAbstractButton &button)
{
    const bool isHighEnough = button.text().isEmpty() || button.height() >= button.fontMetrics().height();
    return button.width() >= button.sizeHint().width() && isHighEnough;
}

bool fitsItsText(const SpreadGrid &grid)
{
    for (int column = 1; column <= grid.columnCount(); ++column) {
        const QFontMetrics headings = grid.horizontalHeader()->fontMetrics();
        if (grid.columnWidth(column - 1) < headings.horizontalAdvance(grid.text(column, 0))) {
            return false;
        }
        for (int row = 1; row <= grid.rowCount(); ++row) {
            const int besideCaption = grid.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &grid) + 12;
            const QString caption = grid.cellType(column, row).caption;
            const int needed = grid.fontMetrics().horizontalAdvance(caption) + (caption.isEmpty() ? 0 : besideCaption);
            if (grid.columnWidth(column - 1) < needed || grid.rowHeight(row - 1) < grid.fontMetrics().height()) {
                return false;
            }
        }
    }
    const int rows = grid.viewport()->height() / grid.rowHeight(0);
    return grid.rowCount() == 0 || rows >= std::min(grid.rowCount(), 2);
}

bool fitsItsText(const QWidget &control)
{
    if (const auto *label = qobject_cast<const QLabel *>(&control)) {
        return fitsItsText(*label);
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control)) {
        return fitsItsText(*button);
    }
    if (const auto *grid = qobject_cast<const SpreadGrid *>(&control)) {
        return fitsItsText(*grid);
    }
    return control.height() >= control.fontMetrics().height();
}

QString described(const QRect &place)
{
    return u"%1,%2 %3x%4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

void addOverlaps(const QDialog &dialog, const QList<QWidget *> &controls, QStringList &bad)
{
    for (qsizetype i = 0; i < controls.size(); ++i) {
        for (qsizetype j = i + 1; j < controls.size(); ++j) {
            if (placeIn(dialog, *controls[i]).intersects(placeIn(dialog, *controls[j]))) {
                bad << controls[i]->objectName() + u" overlaps "_s + controls[j]->objectName();
            }
        }
    }
}

QStringList badlyPlacedIn(const QDialog &dialog)
{
    QStringList bad;
    const QList<QWidget *> controls = controlsIn(dialog);
    for (const QWidget *control : controls) {
        if (seenPart(dialog, *control) != placeIn(dialog, *control)) {
            bad << control->objectName() + u" is cut: "_s + described(placeIn(dialog, *control)) + u" to "_s
                    + described(seenPart(dialog, *control));
        }
        if (!fitsItsText(*control)) {
            bad << control->objectName() + u" has no room for its text: "_s + described(placeIn(dialog, *control));
        }
    }
    for (const auto *frame : dialog.findChildren<QGroupBox *>()) {
        if (frame->width() < frame->fontMetrics().horizontalAdvance(QString(frame->title()).remove(u'&'))) {
            bad << frame->objectName() + u" has no room for its title"_s;
        }
    }
    addOverlaps(dialog, controls, bad);
    return bad;
}

void expectOnScreen(const QDialog &dialog)
{
    const QRect screen = dialog.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(dialog.frameGeometry()))
        << described(dialog.frameGeometry()).toStdString() << " on " << described(screen).toStdString();
}

/// Whether the user can get at all controls without scrolling; with the largest fonts the smallest screens have no
/// room.
bool isRoomy(float fontSize)
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    return fontSize < 20 || (screen.width() >= 1024 && screen.height() >= 768);
}

class DialogOnScreen : public testing::TestWithParam<Case>
{
protected:
    void SetUp() override
    {
        std::get<Language>(GetParam())();
        UserFont.FontSize = std::get<float>(GetParam());
    }
    void TearDown() override { useEnglish(); }

    static void open(const DialogAct &act)
    {
        std::get<OpenedDialog>(GetParam()).open([&](QDialog &dialog) {
            act(dialog);
            dialog.reject();
        });
    }
};

TEST(Screen, isTheOneThatTheTestIsMeantFor)
{
    const QByteArray meant = qgetenv("TABRIX_SCREEN");
    const QSize size = QGuiApplication::primaryScreen()->size();
    if (!meant.isEmpty()) {
        EXPECT_EQ(u"%1x%2"_s.arg(size.width()).arg(size.height()), QString::fromLatin1(meant));
    }
}

TEST_P(DialogOnScreen, isWholeAndReadable)
{
    open([](QDialog &dialog) {
        expectOnScreen(dialog);
        if (isRoomy(std::get<float>(GetParam()))) {
            EXPECT_EQ(badlyPlacedIn(dialog).join(u"; "_s), QString());
        }
    });
}

// Some desktops show the buttons of a window whatever it asks for; none has use for them on one that keeps its size.
TEST_P(DialogOnScreen, canNeitherBeMinimisedNorMaximised)
{
    open([](QDialog &dialog) {
        EXPECT_FALSE(dialog.windowFlags().testAnyFlags(Qt::WindowMinMaxButtonsHint));
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        const bool hasList = dialog.findChild<SpreadGrid *>() != nullptr;
        EXPECT_EQ(dialog.minimumSize() == dialog.maximumSize(), !hasList);
    });
}

TEST_P(DialogOnScreen, keepsItsButtonsInReach)
{
    open([](QDialog &dialog) {
        for (const char *name : {"cmdOK", "cmdCancel", "cmdHelp", "cmdSet", "cmdYes", "cmdNo"}) {
            if (const auto *button = dialog.findChild<QPushButton *>(QString::fromLatin1(name))) {
                EXPECT_EQ(seenPart(dialog, *button), placeIn(dialog, *button)) << name;
            }
        }
    });
}

TEST_P(DialogOnScreen, bringsIntoViewWhatTabReaches)
{
    open([](QDialog &dialog) {
        const QWidget *first = QApplication::focusWidget();
        const QWidget *focused = first;
        for (int steps = 0; focused && steps < 60; ++steps) {
            if (!isPartOfOther(*focused)) {
                EXPECT_FALSE(seenPart(dialog, *focused).isEmpty()) << focused->objectName().toStdString();
            }
            press(Qt::Key_Tab);
            focused = QApplication::focusWidget();
            if (focused == first) {
                return;
            }
        }
        FAIL() << "Tab does not come round";
    });
}

std::string caseName(const testing::TestParamInfo<Case> &info)
{
    const auto &[dialog, language, size] = info.param;
    return std::string(dialog.name) + (language == useJapanese ? "Japanese" : "English") + std::to_string(int(size));
}

INSTANTIATE_TEST_SUITE_P(, DialogOnScreen,
    testing::Combine(
        testing::ValuesIn(openedDialogs), testing::Values(useEnglish, useJapanese), testing::Values(12.0F, 20.0F)),
    caseName);

// The toolkit's own dialogs

void expectWithinScreen(const std::function<void()> &open)
{
    bool seen = false;
    QTimer::singleShot(0, qApp, [&seen] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QApplication::processEvents();
        expectOnScreen(*dialog);
        const auto *buttons = dialog->findChild<QDialogButtonBox *>();
        EXPECT_TRUE(buttons && dialog->rect().contains(placeIn(*dialog, *buttons)));
        seen = true;
        dialog->reject();
    });
    open();
    EXPECT_TRUE(seen);
}

TEST(ToolkitDialogOnScreen, opensFiles)
{
    expectWithinScreen([] {
        askForFileToOpen(nullptr, {.defaultExtension = u"INV"_s, .filter = u"All|*.*"_s, .folder = QDir::homePath()});
    });
}

TEST(ToolkitDialogOnScreen, savesFiles)
{
    expectWithinScreen([] {
        askForFileToSave(nullptr, {.defaultExtension = u"INV"_s, .filter = u"All|*.*"_s, .folder = QDir::homePath()});
    });
}

TEST(ToolkitDialogOnScreen, setsUpThePrinter)
{
    expectWithinScreen([] { CurrentPrinter::showSetup(nullptr, u"Setting"_s, u"OK"_s, u"CANCEL"_s, u"/tmp/a.pdf"_s); });
}

} // namespace
