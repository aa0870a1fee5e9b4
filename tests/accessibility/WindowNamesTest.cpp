// Every window, as a screen reader and a keyboard user meet it.

#include "editor/FindField.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "help/HelpWindow.h"
#include "runtime/Country.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTabWidget>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Language = void (*)();

class DialogForAll : public testing::TestWithParam<std::tuple<OpenedDialog, Language>>
{
protected:
    void SetUp() override { std::get<Language>(GetParam())(); }
    void TearDown() override { useEnglish(); }

    static QString badIn(QStringList (*check)(QWidget &))
    {
        QString bad = u"not opened"_s;
        std::get<OpenedDialog>(GetParam()).open([&](QDialog &dialog) {
            bad = check(dialog).join(u"; "_s);
            dialog.reject();
        });
        return bad;
    }
};

class FrameForAll : public FrameTest, public testing::WithParamInterface<int>
{
protected:
    FrameForAll() { setCountryCode(GetParam()); }

    void SetUp() override
    {
        start(writeFile(u"a.inv"_s, document(30)));
        QTest::keyClick(&grid(), Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(control<FindField>(editor(), u"txtFind"_s).isVisible());
    }
};

class HelpForAll : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(
            HelpWindow::showTopic(QStringLiteral(TABRIX_HELP_FOLDER "/") + QLatin1StringView(GetParam()), 1, {}));
        for (QWidget *candidate : QApplication::topLevelWidgets()) {
            window = candidate->objectName() == u"helpWindow" ? candidate : window;
        }
        ASSERT_NE(window, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window, patience));
        for (QLineEdit *box : window->findChildren<QLineEdit *>()) {
            box->setText(u"zzzzz"_s); // so that it can be cleared; and lists without a line are the hardest to see
        }
    }
    void TearDown() override { delete window; }

    QString badIn(QStringList (*check)(QWidget &))
    {
        QStringList bad;
        auto &tabs = control<QTabWidget>(*window, u"helpTabs"_s);
        for (int i = 0; i < tabs.count(); ++i) {
            tabs.setCurrentIndex(i);
            QApplication::processEvents();
            bad << check(*window);
        }
        return bad.join(u"; "_s);
    }

    QWidget *window = nullptr;
};

std::string dialogTestName(const testing::TestParamInfo<std::tuple<OpenedDialog, Language>> &info)
{
    const auto &[dialog, language] = info.param;
    return std::string(dialog.name) + (language == useJapanese ? "Japanese" : "English");
}

} // namespace

TEST_P(DialogForAll, everyControlHasAName)
{
    EXPECT_EQ(badIn(badlyNamedIn), QString());
}

TEST_P(DialogForAll, theFocusIsVisible)
{
    EXPECT_EQ(badIn(withoutVisibleFocusIn), QString());
}

INSTANTIATE_TEST_SUITE_P(, DialogForAll,
    testing::Combine(testing::ValuesIn(openedDialogs), testing::Values(useEnglish, useJapanese)), dialogTestName);

TEST_P(FrameForAll, everyControlAndMenuLineHasAName)
{
    EXPECT_EQ(badlyNamedIn(frame()).join(u"; "_s), QString());
    EXPECT_GE(controlsOf(frame()).size(), 15) << "tool bar, jump box, find field, grid and its corner";
    EXPECT_EQ(spokenName(grid()), editor().windowTitle());
}

TEST_P(FrameForAll, theFocusIsVisible)
{
    EXPECT_EQ(withoutVisibleFocusIn(frame()).join(u"; "_s), QString());
}

TEST_P(FrameForAll, cellEditorsAreCalledAsTheirColumns)
{
    for (int column = 1; column <= grid().columnCount(); ++column) {
        grid().setActiveCell(column, 1);
        grid().setFocus();
        QTest::keyClick(&grid(), Qt::Key_F2);
        QWidget *cellEditor = QApplication::focusWidget();
        if (cellEditor != &grid()) { // a check box has none
            EXPECT_EQ(spokenName(*cellEditor), grid().text(column, 0));
        }
        grid().commitEdit();
    }
}

TEST_P(FrameForAll, theFocusIsVisibleWhereverTheGridIsScrolled)
{
    const auto differs = [this] {
        grid().setFocus();
        const QImage with = grid().grab().toImage();
        grid().clearFocus();
        return with != grid().grab().toImage();
    };
    grid().setActiveCell(2, 1);
    EXPECT_TRUE(differs());
    grid().setTopRow(20);
    ASSERT_GT(grid().topRow(), 1);
    EXPECT_TRUE(differs());
    grid().setActiveCell(2, grid().topRow());
    grid().setColumnShown(2, false);
    EXPECT_TRUE(differs());
}

TEST_P(FrameForAll, scrollingLeavesNoTraceOfTheFocus)
{
    const auto onScreen = [this] {
        QApplication::processEvents();
        return frame().screen()->grabWindow(frame().winId()).toImage();
    };
    QTest::keyClick(&control<FindField>(editor(), u"txtFind"_s), Qt::Key_Escape);
    grid().setActiveCell(2, 1);
    grid().setFocus();
    for (const int row : {8, 10, 9, 3, 1, 7}) {
        grid().setTopRow(row);
        const QImage scrolled = onScreen();
        grid().viewport()->update();
        EXPECT_EQ(scrolled, onScreen()) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(, FrameForAll, testing::Values(1, 81));

TEST_P(HelpForAll, everyControlHasAName)
{
    EXPECT_EQ(badIn(badlyNamedIn), QString());
}

TEST_P(HelpForAll, theFocusIsVisible)
{
    EXPECT_EQ(badIn(withoutVisibleFocusIn), QString());
}

INSTANTIATE_TEST_SUITE_P(, HelpForAll, testing::Values("TABRIXE.HLP", "TABRIX.HLP"));

// The label that a sighted user reads is the one that is spoken.
struct Labelled
{
    DialogOpener open;
    const char *control;
    const char *name;
};

void PrintTo(const Labelled &labelled, std::ostream *out)
{
    *out << labelled.control;
}

class LabelledControl : public testing::TestWithParam<Labelled>
{
};

TEST_P(LabelledControl, isCalledAsItsLabel)
{
    useEnglish();
    QString name;
    GetParam().open([&](QDialog &dialog) {
        name = spokenName(control<QWidget>(dialog, QString::fromLatin1(GetParam().control)));
        dialog.reject();
    });
    EXPECT_EQ(name, QString::fromLatin1(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(, LabelledControl,
    testing::ValuesIn(std::vector<Labelled>{
        {openKisyuEdit, "txtV", "Voltage Code:"},
        {openKisyuEdit, "vaSpread1", "Capacity:"},
        {openPrCond, "vaspdCond(0)", "Pr Condition"},
        {openPrCond, "vaspdCond(2)", "Option Cond."},
        {openVisibleColumns, "vaspdVisualInf", "Display row:"},
        {openPrint, "txtPage(0)", "Page to"},
    }));
