#pragma once

#include "resources/OwnTexts.h"
#include "runtime/RunTimeError.h"

#include <QStringList>

#include <optional>

/// Why a file could not be read or written. It is worded where it is shown (app/Messages.h), in the user's language.
struct FileFailure
{
    std::optional<OwnText> text; ///< nothing: the user is told nothing
    QStringList arguments = {}; ///< what fills the text's placeholders

    static FileFailure silent() { return {}; }
    static FileFailure of(RunTimeError error);
    /// reason: the system's own description.
    static FileFailure ofSystem(const QString &reason) { return {OwnText::SystemReason, {reason}}; }
};
