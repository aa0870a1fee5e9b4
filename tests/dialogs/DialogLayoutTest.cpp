// What all dialogs have in common as windows: position, font, and space for every text.

#include "app/services/Settings.h"
#include "dialogs/frmFunc.h"
#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDirIterator>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QWidget &widget)
{
    return widget.objectName();
}

void expectRoomForContent(const QWidget &widget)
{
    EXPECT_GE(widget.width(), widget.sizeHint().width()) << nameOf(widget).toStdString();
    EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << nameOf(widget).toStdString();
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << nameOf(widget).toStdString();
}

void expectRoomForTitle(const QGroupBox &frame)
{
    const QString shown = QString(frame.title()).remove(u'&');
    EXPECT_GE(frame.width(), frame.fontMetrics().horizontalAdvance(shown)) << nameOf(frame).toStdString();
}

/// Only where the screen is too narrow for the dialog its lists may scroll sideways.
bool mayScroll(const SpreadGrid &grid)
{
    constexpr int frame = 40;
    return grid.window()->sizeHint().width() > grid.screen()->availableGeometry().width() - frame;
}

void expectRoomForColumns(const SpreadGrid &grid)
{
    if (!mayScroll(grid)) {
        EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0) << nameOf(grid).toStdString();
    }
    for (int column = 1; column <= grid.columnCount(); ++column) {
        const int needed = grid.horizontalHeader()->fontMetrics().horizontalAdvance(grid.text(column, 0));
        EXPECT_GE(grid.columnWidth(column - 1), needed) << grid.text(column, 0).toStdString();
    }
}

void expectNothingCut(const QDialog &dialog)
{
    for (const auto *button : dialog.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && !nameOf(*button).isEmpty()) {
            expectRoomForContent(*button);
        }
    }
    for (const auto *label : dialog.findChildren<QLabel *>()) {
        expectRoomForContent(*label);
    }
    for (const auto *frame : dialog.findChildren<QGroupBox *>()) {
        expectRoomForTitle(*frame);
    }
    for (const auto *grid : dialog.findChildren<SpreadGrid *>()) {
        expectRoomForColumns(*grid);
    }
}

// It is the inner size that is centred; the window's frame comes on top. A dialog that fills its screen makes way for
// the frame.
void expectInTheMiddle(const QDialog &dialog)
{
    constexpr int frame = 40;
    const QRect screen = dialog.screen()->geometry();
    const QPoint off = dialog.pos() + dialog.rect().center() - screen.center();
    const bool fillsScreen = dialog.width() > screen.width() - frame || dialog.height() > screen.height() - frame;
    EXPECT_LE(off.manhattanLength(), fillsScreen ? frame : 2) << off.x() << ' ' << off.y();
}

/// The classes of the program that derive from EditDialog.
QStringList editDialogClasses()
{
    static const QRegularExpression derived(u"class (\\w+) : public EditDialog\\b"_s);
    QStringList classes;
    for (const QString &folder : {u"app"_s, u"dialogs"_s, u"editor"_s, u"print"_s}) {
        QDirIterator headers(
            QStringLiteral(TABRIX_SOURCES "/") + folder, {u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (headers.hasNext()) {
            QFile header(headers.next());
            EXPECT_TRUE(header.open(QIODevice::ReadOnly));
            const auto match = derived.match(QString::fromUtf8(header.readAll()));
            if (match.hasMatch()) {
                classes << match.captured(1);
            }
        }
    }
    return classes;
}

std::vector<OpenedDialog> editDialogs()
{
    const QStringList classes = editDialogClasses();
    std::vector<OpenedDialog> dialogs;
    std::ranges::copy_if(openedDialogs, std::back_inserter(dialogs), [&classes](const OpenedDialog &dialog) {
        return std::ranges::any_of(
            classes, [&dialog](const QString &name) { return QLatin1StringView(dialog.name).startsWith(name); });
    });
    return dialogs;
}

TEST(Dialogs, areAllOpenedByTests)
{
    const QStringList classes = editDialogClasses();
    EXPECT_GE(classes.size(), 6);
    for (const QString &name : classes) {
        EXPECT_TRUE(std::ranges::any_of(openedDialogs,
            [&name](const OpenedDialog &dialog) { return QLatin1StringView(dialog.name).startsWith(name); }))
            << name.toStdString() << " is not in tests/dialogs/DialogOpeners.h";
    }
}

class DialogLayout : public testing::TestWithParam<std::tuple<OpenedDialog, void (*)(), float>>
{
protected:
    void SetUp() override
    {
        std::get<1>(GetParam())();
        UserFont.FontSize = std::get<2>(GetParam());
        UserFont.FontBold = true; // the widest that a user can choose of a font
    }

    void open(const DialogAct &act) { std::get<0>(GetParam()).open(act); }
};

TEST_P(DialogLayout, cutsNothing)
{
    open([](QDialog &dialog) {
        expectNothingCut(dialog);
        dialog.reject();
    });
}

TEST_P(DialogLayout, cutsNothingAtItsSmallest)
{
    open([](QDialog &dialog) {
        dialog.resize(1, 1);
        expectNothingCut(dialog);
        dialog.reject();
    });
}

TEST_P(DialogLayout, standsInTheMiddleOfTheScreen)
{
    open([](QDialog &dialog) {
        expectInTheMiddle(dialog);
        dialog.reject();
    });
}

TEST_P(DialogLayout, usesTheUsersFont)
{
    open([](QDialog &dialog) {
        for (const auto *control : dialog.findChildren<QWidget *>()) {
            if (!nameOf(*control).isEmpty() && !nameOf(*control).startsWith("qt_"_L1)) {
                EXPECT_FLOAT_EQ(float(control->font().pointSizeF()), UserFont.FontSize)
                    << nameOf(*control).toStdString();
                EXPECT_TRUE(control->font().bold()) << nameOf(*control).toStdString();
            }
        }
        dialog.reject();
    });
}

TEST_P(DialogLayout, isModal)
{
    open([](QDialog &dialog) {
        EXPECT_TRUE(dialog.isModal());
        dialog.reject();
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogLayout,
    testing::Combine(testing::ValuesIn(editDialogs()), testing::Values(useEnglish, useJapanese),
        testing::Values(8.0F, 12.0F, 20.0F)));

class GridDialog : public testing::TestWithParam<DialogOpener>
{
};

TEST_P(GridDialog, growsWithTheMouse)
{
    useEnglish();
    GetParam()([](QDialog &dialog) {
        const auto *grid = dialog.findChild<SpreadGrid *>();
        const QSize before = grid->size();
        dialog.resize(dialog.size() + QSize(300, 200));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return grid->width() > before.width() && grid->height() > before.height(); }, patience));
        dialog.reject();
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, GridDialog, testing::Values(openPrCond, openKisyuEdit));

TEST(ReusedDialog, standsInTheMiddleWithEverySize)
{
    useEnglish();
    frmFunc dialog;
    qint16 code = 0;
    for (const QString &file : {u"a.inv"_s, u"kqm3.inv"_s, u"a.inv"_s}) {
        whileShown(dialog, [&] {
            expectInTheMiddle(dialog);
            dialog.reject();
        });
        dialog.ShowFuncCode(u""_s, code, file);
    }
}

} // namespace
