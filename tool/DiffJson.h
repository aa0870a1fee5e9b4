#pragma once

#include "tool/DiffReport.h"
#include "tool/SheetDiff.h"

#include <QByteArray>

#include <optional>

/// The differences as JSON, from which patchSheet() makes the later document of the earlier one.
QByteArray diffAsJson(const SheetDiff &diff, const DiffNames &names);

/// What diffAsJson() wrote, or why bytes are not that: a sentence that names the place.
struct ReadDiff
{
    SheetDiff diff;
    std::optional<QString> failure;
};
ReadDiff diffFromJson(const QByteArray &bytes);
