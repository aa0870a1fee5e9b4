#include "tests/support/QtPrinters.h"
#include "tests/tool/ToolProcess.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QByteArray with(const QByteArray &before, const QByteArray &after)
{
    return threeRows().replace(before, after);
}

/// A repository with the drivers installed and one file in it.
class ToolInGit : public ToolProcess
{
protected:
    void SetUp() override
    {
        git(u"init -q -b main ."_s);
        git(u"config user.name Tester"_s);
        git(u"config user.email tester@localhost"_s);
        ASSERT_EQ(run({u"git-setup"_s}).status, 0);
        commit(threeRows());
    }

    ToolRun git(const QString &line)
    {
        ToolRun result = shell(u"git "_s + line);
        EXPECT_EQ(result.status, 0) << line.toStdString() << "\n" << result.err.constData();
        return result;
    }
    void commit(const QByteArray &content)
    {
        put(u"a.inv"_s, content);
        git(u"add -A"_s);
        git(u"commit -q -m change"_s);
    }
    /// Two branches that changed the file in their own ways; ours is checked out.
    void branch(const QByteArray &ours, const QByteArray &theirs)
    {
        git(u"checkout -q -b theirs"_s);
        commit(theirs);
        git(u"checkout -q main"_s);
        commit(ours);
    }
};

TEST_F(ToolInGit, diffIsByParameter)
{
    put(u"a.inv"_s, with("Torque boost", "Boost"));
    EXPECT_EQ(git(u"diff"_s).out, "--- a/a.inv\n+++ b/a.inv\n! Parameter 1, Name: \"Torque boost\" -> \"Boost\"\n");
    put(u"a.inv"_s, with("[Paramater]", "[Broken]"));
    EXPECT_TRUE(git(u"diff"_s).out.contains("There is no line \"[Paramater]\""));
    QFile::remove(path(u"a.inv"_s));
    EXPECT_TRUE(git(u"diff"_s).out.contains("- Parameter 79"));
}

TEST_F(ToolInGit, logShowsValuesByLine)
{
    commit(with("Torque boost", "Boost"));
    const QByteArray log = git(u"log -p -1"_s).out;
    EXPECT_TRUE(log.contains("\n-parameters 1 name: Torque boost\n+parameters 1 name: Boost\n")) << log.constData();
}

TEST_F(ToolInGit, mergesWhatLinesCouldNot)
{
    branch(with("Torque boost", "Boost"), with(",6,3,1,1,0,30", ",7,3,1,1,0,30"));
    git(u"merge -q -m merged theirs"_s);
    EXPECT_EQ(contentOf(u"a.inv"_s), with("Torque boost", "Boost").replace(",6,3,1,1,0,30", ",7,3,1,1,0,30"));
}

TEST_F(ToolInGit, leavesOursInAConflict)
{
    const QByteArray ours = with("Torque boost", "Boost");
    branch(ours, with("Torque boost", "Torque"));
    const ToolRun merge = shell(u"git merge theirs"_s);
    EXPECT_NE(merge.status, 0);
    EXPECT_TRUE((merge.out + merge.err).contains("a.inv: Parameter 1, Name: base \"Torque boost\""))
        << merge.err.constData();
    EXPECT_EQ(contentOf(u"a.inv"_s), ours);
    EXPECT_TRUE(git(u"status --short"_s).out.contains("UU a.inv"));
}

TEST_F(ToolInGit, setUpCanBeShownRepeatedAndUndone)
{
    put(u".gitattributes"_s, "*.png binary\n");
    ASSERT_EQ(run({u"git-setup"_s, u"--print"_s}).status, 0);
    EXPECT_EQ(contentOf(u".gitattributes"_s), "*.png binary\n");
    ASSERT_EQ(run({u"git-setup"_s}).status, 0);
    const QByteArray once = contentOf(u".gitattributes"_s);
    EXPECT_TRUE(once.startsWith("*.png binary\n*.[iI]")) << once.constData();
    ASSERT_EQ(run({u"git-setup"_s}).status, 0);
    EXPECT_EQ(contentOf(u".gitattributes"_s), once);
    ASSERT_EQ(run({u"git-setup"_s, u"--remove"_s}).status, 0);
    EXPECT_EQ(contentOf(u".gitattributes"_s), "*.png binary\n");
    EXPECT_FALSE(git(u"config --list"_s).out.contains("tabrix"));
}

TEST_F(ToolInGit, setUpForTheUserIsInTheUsersFiles)
{
    ASSERT_EQ(run({u"git-setup"_s, u"--global"_s}).status, 0);
    EXPECT_TRUE(contentOf(u"config/git/attributes"_s).contains("diff=tabrix"));
    EXPECT_TRUE(git(u"config --global --list"_s).out.contains("merge.tabrix.driver="));
    ASSERT_EQ(run({u"git-setup"_s, u"--global"_s, u"--remove"_s}).status, 0);
    EXPECT_EQ(contentOf(u"config/git/attributes"_s), "");
}

/// The check before each commit, as the documentation has it.
QByteArray documentedHook()
{
    QFile file(QStringLiteral(TABRIX_DOCS_FOLDER "/tool.md"));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray text = file.readAll();
    const qsizetype begin = text.indexOf("#!/bin/sh", text.indexOf("pre-commit"));
    return text.sliced(begin, text.indexOf("```", begin) - begin);
}

TEST_F(ToolInGit, theDocumentedHookChecksWhatIsCommitted)
{
    put(u".git/hooks/pre-commit"_s, documentedHook());
    ASSERT_EQ(
        shell(u"chmod +x .git/hooks/pre-commit; mkdir .git/bin; ln -s \"$TOOL\" .git/bin/tabrix-tool"_s).status, 0);
    const QString commitAll = u"PATH=\"$PWD/.git/bin:$PATH\"; git add -A; git commit -q -m change"_s;
    const QByteArray bad = with(",6,3,1,1,0,30", ",31,3,1,1,0,30");
    put(u"with space.INV"_s, bad);
    put(u"a.inv"_s, bad);
    const ToolRun refused = shell(commitAll);
    EXPECT_NE(refused.status, 0);
    for (const char *line : {"with space.INV:1:9: warning: ", "a.inv:1:9: warning: "}) {
        EXPECT_TRUE((refused.out + refused.err).contains(line)) << refused.out.constData() << refused.err.constData();
    }
    put(u"tabrix-check.ini"_s, "[factory-outside-ranges]\nseverity=off\nreason=clipped\n");
    EXPECT_EQ(shell(commitAll).status, 0);
    put(u"tabrix-check.ini"_s, "[factory-outside-ranges]\nseverity=of\nreason=clipped\n");
    put(u"a.inv"_s, threeRows());
    EXPECT_NE(shell(commitAll).status, 0);
}

TEST_F(ToolProcess, setUpNeedsARepository)
{
    EXPECT_EQ(shell(u"GIT_CEILING_DIRECTORIES=/ $TOOL git-setup"_s).status, 2);
}

} // namespace
