#include "app/WindowArrangement.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <vector>

using namespace Qt::StringLiterals;

class FrameWindow : public FrameTest
{
protected:
    void SetUp() override { start(); }
    QLineEdit &box() { return control<QLineEdit>(frame(), u"txtPr"_s); }
    QLabel &tip() { return control<QLabel>(frame(), u"sspnlToolTip"_s); }
    QTimer &timer() { return control<QTimer>(frame(), u"Timer1"_s); }
    void open(const QByteArray &bytes) { ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, bytes))); }
    void jumpTo(const QString &number)
    {
        box().setFocus();
        QTest::keyClicks(&box(), number);
        QTest::keyClick(&box(), Qt::Key_Return);
    }
    void moveOver(QWidget &widget)
    {
        QCursor::setPos(widget.mapToGlobal(widget.rect().center()));
        QTest::mouseMove(&widget, widget.rect().center() - QPoint(1, 1));
        QTest::mouseMove(&widget, widget.rect().center());
    }
};

TEST_F(FrameWindow, jumpsToAParameterAndPutsItsRowOnTop)
{
    open(document(500));
    jumpTo(u"400"_s);
    EXPECT_EQ(grid().activeRow(), 400);
    EXPECT_EQ(grid().activeColumn(), 1);
    EXPECT_EQ(grid().topRow(), 400);
    EXPECT_TRUE(grid().hasFocus());
}

TEST_F(FrameWindow, endsAtTheLastOfSeveralEqualNumbers)
{
    open(document(500));
    grid().setText(1, 300, u"7.0"_s);
    jumpTo(u"7"_s);
    EXPECT_EQ(grid().activeRow(), 300);
}

TEST_F(FrameWindow, leavesTheViewWhenNoRowHasTheNumber)
{
    open(document(500));
    grid().setActiveCell(2, 5);
    grid().setTopRow(3);
    for (const QString &number : {u"999"_s, u"99999"_s}) {
        jumpTo(number);
        EXPECT_EQ(grid().activeRow(), 5);
        EXPECT_EQ(grid().topRow(), 3);
        EXPECT_TRUE(grid().hasFocus());
    }
}

TEST_F(FrameWindow, searchesForZeroFromAnEmptyBox)
{
    open(document(20));
    grid().setText(1, 12, u"0"_s);
    box().clear();
    jumpTo({});
    EXPECT_EQ(grid().activeRow(), 12);
}

TEST_F(FrameWindow, doesNothingOnEnterWithoutAWindow)
{
    editor().parentWidget()->close();
    jumpTo(u"1"_s);
    EXPECT_TRUE(frame().isVisible());
}

TEST_F(FrameWindow, selectsTheJumpBoxTextOnFocus)
{
    open(document(20));
    grid().setActiveCell(1, 12);
    EXPECT_EQ(box().text(), u"12"_s);
    box().setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(box().selectedText(), u"12"_s);
}

TEST_F(FrameWindow, alignsTheStatusBarToItsRightEdge)
{
    const int gap = 50 * frame().logicalDpiX() / 1440;
    for (const int width : {1000, 700}) {
        frame().showNormal();
        frame().resize(width, 500);
        QApplication::processEvents();
        const QWidget &bar = *box().parentWidget();
        const auto &number = control<QLabel>(frame(), u"lblPrCaption"_s);
        const auto &count = control<QLabel>(frame(), u"lblPrcount"_s);
        const auto &countCaption = control<QLabel>(frame(), u"lblPrcountCaption"_s);
        EXPECT_EQ(box().x() + box().width(), bar.width() - gap);
        EXPECT_EQ(number.x() + number.width(), box().x());
        EXPECT_EQ(count.x() + count.width(), number.x());
        EXPECT_EQ(countCaption.x() + countCaption.width(), count.x() - gap);
    }
}

struct Tip
{
    QString button;
    QString english;
    QString japanese;
};

void PrintTo(const Tip &tip, std::ostream *out)
{
    PrintTo(tip.button, out);
}

class ToolTips : public FrameWindow, public testing::WithParamInterface<Tip>
{
};

