// The search of the guide: its hits as they are found, listed, opened and marked in the page.

#include "help/HelpSearch.h"

#include "help/HelpBrowser.h"
#include "help/HelpLibrary.h"
#include "help/HelpWindow.h"
#include "tests/help/HelpFile.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct FoldedPlace
{
    QString text;
    QString typed;
    QString found; ///< empty: nothing
};

void PrintTo(const FoldedPlace &place, std::ostream *out)
{
    *out << place.typed.toStdString() << " in " << place.text.toStdString();
}

class FoldedSpans : public testing::TestWithParam<FoldedPlace>
{
};

class HelpSearchWindow : public testing::Test
{
protected:
    ~HelpSearchWindow() override { delete window; }

    void search(const QString &language, const QString &words)
    {
        ASSERT_TRUE(HelpWindow::showTopic(helpFile(language), 1, nullptr));
        for (QWidget *candidate : QApplication::topLevelWidgets()) {
            window = candidate->objectName() == u"helpWindow" ? candidate : window;
        }
        ASSERT_NE(window, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window, patience));
        control<QTabWidget>(*window, u"helpTabs"_s).setCurrentIndex(2);
        QInputMethodEvent typed; // keys alone give no Japanese
        typed.setCommitString(words);
        QApplication::sendEvent(&control<QLineEdit>(*window, u"helpSearchText"_s), &typed);
    }

    QListWidget &hits() { return control<QListWidget>(*window, u"helpSearchHits"_s); }
    HelpBrowser &browser() { return control<HelpBrowser>(*window, u"helpBrowser"_s); }
    void click(int line)
    {
        hits().scrollToItem(hits().item(line));
        const QPoint place = hits().visualItemRect(hits().item(line)).center();
        QTest::mouseClick(hits().viewport(), Qt::LeftButton, {}, place);
    }

    QStringList marked()
    {
        QStringList texts;
        for (const QTextEdit::ExtraSelection &mark : browser().extraSelections()) {
            texts << mark.cursor.selectedText();
        }
        return texts;
    }
    /// How many pixels of the page that is shown have the colour of a marker pen.
    int markedPixels()
    {
        const QImage shown = browser().viewport()->grab().toImage();
        int pixels = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                pixels += shown.pixelColor(x, y) == QColor(0xff, 0xe0, 0x66) ? 1 : 0;
            }
        }
        return pixels;
    }

    QWidget *window = nullptr;
};

} // namespace

TEST_P(FoldedSpans, areThoseOfTheTextItself)
{
    const QStringList words = FoldedText::words(GetParam().typed);
    ASSERT_EQ(words.size(), 1);
    const QList<TextSpan> places = FoldedText(GetParam().text).spansOf(words.first());
    ASSERT_EQ(places.isEmpty(), GetParam().found.isEmpty());
    for (const TextSpan &place : places) {
        EXPECT_EQ(GetParam().text.mid(place.start, place.length), GetParam().found);
    }
}

