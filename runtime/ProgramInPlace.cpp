#include "runtime/ProgramInPlace.h"

#ifdef Q_OS_WIN
#include <QProcess>
#else
#include "runtime/FileName.h"

#include <QByteArrayList>

#include <unistd.h>
#include <vector>
#endif

#ifdef Q_OS_WIN

Result<int> runInPlace(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start(program, arguments);
    if (!process.waitForStarted(-1)) {
        return Failure::lastSystemCall();
    }
    process.waitForFinished(-1);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

#else

Result<int> runInPlace(const QString &program, const QStringList &arguments)
{
    QByteArrayList texts = {fileNameBytes(program)};
    for (const QString &argument : arguments) {
        texts << fileNameBytes(argument); // a name may be any bytes, which QProcess cannot hand over
    }
    std::vector<char *> pointers;
    for (QByteArray &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    ::execv(pointers.front(), pointers.data());
    return Failure::lastSystemCall();
}

#endif
