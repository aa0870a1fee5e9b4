#include "runtime/CommandLine.h"
#include "runtime/StandardStreams.h"
#include "tool/Program.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    prepareStandardStreams();
    const QStringList arguments = commandLineArguments(argc, argv);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TABRIX_VERSION));
    return runProgram(arguments);
}
