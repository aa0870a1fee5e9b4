#include "tool/OtherProgram.h"

#include "runtime/ProgramInPlace.h"

#include <QCoreApplication>

int runInstead(const QString &program, Session &session)
{
    const QString path = QCoreApplication::applicationDirPath() + u'/' + program;
    session.out.flush();
    const Result<int> status = runInPlace(path, session.commandLine);
    if (!status) {
        session.say(ToolText::CannotStart, {path, status.failure().reason()});
        return Failed;
    }
    return *status;
}
