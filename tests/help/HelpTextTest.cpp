#include "help/HelpLibrary.h"
#include "resources/StringTable.h"
#include "tests/help/HelpFile.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

struct HelpLanguage
{
    const char *name;
    QStringView InterfaceText::*text;
};

void PrintTo(const HelpLanguage &language, std::ostream *out)
{
    *out << language.name;
}

// A caption as the eye sees it, without its access key.
QString plainCaption(QString caption)
{
    static const QRegularExpression accessKey(u"\\(&?[A-Z]\\)"_s);
    return caption.remove(accessKey).remove(u'&').trimmed();
}

QString withoutMarkup(const QString &markup)
{
    QTextDocument document;
    document.setHtml(markup);
    return document.toPlainText();
}

class HelpText : public testing::TestWithParam<HelpLanguage>
{
protected:
    QSet<QString> captionsOfTheProgram() const
    {
        QSet<QString> captions;
        for (const InterfaceText &text : interfaceTexts()) {
            captions.insert(plainCaption((text.*GetParam().text).toString()));
        }
        return captions;
    }

    QStringList captionsOfTheHelp() const
    {
        static const QRegularExpression marked(u"<span class=\"ui\">(.*?)</span>"_s);
        QStringList captions;
        for (const QUrl &page : library->pages()) {
            for (const auto &match : marked.globalMatch(QString::fromUtf8(library->data(page)))) {
                captions << plainCaption(withoutMarkup(match.captured(1)));
            }
        }
        return captions;
    }

    std::unique_ptr<HelpLibrary> library = HelpLibrary::open(helpFile(QString::fromLatin1(GetParam().name)));
};

} // namespace

TEST_P(HelpText, usesTheCaptionsOfTheProgram)
{
    ASSERT_TRUE(library);
    const QSet<QString> known = captionsOfTheProgram();
    const QStringList used = captionsOfTheHelp();
    EXPECT_GT(used.size(), 200);
    for (const QString &caption : used) {
        EXPECT_TRUE(known.contains(caption)) << caption.toStdString();
    }
}

TEST_P(HelpText, explainsEveryMenuCommandAndEveryColumn)
{
    ASSERT_TRUE(library);
    const QStringList captions = captionsOfTheHelp();
    const QSet<QString> used(captions.begin(), captions.end());
    for (const InterfaceText &text : interfaceTexts()) {
        const bool isMenu = text.id >= 10 && text.id <= 47;
        const bool isColumn = text.id >= 100 && text.id <= 113;
        if (isMenu || isColumn) {
            EXPECT_TRUE(used.contains(plainCaption((text.*GetParam().text).toString()))) << text.id;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpText,
    testing::Values(HelpLanguage{"en", &InterfaceText::english}, HelpLanguage{"ja", &InterfaceText::japanese}));
