#include "tests/support/QtPrinters.h"
#include "tests/tool/TerminalProcess.h"
#include "tests/tool/ToolProcess.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString tool = QStringLiteral(TABRIX_TOOL);
constexpr char escape = '\x1B';

QByteArray outside()
{
    return threeRows().replace(",6,3,1,1,0,30", ",31,3,1,1,0,30");
}

/// The tool on a terminal.
class ToolOnATerminal : public ToolProcess
{
protected:
    /// What a terminal shows of a command.
    QByteArray shown(const QStringList &arguments, const QStringList &environment = {u"TERM=xterm"_s}) const
    {
        TerminalProcess process(path(u"."_s), QStringList{tool} + arguments, environment);
        EXPECT_GE(process.finish(), 0);
        return process.shown();
    }
};

TEST_F(ToolOnATerminal, colorsFindingsUnlessToldOtherwise)
{
    put(u"a.inv"_s, outside());
    const QStringList check = {u"check"_s, u"a.inv"_s};
    const QByteArray colored = shown(check);
    EXPECT_TRUE(colored.contains("\x1B[1;33mwarning\x1B[0m: ")) << colored.constData();
    EXPECT_TRUE(colored.contains("\x1B[1ma.inv:1:9:\x1B[0m ")) << colored.constData();
    EXPECT_FALSE(shown(check, {u"TERM=dumb"_s}).contains(escape));
    EXPECT_FALSE(shown(check, {}).contains(escape));
    EXPECT_FALSE(shown(check, {u"TERM=xterm"_s, u"NO_COLOR=1"_s}).contains(escape));
    EXPECT_TRUE(shown(check, {u"TERM=xterm"_s, u"NO_COLOR="_s}).contains(escape));
    EXPECT_FALSE(shown(check + QStringList{u"--color"_s, u"never"_s}).contains(escape));
    EXPECT_FALSE(shown({u"check"_s, u"--format"_s, u"json"_s, u"a.inv"_s}).contains(escape));
}

TEST_F(ToolOnATerminal, colorsInPipesOnlyWhenTold)
{
    put(u"a.inv"_s, outside());
    const ToolRun plain = run({u"check"_s, u"a.inv"_s});
    EXPECT_FALSE(plain.out.contains(escape)) << plain.out.constData();
    QByteArray colored = run({u"check"_s, u"--color"_s, u"always"_s, u"a.inv"_s}).out;
    EXPECT_TRUE(colored.contains(escape));
    for (const char *code : {"1", "2", "1;31", "1;33", "36", "32", "0"}) {
        colored.replace("\x1B[" + QByteArray(code) + "m", "");
    }
    EXPECT_EQ(colored, plain.out);
    EXPECT_EQ(run({u"check"_s, u"--color"_s, u"yes"_s, u"a.inv"_s}).status, 2);
}

TEST_F(ToolOnATerminal, colorsDifferencesAndTables)
{
    put(u"old.inv"_s, threeRows());
    put(u"new.inv"_s, threeRows().replace("Torque boost", "Boost").replace("0,990,1990,", "0,991,1990,"));
    const QByteArray diff = shown({u"diff"_s, u"old.inv"_s, u"new.inv"_s});
    EXPECT_TRUE(diff.contains("\x1B[1;31m- Parameter 990: ")) << diff.constData();
    EXPECT_TRUE(diff.contains("\x1B[32m+ Parameter 991: ")) << diff.constData();
    EXPECT_TRUE(diff.contains("\x1B[36m! Parameter 1, Name: ")) << diff.constData();
    EXPECT_TRUE(shown({u"show"_s, u"old.inv"_s}).contains("\x1B[1mold.inv\x1B[0m"));
    shown({u"diff"_s, u"-o"_s, u"out"_s, u"old.inv"_s, u"new.inv"_s});
    EXPECT_FALSE(contentOf(u"out"_s).contains(escape)); // a file is no terminal
    EXPECT_TRUE(shell(u"GIT_PAGER_IN_USE=true $TOOL diff old.inv new.inv"_s).out.contains(escape));
}

TEST_F(ToolOnATerminal, nothingInAFileMovesTheCursor)
{
    put(u"a.inv"_s, outside().replace("0,1,1001,Torque boost", "0,\x1B[2J1,1001,\x1B]0;title\x07"));
    const QList<QStringList> commands = {{u"check"_s, u"a.inv"_s}, {u"show"_s, u"a.inv"_s}};
    for (const QStringList &command : commands) {
        const QByteArray out = run(command).out;
        EXPECT_FALSE(out.contains(escape)) << out.constData();
        EXPECT_FALSE(out.contains('\x07')) << out.constData();
    }
    put(u"b.inv"_s, threeRows());
    EXPECT_FALSE(run({u"diff"_s, u"a.inv"_s, u"b.inv"_s}).out.contains(escape));
}

TEST_F(ToolOnATerminal, longWorkShowsItsProgressAndTakesItAway)
{
    put(u"a.inv"_s, outside());
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    TerminalProcess process(path(u"."_s), {tool, u"check"_s, u"pipe"_s, u"a.inv"_s}, {u"TERM=xterm"_s});
    ASSERT_TRUE(process.waitFor("\r\x1B[K1 of 2 files")) << process.shown().constData(); // the pipe has nothing yet
    const int pipe = ::open(QFile::encodeName(path(u"pipe"_s)).constData(), O_WRONLY);
    const QByteArray bytes = threeRows();
    EXPECT_EQ(::write(pipe, bytes.constData(), std::size_t(bytes.size())), bytes.size());
    ::close(pipe);
    EXPECT_EQ(process.finish(), 1);
    const QByteArray shown = process.shown();
    const qsizetype result = shown.indexOf("a.inv:1:9:");
    EXPECT_TRUE(shown.first(shown.lastIndexOf("\x1B[1m", result)).endsWith("\r\x1B[K")) << shown.constData();
    EXPECT_EQ(shown.indexOf(" of ", result), -1) << shown.constData();
}

} // namespace
