#include "tests/longday/DayHands.h"

#include "app/MDIfrmTabrix.h"
#include "desktop/RibbonButton.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Controls.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

bool DayHands::carryOut(const QJsonObject &command)
{
    const QString act = command[u"do"_s].toString();
    const QString text = command[u"text"_s].toString();
    const int number = command[u"number"_s].toInt();
    if (act == "click"_L1) {
        click(command[u"column"_s].toInt(), command[u"row"_s].toInt(), command[u"extend"_s].toBool());
    } else if (act == "press"_L1) {
        press(text);
    } else if (act == "type"_L1) {
        type(text);
    } else if (act == "chooseLast"_L1) {
        chooseLast();
    } else if (act == "jump"_L1) {
        jump(text);
    } else if (act == "tool"_L1) {
        QTest::mouseClick(&control<RibbonButton>(m_frame, text), Qt::LeftButton);
    } else if (act == "menu"_L1) {
        choose(command[u"menu"_s].toString(), text);
    } else if (act == "recent"_L1) {
        chooseRecent(number);
    } else if (act == "window"_L1) {
        chooseWindow(number);
    } else if (act == "minimise"_L1) {
        minimise();
    } else if (act == "closeFrame"_L1) {
        m_frame.windowHandle()->close(); // as when the window manager asks
    } else if (act == "refresh"_L1) {
        m_frame.recovery().refresh();
    } else if (act == "awaitInactive"_L1) {
        return QTest::qWaitFor([this] { return !m_frame.isActiveWindow(); }, 30'000);
    } else if (act == "awaitMaximised"_L1) {
        return QTest::qWaitFor([this] { return m_frame.isMaximized() && !m_frame.isMinimized(); }, 30'000);
    } else {
        return act == "look"_L1;
    }
    return true;
}

SpreadGrid &DayHands::grid() const
{
    return m_frame.activeEditor()->vaspdParam();
}

/// column 0: the row's number.
void DayHands::click(int column, int row, bool extend)
{
    SpreadGrid &view = grid();
    const Qt::KeyboardModifiers modifiers = extend ? Qt::ShiftModifier : Qt::NoModifier;
    const QModelIndex index = view.model()->index(row - 1, std::max(column, 1) - 1);
    view.scrollTo(index);
    QPoint place = view.visualRect(index).center();
    if (column == 0) {
        const QWidget *numbers = view.verticalHeader()->viewport();
        place.setX(numbers->width() / 2);
    }
    QTest::mouseClick(
        column == 0 ? view.verticalHeader()->viewport() : view.viewport(), Qt::LeftButton, modifiers, place);
}

void DayHands::press(const QString &keys)
{
    const QKeyCombination key = QKeySequence(keys, QKeySequence::PortableText)[0];
    QWidget *focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &m_frame, key.key(), key.keyboardModifiers());
}

void DayHands::type(const QString &text)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // an editor of an earlier edit
    press(u"F2"_s);
    auto &editor = control<QWidget>(grid(), u"cellEditor"_s);
    QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&editor, text);
    QTest::keyClick(&editor, Qt::Key_Return);
}

void DayHands::chooseLast()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SpreadGrid &view = grid();
    press(u"F2"_s);
    auto &list = control<QComboBox>(view, u"cellEditor"_s);
    QTest::keyClick(list.view(), Qt::Key_End);
    QTest::keyClick(list.view(), Qt::Key_Return);
    if (!QTest::qWaitFor([&view] { return !view.findChild<QComboBox *>(u"cellEditor"_s); }, 30'000)) {
        throw std::runtime_error("the list of steps does not close");
    }
}

void DayHands::jump(const QString &text)
{
    press(u"Ctrl+G"_s);
    auto &box = control<QLineEdit>(m_frame, u"txtPr"_s);
    if (QApplication::focusWidget() != &box) {
        throw std::runtime_error("the jump box has not the focus");
    }
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Return);
}

QMenu &DayHands::menuInBar(const QString &name) const
{
    for (const QAction *action : m_frame.menuBar()->actions()) {
        if (action->menu() && action->menu()->objectName() == name) {
            return *action->menu();
        }
    }
    throw std::runtime_error("the menu bar has no menu " + name.toStdString());
}

void DayHands::chooseFrom(QMenu &menu, QAction &action)
{
    QMenuBar &bar = *m_frame.menuBar();
    const QPointer<QMenu> shown = &menu;
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
    if (!menu.isVisible() || !action.isVisible()) {
        throw std::runtime_error("the menu does not show " + action.objectName().toStdString());
    }
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
    if (shown && shown->isVisible()) { // a disabled command leaves it open
        shown->close();
    }
}

void DayHands::choose(const QString &menuName, const QString &command)
{
    QMenu &menu = menuInBar(menuName);
    chooseFrom(menu, control<QAction>(menu, command));
}

void DayHands::chooseRecent(int number)
{
    choose(u"mneFile"_s, u"mnuRecentFile(%1)"_s.arg(number));
}

void DayHands::chooseWindow(int docNo)
{
    QMenu &menu = menuInBar(u"mneWin"_s);
    int place = 0;
    for (const frmPrFile *editor : m_frame.openEditors()) {
        ++place;
        if (editor->document().number() == docNo) {
            break;
        }
    }
    QMenuBar &bar = *m_frame.menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
    QList<QAction *> items = menu.findChildren<QAction *>(u"windowListItem"_s);
    items.removeIf([](const QAction *item) { return item->isSeparator(); });
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(items.at(place - 1)).center());
}

void DayHands::minimise()
{
    m_frame.showMinimized();
    if (!QTest::qWaitFor([this] { return m_frame.isMinimized() && !m_frame.isActiveWindow(); }, 30'000)) {
        throw std::runtime_error("the frame is not minimised");
    }
}
