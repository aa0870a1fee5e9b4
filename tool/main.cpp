#include "tool/Program.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    prepareStreams();
    const QStringList arguments = argumentsOf(argc, argv);
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TABRIX_VERSION));
    return runProgram(arguments);
}
