#pragma once

#include <QByteArray>
#include <QStringList>

#include <sys/types.h>

/// A program on a terminal of its own.
class TerminalProcess
{
public:
    /// Starts the program in that folder; its input, output and errors are the terminal. environment: "NAME=value"s,
    /// beside PATH and the usual ones.
    TerminalProcess(const QString &folder, const QStringList &command, const QStringList &environment = {});
    ~TerminalProcess();
    Q_DISABLE_COPY_MOVE(TerminalProcess)

    /// Waits until the terminal shows the text; false if the program ends, or the test's patience does, without it.
    bool waitFor(const QByteArray &text);
    /// Types the text.
    void type(const QByteArray &text) const;
    /// Waits for the program's end. Returns its exit status, -1 if it did not end by itself.
    int finish();

    /// Everything that the terminal has shown.
    const QByteArray &shown() const { return m_shown; }

private:
    bool readSome();

    int m_terminal = -1;
    pid_t m_child = -1;
    QByteArray m_shown;
};
