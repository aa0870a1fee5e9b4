#pragma once

#include "document/ParameterColumn.h"

#include <QStringView>

#include <array>

/// The texts of a row, by column from 1 at index 0.
using CellTexts = std::array<QStringView, ParameterColumn::Count>;

/// The cells of a parameter grid, as they are collected before a save.
class PrGrid
{
public:
    virtual ~PrGrid() = default;

    virtual int rowCount() const = 0;
    /// The text of a data cell; column (ParameterColumn) and row from 1. Valid until the grid's next change or event
    /// pass.
    virtual QStringView cellText(int column, int row) const = 0;
    /// The texts of a whole row, for grids that have them at hand.
    virtual CellTexts rowTexts(int row) const
    {
        CellTexts texts;
        for (int column = 1; column <= ParameterColumn::Count; ++column) {
            texts[std::size_t(column - 1)] = cellText(column, row);
        }
        return texts;
    }
};
