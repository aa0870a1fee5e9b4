#pragma once

#include "tool/Output.h"
#include "tool/Terminal.h"
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
    QStringList commandLine; ///< what the program was called with
    std::optional<int> codePage; ///< std::nullopt: the one that the file's bytes fit
    bool isQuiet = false; ///< only the exit status and failures tell

    ColorUse color = ColorUse::Auto;

    /// For a text that is to go to the file of that name, or to standard output.
    Painter painter(const QString &fileName = {}) const;

    /// A line on standard error, after the program's name.
    void say(const QString &text);
    void say(ToolText text, const QStringList &arguments = {}) { say(toolText(text, arguments)); }
};
