#pragma once

#include "app/FileReceiver.h"
#include "app/HandOver.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"
#include "tests/support/UserPlaces.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <memory>
#include <vector>

inline QString recentFile(int number)
{
    return UserPlaces::settings().value(QStringLiteral("Recent Files/RecentFile%1").arg(number)).toString();
}

/// Two programs may meet only in the same place of the user's; a test has one of its own.
class HandOverTest : public FrameTest
{
protected:
    HandOverTest() { QDir(dataFolderOfTest()).removeRecursively(); }
    ~HandOverTest() override
    {
        m_receiver.reset();
        for (const auto &program : m_programs) {
            program->kill();
            program->waitForFinished(patience);
        }
    }

    static QString dataFolderOfTest() { return qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/Tabrix"); }

    /// Starts the frame of this test as main() does.
    void startFrame(const QString &file = {})
    {
        HandOver handOver(meetingName());
        ASSERT_FALSE(handOver.give(file));
        start(file);
        m_receiver = std::make_unique<FileReceiver>(handOver, frame());
        QCoreApplication::processEvents();
    }
    /// A program as the desktop starts it. The name is the bytes that it is given.
    QProcess &startProgram(
        const QByteArray &name, const QProcessEnvironment &environment = {}, const QStringList &options = {})
    {
        const auto &program = m_programs.emplace_back(std::make_unique<QProcess>());
        program->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program->setWorkingDirectory(m_workingFolder);
        if (!environment.isEmpty()) {
            program->setProcessEnvironment(environment);
        }
        // QProcess takes no arguments that are not UTF-8
        const QString script = QStringLiteral("exec \"$0\" %1 \"$(printf '%b' \"$1\")\"").arg(options.join(u' '));
        program->start(
            QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script, QStringLiteral(TABRIX_PROGRAM), escaped(name)});
        EXPECT_TRUE(program->waitForStarted(patience));
        return *program;
    }
    static QString escaped(const QByteArray &name)
    {
        QString text;
        for (const char byte : name) {
            text += QStringLiteral("\\0") + QString::number(uchar(byte), 8);
        }
        return text;
    }
    static bool waitForEnd(QProcess &program)
    {
        return QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, patience)
            && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    }
    bool waitForWindows(int count)
    {
        return QTest::qWaitFor([&] { return frame().openEditors().size() == count; }, patience);
    }

    std::unique_ptr<FileReceiver> m_receiver;
    QString m_workingFolder;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};
