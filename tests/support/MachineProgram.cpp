#include "tests/support/MachineProgram.h"

#include "runtime/WindowsApi.h"
#include "tests/support/Patience.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(const QString &program, const QByteArray &reason)
{
    throw std::runtime_error((program.toUtf8() + ": " + reason).toStdString());
}

} // namespace

#ifdef Q_OS_WIN

namespace {

/// Wine's name of a file in the system around it.
QString outerName(const QString &name)
{
    using Call = char *(CDECL *)(const wchar_t *);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    const auto call = reinterpret_cast<Call>(reinterpret_cast<void *>(found));
    char *outer = call ? call(QDir::toNativeSeparators(name).toStdWString().c_str()) : nullptr;
    if (!outer) {
        fail(name, "only Wine has programs of another system");
    }
    const QString result = QString::fromUtf8(outer);
    HeapFree(GetProcessHeap(), 0, outer);
    return result;
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', uR"('\'')"_s) + u'\'';
}

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

// Wine does not tell when such a program ends. A file does, which a script makes then.
QByteArray outputOfMachineProgram(const QString &program, const QStringList &arguments)
{
    const QTemporaryDir folder;
    QString line = program;
    for (const QString &argument : arguments) {
        line += u' ' + quoted(QFile::exists(argument) ? outerName(argument) : argument);
    }
    QFile script(folder.filePath(u"script"_s));
    if (!script.open(QFile::WriteOnly)) {
        fail(program, script.errorString().toUtf8());
    }
    script.write(
        u"cd %1\n%2 >output 2>errors\necho $? >ending\nmv ending end\n"_s.arg(quoted(outerName(folder.path())), line)
            .toUtf8());
    script.close();
    QProcess::startDetached(uR"(Z:\bin\sh)"_s, {outerName(script.fileName())});
    const QDeadlineTimer deadline(patience);
    while (!QFile::exists(folder.filePath(u"end"_s))) {
        if (deadline.hasExpired()) {
            fail(program, "does not end");
        }
        QThread::msleep(5);
    }
    if (contentOf(folder.filePath(u"end"_s)) != "0\n") {
        fail(program, contentOf(folder.filePath(u"errors"_s)));
    }
    return contentOf(folder.filePath(u"output"_s));
}

#else

QByteArray outputOfMachineProgram(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0) {
        fail(program, process.readAllStandardError() + process.errorString().toUtf8());
    }
    return process.readAllStandardOutput();
}

#endif
