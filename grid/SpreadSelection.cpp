#include "grid/SpreadSelection.h"

#include "grid/cells/SpreadModel.h"

#include <QItemSelectionModel>
#include <QTableView>

#include <algorithm>

SpreadSelection::SpreadSelection(QTableView &view, SpreadModel &model) : QObject(&view), m_view(view), m_model(model)
{
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { adopt(); });
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { adopt(); });
}

GridBlock SpreadSelection::block() const
{
    const int column1 = std::min(m_anchor.x(), m_far.x());
    const int row1 = std::min(m_anchor.y(), m_far.y());
    const int column2 = std::max(m_anchor.x(), m_far.x());
    const int row2 = std::max(m_anchor.y(), m_far.y());
    switch (m_shape) {
    case Shape::Rows:
        return {-1, row1, m_model.columnCount(), row2};
    case Shape::Columns:
        return {column1, 1, column2, m_model.rowCount()};
    case Shape::Cells:
        break;
    }
    return {column1, row1, column2, row2};
}

bool SpreadSelection::isBlock() const
{
    return !block().isSingleCell();
}

bool SpreadSelection::contains(int column, int row) const
{
    const GridBlock cells = block();
    return column >= cells.column1 && column <= cells.column2 && row >= cells.row1 && row <= cells.row2;
}

int SpreadSelection::activeColumn() const
{
    return m_view.currentIndex().column() + 1;
}

int SpreadSelection::activeRow() const
{
    return m_view.currentIndex().row() + 1;
}

void SpreadSelection::moveTo(int column, int row)
{
    const QPoint cell = clamped({column, row});
    set(Shape::Cells, cell, cell, cell);
}

void SpreadSelection::extendTo(int column, int row)
{
    set(m_shape, m_anchor, clamped({column, row}), {activeColumn(), activeRow()});
}

void SpreadSelection::select(const GridBlock &block)
{
    const bool isRows = block.isWholeRows();
    const QPoint topLeft = clamped({isRows ? 1 : block.column1, block.row1 < 0 ? 1 : block.row1});
    const QPoint bottomRight = clamped({isRows || block.column2 < 0 ? m_model.columnCount() : block.column2,
        block.row2 < 0 ? m_model.rowCount() : block.row2});
    set(isRows ? Shape::Rows : Shape::Cells, topLeft, bottomRight, topLeft);
}

void SpreadSelection::selectRows(int row1, int row2, int activeColumn)
{
    set(Shape::Rows, clamped({1, row1}), clamped({m_model.columnCount(), row2}), clamped({activeColumn, 1}));
}

void SpreadSelection::selectColumns(int column1, int column2, int activeRow)
{
    set(Shape::Columns, clamped({column1, 1}), clamped({column2, m_model.rowCount()}), clamped({column1, activeRow}));
}

void SpreadSelection::selectAll()
{
    selectRows(1, m_model.rowCount(), activeColumn());
}

void SpreadSelection::fitIntoGrid()
{
    set(m_shape, clamped(m_anchor), clamped(m_far), clamped({activeColumn(), activeRow()}));
}

// (0, 0) in a grid without cells.
QPoint SpreadSelection::clamped(QPoint cell) const
{
    if (m_model.rowCount() == 0 || m_model.columnCount() == 0) {
        return {0, 0};
    }
    return {std::clamp(cell.x(), 1, m_model.columnCount()), std::clamp(cell.y(), 1, m_model.rowCount())};
}

void SpreadSelection::set(Shape shape, QPoint anchor, QPoint far, QPoint active)
{
    m_shape = anchor.isNull() ? Shape::Cells : shape;
    m_anchor = anchor;
    m_far = far;
    if (m_shape == Shape::Rows) {
        active.setY(std::min(anchor.y(), far.y()));
    }
    const auto writing = hold();
    QItemSelectionModel &selection = *m_view.selectionModel();
    selection.setCurrentIndex(m_model.cellIndex(active.x(), active.y()), QItemSelectionModel::NoUpdate);
    show();
}

void SpreadSelection::show()
{
    const auto cells = m_anchor.isNull() ? std::nullopt : m_model.dataCells(block());
    const QItemSelection range = cells
        ? QItemSelection(m_model.cellIndex(cells->column1, cells->row1), m_model.cellIndex(cells->column2, cells->row2))
        : QItemSelection();
    m_view.selectionModel()->select(range, QItemSelectionModel::ClearAndSelect);
    emit changed();
}

// The selection was changed from elsewhere: by a screen reader, or by a routine of Qt's view. If it covers all columns
// or all rows it is taken for whole rows or whole columns.
void SpreadSelection::adopt()
{
    if (m_writing) {
        return;
    }
    const QItemSelection ranges = m_view.selectionModel()->selection();
    const QPoint active{activeColumn(), activeRow()};
    const QItemSelectionRange range = ranges.isEmpty() ? QItemSelectionRange() : ranges.first();
    m_shape = Shape::Cells;
    m_anchor = m_far = active;
    if (range.isValid() && range.contains(m_view.currentIndex())) {
        m_anchor = {range.left() + 1, range.top() + 1};
        m_far = {range.right() + 1, range.bottom() + 1};
        const bool allColumns = range.width() == m_model.columnCount() && range.width() > 1;
        const bool allRows = range.height() == m_model.rowCount() && range.height() > 1;
        m_shape = allColumns ? Shape::Rows : allRows ? Shape::Columns : Shape::Cells;
    }
    emit changed();
}
