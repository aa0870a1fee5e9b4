#pragma once

#include "grid/cells/TextMatcher.h"

#include <QPoint>
#include <QString>

#include <optional>

class QTableView;
class SpreadModel;

/// Finds a text in the shown cells of a grid, without regard to case. A check box has no text. Columns and rows count
/// from 1.
class CellSearch
{
public:
    struct Count
    {
        int number = 0; ///< of a cell among those that hold the text, from 1; 0 if it does not hold it
        int all = 0;
    };

    CellSearch(const QTableView &view, const SpreadModel &model) : m_view(view), m_model(model) { }

    /// An empty text is found nowhere.
    void setText(const QString &text);
    bool isFound(int column, int row) const;
    /// The next cell (column, row) that holds the text, in reading order (step 1) or against it (step -1), wrapping
    /// around at the end of the grid; the cell from itself comes last. std::nullopt if no cell holds the text.
    std::optional<QPoint> next(QPoint from, int step) const;
    /// How many cells hold the text, and which of them the cell is.
    Count count(QPoint cell) const;

private:
    bool mayBeInRow(int row) const;

    const QTableView &m_view;
    const SpreadModel &m_model;
    TextMatcher m_matcher;
};
