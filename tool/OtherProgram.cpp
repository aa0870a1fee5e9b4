#include "tool/OtherProgram.h"

#include "runtime/Failure.h"
#include "runtime/FileName.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <vector>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

int runInstead(const QString &program, Session &session)
{
    const QString path = QCoreApplication::applicationDirPath() + u'/' + program;
    session.out.flush();
#ifdef Q_OS_UNIX
    QList<QByteArray> texts = {QFile::encodeName(path)};
    for (const QString &argument : session.commandLine) {
        texts << fileNameBytes(argument); // a name may be any bytes, which QProcess cannot hand over
    }
    std::vector<char *> arguments;
    for (QByteArray &text : texts) {
        arguments.push_back(text.data());
    }
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    session.say(ToolText::CannotStart, {path, Failure::lastSystemCall().reason()});
    return Failed;
#else
    const int status = QProcess::execute(path, session.commandLine);
    if (status < 0) {
        session.say(ToolText::CannotStart, {path, QString()});
    }
    return status < 0 ? int(Failed) : status;
#endif
}
