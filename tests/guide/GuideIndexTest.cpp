// What has no line in a menu is found in the guide's index.

#include "help/HelpBrowser.h"
#include "help/HelpWindow.h"
#include "tests/help/HelpFile.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What a user looks for, in each language, and what the place that the index leads to says.
struct Looked
{
    const char16_t *english;
    const char16_t *japanese;
    const char *place; ///< page and anchor
    const char16_t *says; ///< within the section, in both languages
};

constexpr Looked lookedFor[] = {
    {u"Undo", u"元に戻す", "edit.html#undo", u"Ctrl+Z"},
    {u"Redo", u"やり直し", "edit.html#undo", u"Ctrl+Y"},
    {u"Find", u"検索（表の中）", "keyboard.html#find", u"Shift+Enter"},
    {u"Zoom", u"拡大と縮小", "view.html#zoom", u"Ctrl+0"},
    {u"Fill", u"フィル（まとめて入力）", "edit.html#fill", u"Ctrl+R"},
    {u"Fill down", u"下へコピー", "edit.html#fill", u"Ctrl+D"},
    {u"Fill right", u"右へコピー", "edit.html#fill", u"Ctrl+R"},
    {u"Series", u"連続データ", "edit.html#fill", u"Ctrl+Shift+D"},
    {u"Tick several boxes", u"チェックをまとめて付ける", "edit.html#fill", u"Space"},
    {u"Next changed cell", u"次の変更したセル", "grid.html#colours", u"F7"},
    {u"Previous changed cell", u"前の変更したセル", "grid.html#colours", u"Shift+F7"},
    {u"Next error", u"次のエラー", "findings.html#keys", u"F8"},
    {u"Previous error", u"前のエラー", "findings.html#keys", u"Shift+F8"},
    {u"Rules for checks", u"チェックの規則", "findings.html#meaning", u"tabrix-check.ini"},
    {u"Recovery", u"復旧", "files.html#recovery", u"recovery"},
    {u"Jump to a parameter", u"ジャンプ", "frame.html#jump", u"Enter"},
};

class GuideIndex : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(HelpWindow::showTopic(helpFile(QString::fromLatin1(GetParam())), 1, nullptr));
        for (QWidget *candidate : QApplication::topLevelWidgets()) {
            window = candidate->objectName() == u"helpWindow" ? candidate : window;
        }
        ASSERT_NE(window, nullptr);
        control<QTabWidget>(*window, u"helpTabs"_s).setCurrentIndex(1);
        const auto &index = control<QListView>(*window, u"helpIndex"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return index.model()->rowCount() > 0; }, patience));
    }
    void TearDown() override { delete window; }

    QString browse() { return browser().source().fileName() + u'#' + browser().source().fragment(); }
    HelpBrowser &browser() { return control<HelpBrowser>(*window, u"helpBrowser"_s); }

    QWidget *window = nullptr;
};

} // namespace

TEST_P(GuideIndex, hasAnEntryForWhatHasNoMenuLine)
{
    auto &filter = control<QLineEdit>(*window, u"helpIndexFilter"_s);
    const auto &index = control<QListView>(*window, u"helpIndex"_s);
    for (const Looked &looked : lookedFor) {
        const bool isJapanese = QLatin1StringView(GetParam()) == "ja"_L1;
        const QString words = QString::fromUtf16(isJapanese ? looked.japanese : looked.english);
        SCOPED_TRACE(words.toStdString());
        filter.setText(words);
        EXPECT_EQ(index.currentIndex().data().toString(), words);
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_EQ(browse(), QLatin1StringView(looked.place));
        const QString page = browser().toPlainText();
        EXPECT_TRUE(page.contains(QString::fromUtf16(looked.says)));
    }
}

TEST_P(GuideIndex, firstStepsNameTheKeysThatHelpMost)
{
    browser().setSource(browser().source().resolved(QUrl(u"first-steps.html"_s)));
    for (const QString &key : {u"Ctrl+F"_s, u"Ctrl+G"_s, u"Ctrl+Z"_s}) {
        EXPECT_TRUE(browser().toPlainText().contains(key)) << key.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    , GuideIndex, testing::Values("en", "ja"), [](const auto &language) { return std::string(language.param); });