TEST_P(ToolTips, showWhileTheMouseIsOverTheButton)
{
    for (const auto &[country, text] : {std::pair(1, GetParam().english), std::pair(81, GetParam().japanese)}) {
        setCountryCode(country);
        start();
        RibbonButton &button = toolButton(GetParam().button);
        button.setEnabled(true);
        moveOver(button);
        EXPECT_TRUE(timer().isActive());
        EXPECT_EQ(timer().interval(), 100);
        frame().ShowTip();
        EXPECT_EQ(tip().text(), text);
        EXPECT_TRUE(tip().isVisible());
        EXPECT_TRUE(frame().rect().contains(tip().geometry()));
        QCursor::setPos(grid().mapToGlobal(grid().rect().center()));
        EXPECT_TRUE(QTest::qWaitFor([&] { return tip().isHidden(); }, patience));
        EXPECT_EQ(tip().text(), QString());
        EXPECT_FALSE(timer().isActive());
    }
}

INSTANTIATE_TEST_SUITE_P(Buttons, ToolTips,
    testing::ValuesIn(std::vector<Tip>{
        {u"ssrbnOpen"_s, u"File open"_s, u"ファイルを開きます"_s},
        {u"ssrbnSave"_s, u"File save"_s, u"ファイルの上書き保存をします"_s},
        {u"ssrbnPrint"_s, u"Print"_s, u"現在表示中のファイルを印刷します"_s},
        {u"ssrbnEdit(0)"_s, u"Cut"_s, u"選択している文字を切り取り、ｸﾘｯﾌﾟﾎﾞｰﾄﾞに貼り付けます"_s},
        {u"ssrbnEdit(1)"_s, u"Copy"_s, u"選択している文字をｺﾋﾟｰし、ｸﾘｯﾌﾟﾎﾞｰﾄﾞに貼り付けます"_s},
        {u"ssrbnEdit(2)"_s, u"Paste"_s, u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞから文字を表に貼り付けます"_s},
        {u"ssrbnEdit(3)"_s, u"Add line and Paste"_s, u"行を挿入し、ｸﾘｯﾌﾟﾎﾞｰﾄﾞから文字を貼り付けます"_s},
        {u"ssrbnEdit(4)"_s, u"Add line"_s, u"現在選択している行の前に空白行を挿入します"_s},
        {u"ssrbnEdit(5)"_s, u"Delete line"_s, u"現在選択している行を削除します"_s},
        {u"ssrbnEdit(6)"_s, u"Functional list code inf."_s, u"機能ﾘｽﾄｺｰﾄﾞ編集パネルを表示します"_s},
        {u"ssrbnEdit(7)"_s, u"Machine inf."_s, u"機種情報パネルを表示します"_s},
    }));

TEST_F(FrameWindow, endsATipWhenTheMouseMovesOverTheToolBar)
{
    RibbonButton &button = toolButton(u"ssrbnOpen"_s);
    moveOver(button);
    frame().ShowTip();
    ASSERT_TRUE(tip().isVisible());
    QWidget &bar = *button.parentWidget();
    QTest::mouseMove(&bar, QPoint(bar.width() - 2, bar.height() / 2));
    QTest::mouseMove(&bar, QPoint(bar.width() - 4, bar.height() / 2));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tip().isHidden(); }, patience));
}

TEST_F(FrameWindow, hidesAndShowsItsBars)
{
    const std::pair<QString, QString> bars[] = {
        {u"mneVisualItem(0)"_s, u"pictToolBar"_s},
        {u"mneVisualItem(1)"_s, u"sspnlStatus"_s},
    };
    for (const bool withDocument : {true, false}) {
        if (!withDocument) {
            editor().parentWidget()->close();
        }
        for (const auto &[item, name] : bars) {
            const auto &bar = control<QWidget>(frame(), name);
            EXPECT_TRUE(menuCommand(u"mneVisual"_s, item).isChecked());
            chooseMenu(u"mneVisual"_s, item);
            EXPECT_FALSE(bar.isVisible());
            EXPECT_FALSE(menuCommand(u"mneVisual"_s, item).isChecked());
            chooseMenu(u"mneVisual"_s, item);
            EXPECT_TRUE(bar.isVisible());
            EXPECT_TRUE(menuCommand(u"mneVisual"_s, item).isChecked());
        }
    }
}

TEST_F(FrameWindow, carriesTheBarMarksFromWindowToWindow)
{
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(0)"_s);
    open(document(2));
    EXPECT_FALSE(menuCommand(u"mneVisual"_s, u"mneVisualItem(0)"_s).isChecked());
    EXPECT_TRUE(menuCommand(u"mneVisual"_s, u"mneVisualItem(1)"_s).isChecked());
}

TEST_F(FrameWindow, tilesItsWindowsFromTopToBottom)
{
    open(document(2));
    chooseMenu(u"mneWin"_s, u"mneWinItem(1)"_s);
    const QRect first = frame().openEditors().at(0)->parentWidget()->geometry();
    const QRect second = frame().openEditors().at(1)->parentWidget()->geometry();
    EXPECT_EQ(first.width(), frame().centralWidget()->width());
    EXPECT_EQ(first.width(), second.width());
    EXPECT_EQ(first.bottom() + 1, second.top());
}

