#include "tests/dialogs/DialogDriver.h"

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// An exception must not travel through the event loop.
void runGuarded(const std::function<void()> &act)
{
    try {
        act();
    } catch (const std::exception &failure) {
        ADD_FAILURE() << failure.what();
    }
}

bool hasFocus(const QDialog &dialog)
{
    const QWidget *focused = QApplication::focusWidget();
    return focused && focused->window() == &dialog;
}

void runOn(QDialog &dialog, const std::function<void()> &act)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasFocus(dialog); }, patience));
    QApplication::processEvents(); // the layouts have come to rest after that
    runGuarded(act);
    EXPECT_FALSE(dialog.isVisible()) << "the dialog was left open";
    if (dialog.isVisible()) {
        dialog.reject();
    }
}

void useLanguage(qint32 base)
{
    LanguageBase = base;
    UserFont = {.FontName = u"DejaVu Sans"_s, .FontSize = 12, .FontItalic = false, .FontBold = false};
}

QRect cellRect(const SpreadGrid &grid, int column, int row)
{
    return grid.visualRect(grid.model()->index(row - 1, column - 1));
}

} // namespace

void useEnglish()
{
    useLanguage(EnglishBase);
}

void useJapanese()
{
    useLanguage(JapaneseBase);
}

void whileShown(QDialog &dialog, const std::function<void()> &act)
{
    QTimer::singleShot(0, &dialog, [&dialog, act] { runOn(dialog, act); });
}

void whileNextIsShown(const std::function<void(QDialog &)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        runOn(*dialog, [act, dialog] { act(*dialog); });
    });
}

void click(const QObject &root, const QString &name)
{
    auto &button = control<QAbstractButton>(root, name);
    // A check box reacts only to clicks on its box and text, both of which are at its left.
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
}

void type(const QString &text)
{
    for (const QChar character : text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

QString focusedName()
{
    const QWidget *widget = QApplication::focusWidget();
    while (widget && (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_"_L1))) {
        widget = widget->parentWidget();
    }
    return widget ? widget->objectName() : QString();
}

QStringList tabOrder()
{
    QStringList names;
    while (!names.contains(focusedName())) {
        names << focusedName();
        while (focusedName() == names.constLast()) { // a grid has its cells visited first
            press(Qt::Key_Tab);
        }
    }
    return names;
}

void clickCell(SpreadGrid &grid, int column, int row)
{
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cellRect(grid, column, row).center());
}

void typeIntoCell(SpreadGrid &grid, int column, int row, const QString &text)
{
    clickCell(grid, column, row);
    type(text);
}

void enterIntoCell(SpreadGrid &grid, int column, int row, const QString &text)
{
    typeIntoCell(grid, column, row, text);
    press(Qt::Key_Return);
}

QStringList rowsOf(const SpreadGrid &grid)
{
    QStringList rows;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        QStringList texts;
        for (int column = 1; column <= grid.columnCount(); ++column) {
            texts << grid.text(column, row);
        }
        rows << texts.join(u'|');
    }
    return rows;
}
