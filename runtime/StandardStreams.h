#pragma once

#include <QtGlobal>

/// Lets the standard streams take and give bytes as they are, a console show UTF-8, and a write tell of a reader that
/// has gone. To be called first in main.
void prepareStandardStreams();

/// Whether a standard stream (1: output, 2: errors) is a terminal that obeys more than plain text.
bool isTerminal(int descriptor);

/// While one is there, nothing is written to standard error.
class QuietErrors
{
public:
    QuietErrors();
    ~QuietErrors();
    Q_DISABLE_COPY_MOVE(QuietErrors)

private:
    int m_errors; ///< descriptor of what standard error was before
};
