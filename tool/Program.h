#pragma once

#include <QStringList>

/// A reader that has gone is told by the write, and does not end the process. To be called before anything else.
void prepareStreams();

/// What main() was called with, without the program's own name.
QStringList argumentsOf(int argc, char **argv);

/// Runs the command that the arguments name (without the program's own name). Returns an ExitStatus. An application
/// object has to be there.
int runProgram(const QStringList &arguments);
