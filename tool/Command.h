#pragma once

#include "tool/Options.h"
#include "tool/Session.h"

#include <limits>
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
    void (*addOptions)(OptionList &options); ///< beside those that all commands have
    int (*run)(const QCommandLineParser &parser, Session &session); ///< returns an ExitStatus; values are known ones
};

/// Every command, in the order of the help.
std::span<const Command> toolCommands();

/// The command of that name; nullptr if there is none.
const Command *commandNamed(QStringView name);

/// The options that all commands have.
OptionList commonOptions();

/// These, and those of this command.
OptionList optionsOf(const Command &command);

/// Writes bytes to the file of the option --output, or to standard output. Returns an ExitStatus.
int deliver(const QCommandLineParser &parser, Session &session, const QByteArray &bytes);

/// The same to the file of that name; "-" and an empty name are standard output.
int deliverTo(const QString &fileName, Session &session, const QByteArray &bytes);
