#include "tests/support/QtPrinters.h"
#include "tests/tool/ToolProcess.h"
#include "tool/Command.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A command as it is called, and how it ends when nothing goes wrong.
struct Call
{
    QString line;
    int status;
    QString firstFile = {}; ///< in the line; empty if it reads none
};

const QList<Call> calls = {
    {u"check --severity=note changed.inv"_s, 1, u"changed.inv"_s},
    {u"diff a.inv changed.inv"_s, 1, u"a.inv"_s},
    {u"patch a.inv changes.json"_s, 0, u"a.inv"_s},
    {u"merge a.inv changed.inv a.inv"_s, 0, u"a.inv"_s},
    {u"convert --from inv --to json a.inv -"_s, 0, u"a.inv"_s},
    {u"text a.inv"_s, 0, u"a.inv"_s},
    {u"format changed.inv"_s, 0, u"changed.inv"_s},
    {u"show a.inv"_s, 0, u"a.inv"_s},
    {u"git-setup --print"_s, 0},
    {u"help check"_s, 0},
};

/// Each command in a folder with files for it.
class EveryCommand : public ToolProcess
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(shell(u"git init -q . && mkfifo go"_s).status, 0);
        put(u"a.inv"_s, threeRows());
        put(u"changed.inv"_s, threeRows().replace(",6,3,1,1,0,30", ",7,3,1,1,0,030"));
        ASSERT_EQ(shell(u"$TOOL diff --format json -o changes.json a.inv changed.inv"_s).status, 1);
    }
    ToolRun tool(const QString &line) const { return shell(u"$TOOL "_s + line); }
};

TEST_F(EveryCommand, isCalledHere)
{
    for (const Command &command : toolCommands()) {
        const bool isTestedElsewhere = command.name == "print"_L1; // by tool_print_test
        EXPECT_TRUE(isTestedElsewhere || std::ranges::any_of(calls, [&command](const Call &call) {
            return call.line.startsWith(command.name + u' ');
        })) << command.name.data();
    }
}

TEST_F(EveryCommand, endsWithItsStatusAndWritesToStandardOutputAlone)
{
    for (const Call &call : calls) {
        const ToolRun run = tool(call.line);
        EXPECT_EQ(run.status, call.status) << call.line.toStdString();
        EXPECT_FALSE(run.out.isEmpty()) << call.line.toStdString();
        EXPECT_EQ(run.err, "") << call.line.toStdString();
    }
}

TEST_F(EveryCommand, readsStandardInputAsTheFile)
{
    for (const Call &call : calls) {
        if (!call.firstFile.isEmpty()) {
            QString line = call.line;
            line.replace(line.indexOf(call.firstFile), call.firstFile.size(), u"-"_s);
            const ToolRun run = tool(line + u" < "_s + call.firstFile);
            EXPECT_EQ(run.status, call.status) << line.toStdString() << run.err.constData();
            EXPECT_EQ(run.out, tool(call.line).out.replace(call.firstFile.toUtf8(), "-")) << line.toStdString();
        }
    }
}

TEST_F(EveryCommand, saysWhenItsOutputCannotBeWritten)
{
    if (!QFile::exists(u"/dev/full"_s)) {
        GTEST_SKIP();
    }
    for (const Call &call : calls) {
        const ToolRun run = tool(call.line + u" > /dev/full"_s);
        EXPECT_EQ(run.status, 2) << call.line.toStdString();
        EXPECT_EQ(run.err, "tabrix-tool: The output cannot be written: No space left on device\n")
            << call.line.toStdString();
    }
}

TEST_F(EveryCommand, endsQuietlyWhenItsReaderHasGone)
{
    for (const Call &call : calls) {
        const ToolRun run =
            shell(u"(read x < go; $TOOL %1; echo $? > status) | (exec 0<&-; echo > go)"_s.arg(call.line));
        EXPECT_EQ(run.err, "") << call.line.toStdString();
        EXPECT_EQ(contentOf(u"status"_s), QByteArray::number(call.status) + '\n') << call.line.toStdString();
    }
}

TEST_F(EveryCommand, namesTheFileThatCannotBeRead)
{
    ASSERT_TRUE(QFile::link(u"loop.inv"_s, path(u"loop.inv"_s)));
    for (const Call &call : calls) {
        for (const QString &name : {u"missing.inv"_s, u"loop.inv"_s, u"."_s}) {
            if (!call.firstFile.isEmpty()) {
                QString line = call.line;
                line.replace(line.indexOf(call.firstFile), call.firstFile.size(), name);
                const ToolRun run = tool(line);
                EXPECT_EQ(run.status, 2) << line.toStdString();
                EXPECT_TRUE(run.err.startsWith("tabrix-tool: " + name.toUtf8() + ": ")) << run.err.constData();
            }
        }
    }
}

TEST_F(EveryCommand, writesIntoPipesAndDevicesInsteadOfReplacingThem)
{
    for (const QString &line : {u"merge -o pipe a.inv changed.inv a.inv"_s, u"convert --to csv a.inv pipe"_s,
             u"diff -o pipe a.inv changed.inv"_s, u"patch -o pipe a.inv changes.json"_s, u"help -o pipe"_s}) {
        const ToolRun run = shell(u"rm -f pipe; mkfifo pipe; cat pipe > copy & $TOOL %1; status=$?; "
                                  u"test -p pipe || { kill $!; status=9; }; wait; exit $status"_s.arg(line));
        ASSERT_EQ(run.status, line.startsWith(u"diff"_s) ? 1 : 0) << line.toStdString() << run.err.constData();
        EXPECT_FALSE(contentOf(u"copy"_s).isEmpty()) << line.toStdString();
    }
    if (QFile::exists(u"/dev/full"_s)) {
        const ToolRun full = tool(u"merge -o /dev/full a.inv changed.inv a.inv"_s);
        EXPECT_EQ(full.status, 2);
        EXPECT_EQ(full.err, "tabrix-tool: /dev/full cannot be written: No space left on device\n");
    }
}

TEST_F(EveryCommand, ofMuchOutputMayBeCutByHead)
{
    QByteArray many = threeRows().replace("Paramater=3", "Paramater=3000");
    const qsizetype rows = many.indexOf("0,1,1001");
    const QByteArray row = "0,1,1001,Torque boost,%,0.1,-1,-1,06,3,1,1,0,30\r\n";
    put(u"many.inv"_s, many.first(rows) + row.repeated(3000));
    for (const QString &line : {u"check many.inv"_s, u"text many.inv"_s, u"show many.inv"_s, u"format many.inv"_s,
             u"diff many.inv a.inv"_s, u"convert --to json many.inv -"_s}) {
        const ToolRun run = shell(u"($TOOL %1; echo $? > status) | head -1"_s.arg(line));
        EXPECT_EQ(run.out.count('\n'), 1) << line.toStdString();
        EXPECT_EQ(run.err, "") << line.toStdString();
        EXPECT_LE(contentOf(u"status"_s).trimmed().toInt(), 1) << line.toStdString();
    }
}

} // namespace
