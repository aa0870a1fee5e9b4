#include "dialogs/DialogGrid.h"

#include "app/services/Common.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int minRows = 2;

} // namespace

void DialogGrid::layOut(const QList<Column> &columns, int visibleRows)
{
    setRowCount(0);
    setGridFont(userFont());
    setColumnCount(static_cast<int>(columns.size()));
    int number = 0;
    for (const Column &column : columns) {
        ++number;
        setText(number, 0, column.heading);
        setCellType(number, -1, column.type);
        setWidthInCharacters(number, column.width);
    }
    fitRowHeight(0);
    int widest = 0;
    for (int column = 0; column < columnCount(); ++column) {
        widest = std::max(widest, columnWidth(column));
    }
    m_wholeSize = sizeFor(horizontalHeader()->length(), visibleRows);
    m_smallestSize = sizeFor(widest, std::min(visibleRows, minRows));
    updateGeometry();
}

QSize DialogGrid::sizeFor(int columnsWidth, int rows) const
{
    const int frame = 2 * frameWidth();
    const int rowNumbers = verticalHeader()->minimumWidth();
    const int bar = verticalScrollBar()->sizeHint().width();
    const int headings = horizontalHeader()->minimumHeight();
    return {rowNumbers + columnsWidth + bar + frame, headings + rows * verticalHeader()->defaultSectionSize() + frame};
}

void DialogGrid::setShrinkable(bool shrinkable)
{
    m_shrinkable = shrinkable;
    updateGeometry();
}

QSize DialogGrid::minimumSizeHint() const
{
    return m_shrinkable ? m_smallestSize + QSize(0, horizontalScrollBar()->sizeHint().height()) : m_wholeSize;
}

void DialogGrid::setRows(const QList<QStringList> &rows)
{
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 1; row <= rowCount(); ++row) {
        const QStringList &texts = rows[row - 1];
        const QList<QStringView> views(texts.cbegin(), texts.cend());
        setRowTexts(row, views);
    }
    ensureActiveCell();
}

QList<QStringList> DialogGrid::rows() const
{
    QList<QStringList> rows;
    for (int row = 1; row <= rowCount(); ++row) {
        QStringList texts;
        for (int column = 1; column <= columnCount(); ++column) {
            texts << text(column, row);
        }
        rows << texts;
    }
    return rows;
}

void DialogGrid::addRow()
{
    setRowCount(rowCount() + 1);
    ensureActiveCell();
    scrollToBottom();
}

void DialogGrid::removeRows(int first, int last)
{
    const int rows = rowCount();
    const int column = activeColumn();
    if (last < rows) {
        moveRowTexts(last + 1, rows, first);
    }
    setRowCount(rows - (last - first + 1));
    if (rowCount() > 0) {
        setActiveCell(column, std::min(first, rowCount()));
    }
}

void DialogGrid::ensureActiveCell()
{
    if (activeRow() < 1 && rowCount() > 0) {
        setActiveCell(1, 1);
    }
}

// For Tab a list in a dialog is one control; the arrow keys move in it.
bool DialogGrid::focusNextPrevChild(bool next)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the base class would use Tab to move between cells
    return QWidget::focusNextPrevChild(next);
}

void DialogGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore(); // the dialog takes it
    } else if (!m_rowKeys || !runRowKey(*event)) {
        SpreadGrid::keyPressEvent(event);
    }
}

/// False when the key is not one for rows.
bool DialogGrid::runRowKey(const QKeyEvent &event)
{
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const GridBlock block = selectedBlock();
    if (isPlain && event.key() == Qt::Key_Insert) {
        emit rowRequested();
        return true;
    }
    if (isPlain && event.key() == Qt::Key_Delete && block.isWholeRows() && rowCount() > 0) {
        emit removalRequested(block.row1, block.row2);
        return true;
    }
    return false;
}
