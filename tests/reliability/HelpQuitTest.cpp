#include "help/HelpLibrary.h"
#include "tests/reliability/HelpSession.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int rounds = 15; // starting the program costs some seconds each time
#else
constexpr int rounds = 50;
#endif

/// Opens the help file so often and closes it at once.
int openAndClose(int times)
{
    char name[] = "tabrix";
    char *arguments[] = {name, nullptr};
    int count = 1;
    const QApplication application(count, arguments);
    for (int i = 0; i < times; ++i) {
        if (!HelpLibrary::open(QStringLiteral(TABRIX_HELP_FOLDER "/TABRIXE.HLP"))) {
            return 1;
        }
    }
    return 0;
}

/// What a process of its own returns, or the signal that ended it as a negative number.
int inAProcess(const std::function<int()> &program)
{
    const pid_t process = ::fork();
    if (process == 0) {
        ::alarm(600); // only a program that hangs meets it
        std::exit(program());
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

TEST(Help, mayBeOpenOrOpeningWhenTheProgramEnds)
{
    for (int i = 0; i < rounds; ++i) {
        ASSERT_EQ(inAProcess([i] { return openHelpAndQuit(i % 5); }), 0) << "round " << i;
    }
}

TEST(Help, mayBeClosedWhileItsContentsAreStillRead)
{
    EXPECT_EQ(inAProcess([] { return openAndClose(4 * rounds); }), 0);
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
