#pragma once

#include "grid/cells/CellType.h"

#include <optional>

/// Why a cell does not take a text that is filled in.
enum class FillRefusal { NotInRange, TooLong, NoChoice, LineBreak };

/// What a text becomes in a cell of that type: a number takes its normal form, a check box takes numbers and is
/// unticked by an empty text.
QString filledText(const CellType &type, const QString &text);

/// Why a cell of that type refuses the text; std::nullopt if it takes it. It takes what a user could have typed or
/// chosen.
std::optional<FillRefusal> fillRefusal(const CellType &type, const QString &text);
