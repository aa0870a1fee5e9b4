#pragma once

#include "runtime/Failure.h"
#include "runtime/Result.h"

#include <QString>
#include <QStringList>

/// Runs a program with these arguments and this process's streams and environment in this one's place, and returns its
/// exit status; where the system can, the program becomes this process, and only a failure to start it returns.
Result<int> runInPlace(const QString &program, const QStringList &arguments);
