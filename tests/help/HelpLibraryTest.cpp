// What the help files hold: topics, links, contents and the words that can be searched for.

#include "help/HelpLibrary.h"

#include "help/HelpSearch.h"
#include "tests/help/HelpFile.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QHelpContentWidget>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString text(const HelpLibrary &library, const QUrl &page)
{
    return QString::fromUtf8(library.data(page));
}

/// The pages of a language, whether the help file has them or not.
QStringList pagesWritten(const QString &language)
{
    return QDir(QStringLiteral(TABRIX_GUIDE_FOLDER "/") + language).entryList({u"*.html"_s}, QDir::Files, QDir::Name);
}

class HelpInLanguage : public testing::TestWithParam<const char *>
{
protected:
    QString file = helpFile(QString::fromLatin1(GetParam()));
};

} // namespace

TEST_P(HelpInLanguage, opensTheTopicOfEachContextNumber)
{
    const QHash<int, QString> pages{
        {1, u"index.html"_s}, {50, u"funccode.html"_s}, {60, u"conditions.html"_s}, {100, u"machine.html"_s}};
    const auto library = HelpLibrary::open(file);
    ASSERT_TRUE(library);
    for (auto [context, page] : pages.asKeyValueRange()) {
        EXPECT_EQ(library->topic(context).fileName(), page);
    }
    EXPECT_EQ(library->topic(4711).fileName(), u"index.html"_s);
}

TEST_P(HelpInLanguage, hasNoLinkThatLeadsNowhere)
{
    const auto library = HelpLibrary::open(file);
    ASSERT_TRUE(library);
    static const QRegularExpression link(u"(?:href|src)=\"([^\"]*)\""_s);
    int links = 0;
    for (const QUrl &page : library->pages()) {
        for (const auto &match : link.globalMatch(text(*library, page))) {
            const QUrl target = page.resolved(QUrl(match.captured(1)));
            const QString content = text(*library, target.adjusted(QUrl::RemoveFragment));
            ++links;
            EXPECT_FALSE(content.isEmpty()) << target.toString().toStdString();
            EXPECT_TRUE(!target.hasFragment() || content.contains(u"name=\"%1\""_s.arg(target.fragment())))
                << target.toString().toStdString();
        }
    }
    EXPECT_GT(links, 60);
}

TEST_P(HelpInLanguage, givesEveryPageATitleAndAPlaceInTheContents)
{
    const auto library = HelpLibrary::open(file);
    ASSERT_TRUE(library);
    QHelpContentModel *contents = library->engine().contentModel();
    ASSERT_TRUE(QTest::qWaitFor([&] { return contents->rowCount() > 0; }, patience));
    QHelpContentWidget *tree = library->engine().contentWidget();
    const std::unique_ptr<QWidget> treeOwner(tree);
    ASSERT_EQ(library->pages().size(), pagesWritten(QString::fromLatin1(GetParam())).size());
    for (const QUrl &page : library->pages()) {
        const QModelIndex place = tree->indexOf(page);
        ASSERT_TRUE(place.isValid()) << page.toString().toStdString();
        const QString title = place.data().toString().toHtmlEscaped();
        EXPECT_TRUE(text(*library, page).contains(u"<title>%1</title>"_s.arg(title))) << title.toStdString();
    }
}

TEST(HelpPages, areThereInBothLanguages)
{
    EXPECT_GE(pagesWritten(u"en"_s).size(), 18);
    EXPECT_EQ(pagesWritten(u"en"_s), pagesWritten(u"ja"_s));
}

TEST_P(HelpInLanguage, namesEveryControlOfTheWindow)
{
    const auto library = HelpLibrary::open(file);
    ASSERT_TRUE(library);
    for (const char *key : {"back", "forward", "home", "print", "find", "contents", "index", "search", "indexFilter",
             "searchWords", "nothingFound"}) {
        EXPECT_FALSE(library->label(QString::fromLatin1(key)).isEmpty()) << key;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpInLanguage, testing::Values("en", "ja"));

TEST(HelpSearchTest, findsPagesThatHoldEveryWordInAnyCase)
{
    const auto library = HelpLibrary::open(helpFile(u"en"_s));
    ASSERT_TRUE(library);
    HelpSearch search(*library);
    const QList<HelpHit> hits = search.find(u"  KORVELIN ini "_s);
    ASSERT_EQ(hits.size(), 1);
    EXPECT_EQ(hits.first().page.fileName(), u"settings.html"_s);
    EXPECT_TRUE(search.find(u"korvelin zebra"_s).isEmpty());
    EXPECT_TRUE(search.find(u"  "_s).isEmpty());
    const QList<HelpHit> many = search.find(u"clipboard"_s);
    ASSERT_GT(many.size(), 2);
    EXPECT_EQ(many.first().page.fileName(), u"edit.html"_s);
    EXPECT_GE(many.at(0).count, many.at(1).count);
}

TEST(HelpSearchTest, findsPartsOfJapaneseWordsInHalfAndFullWidth)
{
    const auto library = HelpLibrary::open(helpFile(u"ja"_s));
    ASSERT_TRUE(library);
    HelpSearch search(*library);
    const auto pages = [&](const QString &words) {
        QStringList names;
        for (const HelpHit &hit : search.find(words)) {
            names << hit.page.fileName();
        }
        return names;
    };
    EXPECT_EQ(pages(u"挿入貼り付け"_s).first(), u"edit.html"_s);
    EXPECT_EQ(pages(u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞ"_s), pages(u"クリップボード"_s));
    EXPECT_TRUE(pages(u"ｸﾘｯﾌﾟﾎﾞｰﾄﾞ"_s).contains(u"keyboard.html"_s));
}
