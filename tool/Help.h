#pragma once

#include <QString>

#include <memory>

class QCommandLineParser;
struct Command;

/// The program's help: its commands.
QString programHelp();

/// The help of a command: its arguments and options.
QString commandHelp(const Command &command);

/// How a command is called: "check [OPTION...] FILE...".
QString commandUsage(const Command &command);

/// A parser of the command's options and arguments.
std::unique_ptr<QCommandLineParser> parserOf(const Command &command);
