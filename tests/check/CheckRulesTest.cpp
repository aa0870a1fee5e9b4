#include "check/CheckRules.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

using enum CheckId;

/// A folder with another one in it, and rules files in both.
class ACheckRules : public testing::Test
{
protected:
    ACheckRules() { QDir(m_folder.path()).mkpath(u"family"_s); }

    void put(const QString &name, const QByteArray &bytes) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size()) << name.toStdString();
    }
    Result<CheckRules> rules(const QString &name = u"family/a.inv"_s) const
    {
        return rulesFor(m_folder.filePath(name));
    }
    /// What the failure says, with the folder left out.
    QString complaint() const
    {
        LanguageBase = EnglishBase;
        const auto result = rules();
        return result ? QString() : failureText(result.failure()).remove(m_folder.path() + u'/');
    }

    QTemporaryDir m_folder;
};

TEST_F(ACheckRules, leaveEverySeverityWhereThereAreNone)
{
    const auto none = rules();
    ASSERT_TRUE(none);
    for (const CheckInfo &info : checkInfos()) {
        EXPECT_EQ(none->severityOf(info.id), info.severity) << info.name.data();
        EXPECT_EQ(none->ruleOf(info.id), nullptr) << info.name.data();
    }
}

TEST_F(ACheckRules, setSeveritiesAndSwitchOffEachWithItsReason)
{
    put(u"family/tabrix-check.ini"_s,
        "\uFEFF; for the whole family\n"
        "[name-too-long]\nseverity=off\nreason=Printed on wide paper, where they fit.\n\n"
        "[number-order]\nseverity = error\nreason = \"By function; 設計どおり\"\n");
    const auto found = rules();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->severityOf(NameTooLong), std::nullopt);
    EXPECT_EQ(found->severityOf(NumberOrder), Severity::Error);
    EXPECT_EQ(found->severityOf(NumberTwice), Severity::Warning);
    ASSERT_NE(found->ruleOf(NameTooLong), nullptr);
    EXPECT_EQ(found->ruleOf(NameTooLong)->reason, u"Printed on wide paper, where they fit."_s);
    EXPECT_EQ(found->ruleOf(NumberOrder)->reason, u"By function; 設計どおり"_s);
    EXPECT_EQ(found->ruleOf(NumberOrder)->fileName, m_folder.filePath(u"family/tabrix-check.ini"_s));
}

TEST_F(ACheckRules, comeFromTheNearestFolderThatNamesTheCheck)
{
    put(u"tabrix-check.ini"_s,
        "[number-order]\nseverity=off\nreason=above\n[number-twice]\nseverity=error\nreason=above\n");
    put(u"family/tabrix-check.ini"_s, "[number-order]\nseverity=warning\nreason=near\n");
    const auto inFamily = rules();
    ASSERT_TRUE(inFamily);
    EXPECT_EQ(inFamily->severityOf(NumberOrder), Severity::Warning);
    EXPECT_EQ(inFamily->ruleOf(NumberOrder)->reason, u"near"_s);
    EXPECT_EQ(inFamily->severityOf(NumberTwice), Severity::Error);
    const auto above = rules(u"a.inv"_s);
    ASSERT_TRUE(above);
    EXPECT_EQ(above->severityOf(NumberOrder), std::nullopt);
    EXPECT_EQ(above->ruleOf(NumberOrder)->reason, u"above"_s);
}

TEST_F(ACheckRules, areFoundFromTheWorkingFolderToo)
{
    put(u"tabrix-check.ini"_s, "[number-order]\nseverity=off\nreason=above\n");
    const QString earlier = QDir::currentPath();
    QDir::setCurrent(m_folder.filePath(u"family"_s));
    for (const QString &name : {u"not-there.inv"_s, u"-"_s, u"../not-there.inv"_s, u"../family/x.inv"_s}) {
        const auto found = rulesFor(name);
        EXPECT_TRUE(found && !found->severityOf(NumberOrder)) << name.toStdString();
    }
    const auto unnamed = rulesFor({});
    EXPECT_TRUE(unnamed && unnamed->severityOf(NumberOrder)); // a document that has no file yet
    QDir::setCurrent(earlier);
}

TEST_F(ACheckRules, areRefusedWithWhatIsWrongInThem)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"[nmae-too-long]\nseverity=off\nreason=x\n", u"[nmae-too-long] is not the id of a check, or is empty."_s},
        {"[Name-too-long]\nseverity=off\nreason=x\n", u"[Name-too-long] is not the id of a check, or is empty."_s},
        {"[number-order]\n", u"[number-order] is not the id of a check, or is empty."_s},
        {"[number-order]\nseverity=of\nreason=x\n",
            u"the severity of [number-order] is \"of\" instead of off, note, warning or error."_s},
        {"[number-order]\nreason=x\n",
            u"the severity of [number-order] is \"\" instead of off, note, warning or error."_s},
        {"[number-order]\nseverity=off\n", u"[number-order] has no reason."_s},
        {"[number-order]\nseverity=off\nreason=\n", u"[number-order] has no reason."_s},
        {"[number-order]\nseverity=off\nreason=x\ncolour=red\n",
            u"the key \"colour\" is not known here. Each section has severity and reason."_s},
        {"severity=off\n", u"the key \"severity\" is not known here. Each section has severity and reason."_s},
        {"[number-order]\nseverity=off\nreason=x\n[number-order]\nseverity=note\nreason=y\n",
            u"[number-order] is there twice."_s},
        {"[number-order]\nseverity=off\nreason=x\nseverity = note\n", u"[number-order] severity is there twice."_s},
    };
    for (const auto &[bytes, expected] : cases) {
        put(u"family/tabrix-check.ini"_s, bytes);
        EXPECT_EQ(complaint(), u"family/tabrix-check.ini: "_s + expected) << bytes.constData();
    }
    for (const QByteArray &bytes : {QByteArray("number-order\n"),
             QByteArray("[number-order]\nseverity=off\nreason=x\n=y\n"), QByteArray("[number-order\nseverity=off\n"),
             QByteArray("[number-order]\nseverity=off\nreason=\x95\x5C\n")}) {
        put(u"family/tabrix-check.ini"_s, bytes);
        EXPECT_EQ(complaint(), u"family/tabrix-check.ini is not an INI file in UTF-8."_s) << bytes.constData();
    }
    QFile::remove(m_folder.filePath(u"family/tabrix-check.ini"_s));
    EXPECT_EQ(complaint(), QString());
    QDir(m_folder.path()).mkdir(u"family/tabrix-check.ini"_s);
    EXPECT_EQ(complaint(), u"family/tabrix-check.ini cannot be read: "_s + ThisSystem::words(EISDIR));
}

} // namespace
