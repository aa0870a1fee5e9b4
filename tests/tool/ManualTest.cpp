#include "tests/support/QtPrinters.h"
#include "tests/tool/TerminalProcess.h"
#include "tests/tool/ToolProcess.h"
#include "tool/Command.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The tool's own pages and its completion.
class AManual : public ToolProcess
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(run({u"help"_s, u"--format"_s, u"bash"_s, u"-o"_s, u"completion"_s}).status, 0);
        put(u"outside.inv"_s, threeRows());
        put(u"with space.inv"_s, threeRows());
    }
    /// What a page looks like; nothing in it may be wrong. macros: of its language
    QByteArray page(const QString &fileName, const QString &macros = {}) const
    {
        const QString line = u"groff -man %1 -ww -K utf8 -Tutf8 '%2' | sed 's/.\x08//g'"_s;
        const ToolRun shown = shell(line.arg(macros, fileName));
        EXPECT_EQ(shown.err, "") << fileName.toStdString();
        return QByteArray(shown.out).simplified();
    }
};

QByteArray dashed(const QString &name)
{
    return (name.size() == 1 ? "-" : "--") + name.toUtf8();
}

TEST_F(AManual, listsEveryCommandAndOption)
{
    for (const QString &language : {u"en"_s, u"ja"_s}) {
        ASSERT_EQ(run({u"help"_s, u"--language"_s, language, u"--format"_s, u"man"_s, u"-o"_s, u"page.1"_s}).status, 0);
        const QByteArray shown = page(u"page.1"_s, language == u"ja"_s ? u"-mja"_s : QString());
        for (const Command &command : toolCommands()) {
            EXPECT_TRUE(shown.contains(QByteArray(command.name.data()) + " [OPTION...]")) << command.name.data();
            for (const Option &option : optionsOf(command)) {
                EXPECT_TRUE(shown.contains(dashed(option.names.last()))) << shown.constData();
            }
        }
        EXPECT_TRUE(shown.contains("tabrix-check.ini"));
        EXPECT_TRUE(shown.contains("NO_COLOR"));
    }
}

TEST_F(AManual, hasAPageForTheEditor)
{
    const QByteArray shown = page(QStringLiteral(TABRIX_EDITOR_PAGE));
    for (const char *piece : {"tabrix [FILE]", "one file name", "Tabrix.conf", "recovery", "tabrix-tool(1)"}) {
        EXPECT_TRUE(shown.contains(piece)) << piece;
    }
}

TEST_F(AManual, isReadByManWithoutWarnings)
{
    ASSERT_EQ(run({u"help"_s, u"--format"_s, u"man"_s, u"-o"_s, u"page.1"_s}).status, 0);
    for (const QString &name : {u"page.1"_s, QStringLiteral(TABRIX_EDITOR_PAGE)}) {
        const ToolRun read = shell(u"man --warnings -E UTF-8 -l -Tutf8 -Z '%1'"_s.arg(name));
        EXPECT_EQ(read.status, 0) << name.toStdString();
        EXPECT_EQ(read.err, "") << name.toStdString();
    }
}

TEST_F(AManual, explainsACommandAsItsHelpDoes)
{
    EXPECT_EQ(run({u"help"_s, u"check"_s}).out, run({u"check"_s, u"--help"_s}).out);
    EXPECT_EQ(run({u"help"_s}).out, run({u"--help"_s}).out);
    EXPECT_EQ(run({u"help"_s, u"chek"_s}).status, 2);
}

TEST_F(AManual, completesEveryCommandAndOption)
{
    const QString complete =
        u"bash -c 'source ./completion; COMP_WORDS=(tabrix-tool \"$@\"); COMP_CWORD=$#; _tabrix_tool; "
        u"echo \"${COMPREPLY[@]}\"' bash "_s;
    const QByteArrayList all = shell(complete + u"''"_s).out.trimmed().split(' ');
    for (const Command &command : toolCommands()) {
        EXPECT_TRUE(all.contains(QByteArray(command.name.data()))) << command.name.data();
        const QByteArrayList names = shell(complete + command.name + u" -"_s).out.trimmed().split(' ');
        for (const Option &option : optionsOf(command)) {
            EXPECT_TRUE(names.contains(dashed(option.names.last()))) << command.name.data();
            const QByteArray words = shell(complete + command.name + u" --"_s + option.names.last() + u" ''"_s).out;
            EXPECT_TRUE(option.value == OptionValue::None || words.trimmed() == option.choices.join(u' ').toUtf8())
                << words.constData();
        }
    }
}

TEST_F(AManual, completesAsOneTypes)
{
    TerminalProcess bash(path(u"."_s), {u"/bin/bash"_s, u"--noprofile"_s, u"--norc"_s, u"-i"_s},
        {u"TERM=dumb"_s, u"INPUTRC=/dev/null"_s});
    bash.type("source ./completion; tabrix-tool() { printf '[%s]' \"$@\"; echo end; }; PS1='rea''dy> '\n");
    ASSERT_TRUE(bash.waitFor("ready> ")) << bash.shown().constData();
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"ch\t", "[check]end"},
        {"check --fo\tj\touts\t", "[check][--format][json][outside.inv]end"},
        {"check --format=sa\touts\t", "[check][--format=sarif][outside.inv]end"},
        {"check --select name-too-long,number-tw\tx", "[check][--select][name-too-long,number-twice][x]end"},
        {"diff --output outs\tx", "[diff][--output][outside.inv][x]end"},
        {"show with\t", "[show][with space.inv]end"},
        {"git-setup --pr\t", "[git-setup][--print]end"},
        {"help mer\t", "[help][merge]end"},
    };
    for (const auto &[typed, expected] : cases) {
        bash.type("tabrix-tool " + typed + "\n");
        EXPECT_TRUE(bash.waitFor(expected)) << bash.shown().constData();
    }
    bash.type("exit\n");
    EXPECT_EQ(bash.finish(), 0);
}

} // namespace
