#pragma once

#include "tool/Session.h"

#include <QCommandLineParser>

#include <limits>
#include <optional>
#include <span>

/// For commands that take as many files as wanted.
inline constexpr int manyFiles = std::numeric_limits<int>::max();

/// A command of the program.
struct Command
{
    QLatin1StringView name;
    ToolText summary;
    ToolText arguments; ///< what the arguments are
    QLatin1StringView usage; ///< the arguments as help shows them; empty for none
    int minFiles;
    int maxFiles;
    void (*addOptions)(QCommandLineParser &parser); ///< beside those that all commands have
    int (*run)(const QCommandLineParser &parser, Session &session); ///< returns an ExitStatus
};

/// Every command, in the order of the help.
std::span<const Command> commands();

/// Adds an option that takes a value; defaultValue is empty for none.
void addValueOption(QCommandLineParser &parser, const QString &name, ToolText text, const QString &valueName,
    const QString &defaultValue = {});
/// Adds an option that is given or not.
void addSwitch(QCommandLineParser &parser, const QString &name, ToolText text);

/// Adds the option --output, which deliver() goes by.
void addOutputOption(QCommandLineParser &parser);

/// The option's value, if it is one of those; otherwise the session says which they are, and std::nullopt is returned.
std::optional<QString> chosenValue(
    const QCommandLineParser &parser, const QString &name, const QStringList &allowed, Session &session);

/// The pieces of an option's value that is a list with commas; each has to be allowed.
std::optional<QStringList> chosenList(
    const QCommandLineParser &parser, const QString &name, const QStringList &allowed, Session &session);

/// Writes bytes to the file of the option --output, or to standard output. Returns an ExitStatus.
int deliver(const QCommandLineParser &parser, Session &session, const QByteArray &bytes);

/// The same to the file of that name; "-" and an empty name are standard output.
int deliverTo(const QString &fileName, Session &session, const QByteArray &bytes);
