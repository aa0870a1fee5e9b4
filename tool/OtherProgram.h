#pragma once

#include "tool/Session.h"

/// Runs another program of the same folder with this one's arguments, streams and environment in its place. Returns its
/// exit status, or Failed if it cannot be started, which the user is told; where the system can, it becomes this
/// process, and nothing is returned.
int runInstead(const QString &program, Session &session);
