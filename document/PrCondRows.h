#pragma once

#include "document/PrRecord.h"

#include <QList>
#include <QStringList>

#include <array>
#include <span>

/// The three grids of read conditions, with the texts of a row: parameter number, relation, value, upper value;
/// relation, mode name; relation, option. A relation is "=" or "<>".
enum CondGrid { ParameterGrid, ModeGrid, OptionGrid, CondGridCount };

/// The rows of each grid, a row being the texts of its cells.
using PrCondRows = std::array<QList<QStringList>, CondGridCount>;

/// A condition text and how many conditions it holds.
struct PrCondResult
{
    qint16 count = 0;
    QString text;

    bool operator==(const PrCondResult &) const = default;
};

/// Deals the conditions out to the grids, each in the list's order. A mode number that has no name in modeNames (by
/// number from 0) is shown as it is.
PrCondRows rowsOfConditions(std::span<const PrCondition> conditions, const QStringList &modeNames);

/// The condition text of the rows: options, then parameters, then modes. Option rows without an option are left out,
/// and parameter rows without a number or without a numeric value.
PrCondResult conditionsOfRows(const PrCondRows &rows, const QStringList &modeNames);
