#include "runtime/FileName.h"
#include "tool/Program.h"

#include <QCoreApplication>

#include <csignal>
#include <span>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is told by the write
#endif
    QStringList arguments;
    for (const char *argument : std::span(argv, std::size_t(argc)).subspan(1)) {
        arguments << fileNameFromBytes(argument);
    }
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TABRIX_VERSION));
    return runProgram(arguments);
}
