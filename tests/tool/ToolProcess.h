#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a program gave.
struct ToolRun
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

/// The tool as a process, in a folder of its own.
class ToolProcess : public testing::Test
{
protected:
    /// Runs the tool with these arguments, in English; input is its standard input.
    ToolRun run(const QStringList &arguments, const QByteArray &input = {}) const;
    /// Runs a line of the shell, in which $TOOL is the tool, in the folder.
    ToolRun shell(const QString &line) const;

    QString path(const QString &name) const { return m_folder.filePath(name); }
    /// Puts a file into the folder and returns its path.
    QString put(const QString &name, const QByteArray &bytes) const;
    QByteArray contentOf(const QString &name) const;

private:
    static ToolRun start(
        const QString &program, const QStringList &arguments, const QByteArray &input, const QString &folder);

    QTemporaryDir m_folder;
};

/// A file of three parameters: 1, 79 and 990, as a save gives it.
QByteArray threeRows();