TEST_F(FrameWindow, cascadesItsWindows)
{
    open(document(2));
    chooseMenu(u"mneWin"_s, u"mneWinItem(1)"_s);
    chooseMenu(u"mneWin"_s, u"mneWinItem(0)"_s);
    const QPoint first = frame().openEditors().at(0)->parentWidget()->pos();
    const QPoint second = frame().openEditors().at(1)->parentWidget()->pos();
    EXPECT_GT(second.x(), first.x());
    EXPECT_GT(second.y(), first.y());
}

TEST_F(FrameWindow, cascadesNoWindowBeyondTheArea)
{
    open(document(2000));
    open(document(2000));
    chooseMenu(u"mneWin"_s, u"mneWinItem(0)"_s);
    const QRect area = frame().findChild<QMdiArea *>()->viewport()->rect();
    for (const frmPrFile *editor : frame().openEditors()) {
        EXPECT_TRUE(area.contains(editor->parentWidget()->geometry()));
    }
}

TEST_F(FrameWindow, listsItsWindowsInTheWindowMenu)
{
    open(document(2));
    auto &menu = *qobject_cast<QMenu *>(menuCommand(u"mneWin"_s, u"mneWinItem(0)"_s).parent());
    emit menu.aboutToShow();
    emit menu.aboutToShow();
    const QList<QAction *> actions = menu.actions();
    ASSERT_EQ(actions.size(), 5);
    EXPECT_EQ(actions[3]->text(), u"&1 No Name"_s);
    EXPECT_TRUE(actions[4]->isChecked());
    actions[3]->trigger();
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
}

TEST_F(FrameWindow, switchesWindowsByKeyboard)
{
    open(document(2));
    QTest::keyPress(&frame(), Qt::Key_Control);
    QTest::keyClick(&grid(), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(&frame(), Qt::Key_Control);
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
}

TEST_F(FrameWindow, closesAWindowOnCtrlF4)
{
    open(document(2));
    QTest::keyClick(&grid(), Qt::Key_F4, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(frame().openEditors().size(), 1);
}

TEST_F(FrameWindow, exitsByItsKey)
{
    QTest::keyClick(&grid(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(frame().isVisible());
}

TEST_F(FrameWindow, survivesEveryButtonWithoutAWindow)
{
    editor().parentWidget()->close();
    for (int i = 0; i < 8; ++i) {
        toolButton(u"ssrbnEdit(%1)"_s.arg(i)).setEnabled(true);
        clickTool(u"ssrbnEdit(%1)"_s.arg(i));
    }
    for (const QString &name : {u"ssrbnSave"_s, u"ssrbnPrint"_s}) {
        toolButton(name).setEnabled(true);
        clickTool(name);
    }
    EXPECT_TRUE(frame().isVisible());
}

TEST_F(FrameWindow, leavesPushedButtonsUp)
{
    for (const int index : {1, 4}) {
        RibbonButton &button = toolButton(u"ssrbnEdit(%1)"_s.arg(index));
        clickTool(button.objectName());
        EXPECT_FALSE(button.value());
    }
    EXPECT_EQ(grid().rowCount(), 2); // added once, not for the value that the click itself changed
}

struct TileCase
{
    int windows;
    QList<QRect> places;
};

class Tiles : public testing::TestWithParam<TileCase>
{
};

TEST_P(Tiles, coverTheArea)
{
    EXPECT_EQ(tiledHorizontally(QRect(0, 0, 100, 90), GetParam().windows), GetParam().places);
}

INSTANTIATE_TEST_SUITE_P(Windows, Tiles,
    testing::ValuesIn(std::vector<TileCase>{
        {0, {}},
        {1, {QRect(0, 0, 100, 90)}},
        {2, {QRect(0, 0, 100, 45), QRect(0, 45, 100, 45)}},
        {3, {QRect(0, 0, 100, 30), QRect(0, 30, 100, 30), QRect(0, 60, 100, 30)}},
        {4, {QRect(0, 0, 50, 45), QRect(0, 45, 50, 45), QRect(50, 0, 50, 45), QRect(50, 45, 50, 45)}},
        {5,
            {QRect(0, 0, 50, 45), QRect(0, 45, 50, 45), QRect(50, 0, 50, 30), QRect(50, 30, 50, 30),
                QRect(50, 60, 50, 30)}},
    }));
