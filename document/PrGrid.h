#pragma once

#include <QStringView>

/// The cells of a parameter grid, as they are collected before a save.
class PrGrid
{
public:
    virtual ~PrGrid() = default;

    virtual int rowCount() const = 0;
    /// The text of a data cell; column (ParameterColumn) and row from 1. Valid until the grid's next change or event
    /// pass.
    virtual QStringView cellText(int column, int row) const = 0;
};
