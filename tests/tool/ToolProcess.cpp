#include "tests/tool/ToolProcess.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

ToolRun ToolProcess::start(
    const QString &program, const QStringList &arguments, const QByteArray &input, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TOOL"_s, QStringLiteral(TABRIX_TOOL));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"HOME"_s, folder);
    environment.insert(u"XDG_CONFIG_HOME"_s, folder + u"/config"_s);
    environment.insert(u"GIT_CONFIG_NOSYSTEM"_s, u"1"_s);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(-1)) << program.toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

ToolRun ToolProcess::run(const QStringList &arguments, const QByteArray &input) const
{
    return start(QStringLiteral(TABRIX_TOOL), arguments, input, m_folder.path());
}

ToolRun ToolProcess::shell(const QString &line) const
{
    return start(u"/bin/sh"_s, {u"-c"_s, line}, {}, m_folder.path());
}

QString ToolProcess::put(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName();
}

QByteArray ToolProcess::contentOf(const QString &name) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << name.toStdString();
    return file.readAll();
}

QByteArray threeRows()
{
    return "[Inverter]\r\nName=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nCapacity0=0.4\r\nICapacity0=2.5\r\n"
           "Option0=A\r\nSoftWareVersion=1.00\r\nParamater=3\r\n[Paramater]\r\n"
           "0,1,1001,Torque boost,%,0.1,-1,-1,6,3,1,1,0,30\r\n"
           "2,79,1079,Operation mode,,1,-1,-1,0,1,1,1,0,7,MODE,1,1,1,2,1,3\r\n"
           "0,990,1990,Buzzer control,,1,-1,-1,1,0,0,0,";
}
