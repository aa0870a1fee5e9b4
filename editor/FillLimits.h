#pragma once

#include "grid/cells/CellType.h"

#include <optional>

/// Why a cell does not take a text that is filled in.
enum class FillRefusal { NotInRange, TooLong, NoChoice, LineBreak };

/// What a text becomes in a cell of that type: a number takes its usual form, a check box takes numbers and is unticked
/// by an empty text.
QString filledText(const CellType &type, const QString &text);

/// A cell takes what a user could have typed or chosen there. Nothing where it takes the text.
std::optional<FillRefusal> fillRefusal(const CellType &type, const QString &text);
