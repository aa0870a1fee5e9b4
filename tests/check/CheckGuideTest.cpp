// The guide explains every check in the words of the checks themselves.

#include "check/CheckIds.h"
#include "check/CheckTexts.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString pageOf(CheckLanguage language)
{
    const auto folder = language == CheckLanguage::Japanese ? u"/ja/"_s : u"/en/"_s;
    QFile page(QStringLiteral(TABRIX_GUIDE_FOLDER) + folder + u"findings.html"_s);
    EXPECT_TRUE(page.open(QFile::ReadOnly));
    return QString::fromUtf8(page.readAll());
}

/// What is said from the check's anchor to the next one.
QString partOf(const QString &page, QLatin1StringView name)
{
    const qsizetype begin = page.indexOf(u"<a name=\"%1\">"_s.arg(name));
    EXPECT_GE(begin, 0) << name.data();
    return page.sliced(std::max<qsizetype>(begin, 0)).section(u"</p>"_s, 0, 0);
}

TEST(CheckGuide, explainsEveryCheckInBothLanguages)
{
    for (const CheckLanguage language : {CheckLanguage::English, CheckLanguage::Japanese}) {
        const QString page = pageOf(language);
        const bool isEnglish = language == CheckLanguage::English;
        const QString severities[] = {isEnglish ? u"Note."_s : u"注記。"_s, isEnglish ? u"Warning."_s : u"警告。"_s,
            isEnglish ? u"Error."_s : u"エラー。"_s};
        for (const CheckText &text : checkTexts(language)) {
            const CheckInfo &info = checkInfo(text.id);
            const QString part = partOf(page, info.name);
            EXPECT_TRUE(part.contains(severities[std::size_t(info.severity)])) << info.name.data();
            for (const QStringView said : {text.explanation, text.example, text.remedy}) {
                EXPECT_TRUE(part.contains(said.toString().toHtmlEscaped())) << info.name.data();
            }
        }
    }
}

TEST(CheckGuide, explainsNoCheckThatIsNotThere)
{
    for (const CheckLanguage language : {CheckLanguage::English, CheckLanguage::Japanese}) {
        EXPECT_EQ(pageOf(language).count(u"</a><b><code>"_s), qsizetype(checkInfos().size()));
    }
}

} // namespace
