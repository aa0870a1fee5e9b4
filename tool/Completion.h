#pragma once

#include <QString>

/// A script with which bash completes the program's commands, options and what they take.
QString bashCompletion();
