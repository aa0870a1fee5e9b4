#include "runtime/CommandLine.h"

#include "runtime/FileName.h"

#include <QCoreApplication>
#include <QStringList>

#include <span>

QString commandLineText([[maybe_unused]] int argc, [[maybe_unused]] char **argv)
{
#ifdef Q_OS_WIN
    return QCoreApplication::arguments().mid(1).join(u' '); // the system keeps them as characters
#else
    QByteArrayList arguments;
    for (const char *argument : std::span(argv, std::size_t(argc)).subspan(1)) {
        arguments << argument;
    }
    return fileNameFromBytes(arguments.join(' '));
#endif
}
