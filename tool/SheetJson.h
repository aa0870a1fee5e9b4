#pragma once

#include "tool/Sheet.h"

#include <QByteArray>

#include <optional>

/// A document as JSON: its machine information, capacities, options and parameters (docs/tool.md has the form).
QByteArray sheetAsJson(const Sheet &sheet);

/// A document that was read from another format, or why it could not be: a sentence that names the place.
struct ReadSheet
{
    Sheet sheet;
    std::optional<QString> failure;
};

/// What sheetAsJson() wrote. Nothing may be missing, and nothing else may be there.
ReadSheet sheetFromJson(const QByteArray &bytes);