INSTANTIATE_TEST_SUITE_P(, FoldedSpans,
    testing::ValuesIn(std::vector<FoldedPlace>{
        {u"Copy and Paste"_s, u"PASTE"_s, u"Paste"_s},
        {u"次にｸﾘｯﾌﾟﾎﾞｰﾄﾞへ"_s, u"クリップボード"_s, u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞ"_s},
        {u"次にクリップボードへ"_s, u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞ"_s, u"クリップボード"_s},
        {u"ｶﾞﾗｽのﾎﾞｰﾄﾞ"_s, u"ボード"_s, u"ﾎﾞｰﾄﾞ"_s},
        {u"Ｃｔｒｌ＋Ｆ"_s, u"ctrl+f"_s, u"Ｃｔｒｌ＋Ｆ"_s},
        {u"a file"_s, u"zebra"_s, {}},
    }));

TEST(HelpSearchTest, givesTheSentencesThatHoldAllTheWords)
{
    const auto library = HelpLibrary::open(helpFile(u"en"_s));
    ASSERT_TRUE(library);
    HelpSearch search(*library);
    const QList<HelpHit> hits = search.find(u"FORGETS clipboard"_s);
    ASSERT_EQ(hits.size(), 1);
    EXPECT_EQ(hits.first().page.fileName(), u"edit.html"_s);
    ASSERT_EQ(hits.first().sentences.size(), 1);
    EXPECT_TRUE(
        hits.first().sentences.first().text.startsWith(u"Esc in the table empties the clipboard and forgets"_s));
    EXPECT_TRUE(hits.first().sentences.first().text.endsWith(u'.'));
}

TEST(HelpSearchTest, givesTheSentencesThatHoldOneOfTheWordsWhereNoneHoldsAll)
{
    const auto library = HelpLibrary::open(helpFile(u"en"_s));
    ASSERT_TRUE(library);
    HelpSearch search(*library);
    const QList<HelpHit> hits = search.find(u"abailable usercorp"_s);
    ASSERT_EQ(hits.size(), 1);
    const QList<HelpSentence> sentences = hits.first().sentences;
    ASSERT_EQ(sentences.size(), 2);
    EXPECT_TRUE(sentences.at(0).text.contains(u"UserCorp"_s)) << "in the page's order";
    EXPECT_TRUE(sentences.at(1).text.contains(u"Abailable Memory:"_s));
}

TEST_F(HelpSearchWindow, listsEachPageWithTheSentencesAndOpensThem)
{
    search(u"en"_s, u"korvelin"_s);
    ASSERT_GT(hits().count(), 1);
    EXPECT_EQ(hits().item(0)->text(), u"Language and settings"_s);
    EXPECT_TRUE(hits().item(0)->font().bold());
    for (int line = 1; line < hits().count(); ++line) {
        EXPECT_TRUE(hits().item(line)->text().contains(u"korvelin"_s, Qt::CaseInsensitive));
        EXPECT_FALSE(hits().item(line)->font().bold());
    }
    click(0);
    EXPECT_EQ(browser().source().fileName(), u"settings.html"_s);
}

TEST_F(HelpSearchWindow, marksTheWordsInThePageUntilTheyAreGone)
{
    search(u"en"_s, u"clipboard copied"_s);
    click(0);
    ASSERT_EQ(browser().source().fileName(), u"edit.html"_s);
    EXPECT_GT(marked().count(u"copied"_s), 3);
    EXPECT_GT(marked().count(u"clipboard"_s), 3);
    EXPECT_EQ(marked().size(),
        marked().filter(u"copied"_s, Qt::CaseInsensitive).size()
            + marked().filter(u"clipboard"_s, Qt::CaseInsensitive).size());
    EXPECT_GT(markedPixels(), 200);

    browser().setSource(browser().source().resolved(QUrl(u"keyboard.html"_s)));
    EXPECT_TRUE(marked().contains(u"clipboard"_s)) << "on the next page too";

    control<QLineEdit>(*window, u"helpSearchText"_s).clear();
    EXPECT_EQ(marked(), QStringList());
    EXPECT_EQ(markedPixels(), 0);
}

TEST_F(HelpSearchWindow, leadsToTheSentence)
{
    search(u"ja"_s, u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞ"_s);
    const QScrollBar &bar = *browser().verticalScrollBar();
    int inTheMiddle = 0;
    for (int line = 0; line < hits().count(); ++line) {
        click(line);
        EXPECT_EQ(FoldedText(browser().textCursor().selectedText()).folded(), u"クリップボード"_s);
        const QRect place = browser().cursorRect();
        EXPECT_TRUE(browser().viewport()->rect().contains(place));
        if (bar.value() > 0 && bar.value() < bar.maximum()) {
            EXPECT_LE(qAbs(place.center().y() - browser().viewport()->height() / 2), 1);
            ++inTheMiddle;
        }
    }
    EXPECT_GT(inTheMiddle, 2);
}

TEST_F(HelpSearchWindow, isUsedByKeysAlone)
{
    search(u"en"_s, u"korvelin"_s);
    control<QLineEdit>(*window, u"helpSearchText"_s).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &hits());
    QTest::keyClick(&hits(), Qt::Key_Down);
    QTest::keyClick(&hits(), Qt::Key_Down);
    QTest::keyClick(&hits(), Qt::Key_Return);
    EXPECT_EQ(browser().source().fileName(), u"settings.html"_s);
    EXPECT_EQ(browser().textCursor().selectedText().toLower(), u"korvelin"_s);
}

TEST_F(HelpSearchWindow, saysThatNothingWasFound)
{
    search(u"en"_s, u"zebra"_s);
    ASSERT_EQ(hits().count(), 1);
    EXPECT_EQ(hits().item(0)->text(), u"No page holds all these words."_s);
    EXPECT_FALSE(hits().item(0)->flags() & Qt::ItemIsEnabled);
    click(0);
    EXPECT_EQ(browser().source().fileName(), u"index.html"_s);
    control<QLineEdit>(*window, u"helpSearchText"_s).clear();
    EXPECT_EQ(hits().count(), 0);
}
