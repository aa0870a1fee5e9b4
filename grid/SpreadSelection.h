#pragma once

#include "grid/cells/GridBlock.h"

#include <QObject>
#include <QPoint>
#include <QScopedValueRollback>

class QTableView;
class SpreadModel;

/// What is selected in a spread grid: one rectangle of cells, whole rows or whole columns. The active cell (the view's
/// current index) stays where the selection began, while the far corner moves. With whole rows the active cell is
/// always in the first of them, because commands insert and paste there. Columns and rows count from 1.
class SpreadSelection : public QObject
{
    Q_OBJECT

public:
    SpreadSelection(QTableView &view, SpreadModel &model);

    /// What is selected, as SpreadView::selectedBlock() reports it; {0, 0, 0, 0} if the grid has no cells.
    GridBlock block() const;
    bool isBlock() const;
    bool contains(int column, int row) const;
    int activeColumn() const;
    int activeRow() const;
    /// The corner that moves when the selection is extended; (column, row).
    QPoint farCorner() const { return m_far; }
    /// The row where a selection of rows begins if it is extended from what is selected now.
    int startRow() const { return m_shape == Shape::Rows ? m_anchor.y() : activeRow(); }

    void moveTo(int column, int row);
    /// Selects from where the selection began to this cell; whole rows or columns if such are selected.
    void extendTo(int column, int row);
    void select(const GridBlock &block);
    /// Selects whole rows, from row1 on; the active cell goes to the upper row, in that column.
    void selectRows(int row1, int row2, int activeColumn);
    /// Selects whole columns; the active cell goes to column1, in that row.
    void selectColumns(int column1, int column2, int activeRow);
    void selectAll();
    /// As long as the result lives, the selection does not adopt what the view selects.
    [[nodiscard]] QScopedValueRollback<bool> hold() { return QScopedValueRollback(m_writing, true); }
    /// Cuts the selection off at the grid's edges after rows or columns were added or dropped.
    void fitIntoGrid();

signals:
    /// The selection has changed, or may have.
    void changed();

private:
    enum class Shape { Cells, Rows, Columns };

    void set(Shape shape, QPoint anchor, QPoint far, QPoint active);
    void show();
    void adopt();
    QPoint clamped(QPoint cell) const;

    QTableView &m_view;
    SpreadModel &m_model;
    Shape m_shape = Shape::Cells;
    QPoint m_anchor;
    QPoint m_far;
    bool m_writing = false;
};
