// The guide is shown in the font that the user has chosen, also when it is chosen while the guide is open.

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "help/HelpBrowser.h"
#include "help/HelpWindow.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QFontDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

class GuideFont : public FrameTest
{
protected:
    ~GuideFont() override
    {
        delete help;
        HelpWindow::setFont(QApplication::font());
    }

    void openHelp()
    {
        HelpFilePath = QStringLiteral(TABRIX_HELP_FOLDER "/TABRIXE.HLP");
        frame().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame(), patience));
        pressKey(frame(), Qt::Key_F1);
        for (QWidget *candidate : QApplication::topLevelWidgets()) {
            help = candidate->objectName() == u"helpWindow" ? candidate : help;
        }
        ASSERT_NE(help, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(help, patience));
    }
    void chooseFont(double points)
    {
        frame().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame(), patience));
        ModalScript script;
        script.then([points](QWidget &window) {
            auto &dialog = dynamic_cast<QFontDialog &>(window);
            QFont font(u"DejaVu Serif"_s);
            font.setPointSizeF(points);
            dialog.setCurrentFont(font);
            dialog.accept();
        });
        chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    }
    HelpBrowser &browser() { return control<HelpBrowser>(*help, u"helpBrowser"_s); }

    QWidget *help = nullptr;
};

} // namespace

TEST_F(GuideFont, isTheUsersFromTheStart)
{
    SaveUserFont(u"DejaVu Sans"_s, 21, false, false);
    start();
    openHelp();
    EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), 21);
    for (const QString &name : {u"helpContents"_s, u"helpIndex"_s, u"helpSearchHits"_s, u"helpSearchText"_s,
             u"helpFind"_s, u"helpTabs"_s, u"helpToolBar"_s}) {
        EXPECT_EQ(control<QWidget>(*help, name).font().pointSizeF(), 21) << name.toStdString();
    }
}

TEST_F(GuideFont, followsTheFontThatIsChosenWhileTheGuideIsOpen)
{
    start();
    openHelp();
    control<QTabWidget>(*help, u"helpTabs"_s).setCurrentIndex(2);
    QTest::keyClicks(&control<QLineEdit>(*help, u"helpSearchText"_s), u"korvelin"_s);
    const double height = browser().document()->size().height();
    chooseFont(24);
    EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), 24);
    EXPECT_EQ(browser().document()->defaultFont().family(), u"DejaVu Serif"_s);
    EXPECT_GT(browser().document()->size().height(), height);
    const auto &hits = control<QListWidget>(*help, u"helpSearchHits"_s);
    EXPECT_EQ(hits.item(0)->font().pointSizeF(), 24) << "the bold titles too";
    openHelp();
    EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), 24);
}

TEST_F(GuideFont, findsRoomForTheTabsAndTheLabels)
{
    SaveUserFont(u"DejaVu Sans"_s, 20, false, false);
    start();
    openHelp();
    const auto &tabs = control<QTabWidget>(*help, u"helpTabs"_s);
    EXPECT_GE(tabs.width(), tabs.tabBar()->sizeHint().width());
    EXPECT_GT(browser().width(), help->width() * 2 / 5) << "the page keeps its room";
    for (const QLineEdit *box : help->findChildren<QLineEdit *>()) {
        const int label = box->fontMetrics().horizontalAdvance(box->placeholderText());
        EXPECT_GT(box->minimumWidth(), label) << box->objectName().toStdString();
    }
}

TEST_F(GuideFont, leavesTheSizeThatTheWheelGaveThePages)
{
    SaveUserFont(u"DejaVu Sans"_s, 12, false, false);
    start();
    openHelp();
    QWidget &page = *browser().viewport();
    const QPointF place(page.rect().center());
    QWheelEvent wheel(
        place, page.mapToGlobal(place), {}, QPoint(0, 120), {}, Qt::ControlModifier, Qt::NoScrollPhase, {});
    QApplication::sendEvent(&page, &wheel);
    const double larger = browser().document()->defaultFont().pointSizeF();
    EXPECT_GT(larger, 12);
    openHelp();
    EXPECT_EQ(browser().document()->defaultFont().pointSizeF(), larger);
}
