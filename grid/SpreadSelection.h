#pragma once

#include "grid/cells/GridBlock.h"

#include <QObject>
#include <QPoint>
#include <QScopedValueRollback>

class QTableView;
class SpreadModel;

/// What is selected in a spread grid: one rectangle of cells, whole rows or whole columns. The active cell (the view's
/// current index) stays where a selection was begun, while its far corner moves; only of whole rows the first has it,
/// whichever end they were begun at, because commands insert and paste there. Columns and rows count from 1.
class SpreadSelection : public QObject
{
    Q_OBJECT

public:
    SpreadSelection(QTableView &view, SpreadModel &model);

    /// What is selected, as SpreadGrid::selectedBlock() reports it; {0, 0, 0, 0} without any cell.
    GridBlock block() const;
    bool isBlock() const;
    bool contains(int column, int row) const;
    int activeColumn() const;
    int activeRow() const;
    /// The corner that moves when the selection is extended; (column, row).
    QPoint farCorner() const { return m_far; }
    /// The row at which a selection of rows begins when it is extended from what is selected now.
    int rowOfBeginning() const { return m_shape == Shape::Rows ? m_anchor.y() : activeRow(); }

    void moveTo(int column, int row);
    /// Selects from where the selection was begun to this cell, rows or columns as such when they are selected so.
    void extendTo(int column, int row);
    void select(const GridBlock &block);
    /// The rows as such, begun at row1; the active cell goes to the upper of the two, in that column.
    void selectRows(int row1, int row2, int activeColumn);
    /// The columns as such; the active cell goes to column1, in that row.
    void selectColumns(int column1, int column2, int activeRow);
    void selectAll();
    /// As long as the result lives, the selection does not follow what the view does to it.
    [[nodiscard]] QScopedValueRollback<bool> hold() { return QScopedValueRollback(m_writing, true); }
    /// Shows the selection again in a grid that has other rows or columns now; what is outside is cut off.
    void fitIntoGrid();

signals:
    /// What is selected, or may be, is another.
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
