#pragma once

#include "tool/Output.h"
#include "tool/ToolTexts.h"

#include <QStringList>

/// What the program ends with.
enum ExitStatus {
    Fine = 0,
    Found = 1, ///< findings, differences, conflicts, files that are not in the saved form
    Failed = 2, ///< something could not be done
};

/// How a command speaks and what it was told for all files.
struct Session
{
    Output out{stdout};
    Output err{stderr};
    std::optional<int> codePage; ///< std::nullopt: the one that the file's bytes fit
    bool isQuiet = false; ///< only the exit status and failures tell

    /// A line on standard error, after the program's name.
    void say(const QString &text);
    void say(ToolText text, const QStringList &arguments = {}) { say(toolText(text, arguments)); }
};
