#pragma once

#include <QStringList>

/// Runs the command that the arguments name (without the program's own name). Returns an ExitStatus. An application
/// object has to be there.
int runProgram(const QStringList &arguments);
