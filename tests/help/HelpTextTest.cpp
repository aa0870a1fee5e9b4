#include "document/ParameterColumns.h"
#include "editor/Commands.h"
#include "help/HelpLibrary.h"
#include "resources/StringTable.h"
#include "tests/help/HelpFile.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QKeySequence>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

struct HelpLanguage
{
    const char *name;
    QStringView InterfaceText::*text;
    QStringView OwnTextEntry::*ownText;
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

/// As the guide's page on keys writes it.
QString markedKey(const CommandInfo &command)
{
    return u"<span class=\"key\">%1</span>"_s.arg(QKeySequence(command.key).toString(QKeySequence::PortableText));
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
        for (const OwnTextEntry &text : ownTextEntries()) {
            captions.insert(plainCaption((text.*GetParam().ownText).toString()));
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

    QString caption(const Caption &of) const
    {
        const OwnText *own = std::get_if<OwnText>(&of);
        return plainCaption((own != nullptr ? ownTextEntries()[std::size_t(*own)].*GetParam().ownText
                                            : interfaceText(int(std::get<Text>(of)))->*GetParam().text)
                                .toString());
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
        if (isMenu) {
            EXPECT_TRUE(used.contains(plainCaption((text.*GetParam().text).toString()))) << text.id;
        }
    }
    EXPECT_TRUE(used.contains(caption(Text::HeadingRowNumber)));
    for (const ColumnInfo &column : parameterColumns) {
        EXPECT_TRUE(used.contains(caption(column.heading))) << caption(column.heading).toStdString();
    }
}

TEST_P(HelpText, namesTheKeyOfEveryCommand)
{
    ASSERT_TRUE(library);
    const QString page = QString::fromUtf8(library->data(library->topic(1).resolved(QUrl(u"keyboard.html"_s))));
    for (const CommandInfo &command : commands()) {
        if (command.hasKey()) {
            EXPECT_TRUE(page.contains(markedKey(command))) << markedKey(command).toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpText,
    testing::Values(HelpLanguage{"en", &InterfaceText::english, &OwnTextEntry::english},
        HelpLanguage{"ja", &InterfaceText::japanese, &OwnTextEntry::japanese}));
