#pragma once

#include "tests/support/Patience.h"

#include <gtest/gtest.h>

#include <QProcess>

/// The program that TABRIX_PEER names, which is killed at the end if it still runs.
class PeerProgram
{
public:
    explicit PeerProgram(const QStringList &arguments)
    {
        m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_program.start(QStringLiteral(TABRIX_PEER), arguments);
        EXPECT_TRUE(m_program.waitForStarted(patience));
    }
    ~PeerProgram() { kill(); }
    Q_DISABLE_COPY_MOVE(PeerProgram)

    /// Waits for the next line that it says; empty if it ends without one.
    QByteArray heard()
    {
        while (!m_program.canReadLine() && m_program.waitForReadyRead(patience)) { }
        return m_program.readLine().trimmed();
    }
    bool isRunning() const { return m_program.state() != QProcess::NotRunning; }
    /// Lets what has happened to it be noticed.
    void look() { m_program.waitForFinished(1); }
    /// Ends it by TerminateProcess(): nothing of it runs any more.
    void kill()
    {
        m_program.kill();
        m_program.waitForFinished(patience);
    }
    /// Waits for its end and returns its exit status; -1 if it did not end by itself.
    int finish()
    {
        const bool hasEnded = !isRunning() || m_program.waitForFinished(patience);
        return hasEnded && m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
    }

private:
    QProcess m_program;
};
