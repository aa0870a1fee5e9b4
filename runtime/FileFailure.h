#pragma once

#include "resources/OwnTexts.h"
#include "runtime/FileError.h"
#include "runtime/RunTimeError.h"

#include <QStringList>

#include <optional>

/// Where something stands in a document.
struct CellPlace
{
    int row = 0; ///< from 1; 0: the machine information
    int column = 0; ///< the grid's, from 1; 0: the machine information

    bool operator==(const CellPlace &) const = default;
};

/// Where something is in a file.
struct FilePosition
{
    int row = 0; ///< from 1; 0: the machine information
    int field = 0; ///< from 1, in the order of the row's fields; 0: the row, or the machine information, as a whole
    qsizetype offset = 0; ///< the byte, from 0, that it begins with

    bool operator==(const FilePosition &) const = default;
};

/// Why a file could not be read or written. It is worded where it is shown (app/services/Messages.h), in the user's
/// language.
struct FileFailure
{
    std::optional<OwnText> text; ///< nothing: the user is told nothing
    QStringList arguments = {}; ///< what fills the text's placeholders
    std::optional<CellPlace> place = {}; ///< the text that cannot be written
    std::optional<FilePosition> position = {}; ///< what cannot be read

    static FileFailure silent() { return {}; }
    static FileFailure of(RunTimeError error);
    static FileFailure of(const FileError &error);
    /// reason: the system's own description.
    static FileFailure ofSystem(const QString &reason) { return {OwnText::SystemReason, {reason}}; }
};
