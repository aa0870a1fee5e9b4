#pragma once

#include <QString>

enum class CellMark : quint8 { None, Warning, Error };

/// Says which data cells of a grid are to be marked, and why. Columns and rows count from 1.
class CellMarks
{
public:
    virtual ~CellMarks() = default;

    virtual CellMark mark(int column, int row) = 0;
    /// What the user is told of a marked cell, one line for each reason; empty for other cells.
    virtual QString text(int column, int row) = 0;
};
