#include "dialogs/DialogGrid.h"

#include "app/Common.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace {

constexpr int visibleRows = 6;

} // namespace

void DialogGrid::layOut(const QList<Column> &columns)
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
    horizontalHeader()->setHighlightSections(false); // bold headings need more width than their columns have
    setMinimumExtent();
}

// However small the user makes the dialog, no column is out of view and some rows are in view.
void DialogGrid::setMinimumExtent()
{
    const int frame = 2 * frameWidth();
    const int columns = verticalHeader()->minimumWidth() + horizontalHeader()->length();
    const int rows = horizontalHeader()->minimumHeight() + visibleRows * verticalHeader()->defaultSectionSize();
    setMinimumSize(columns + verticalScrollBar()->sizeHint().width() + frame, rows + frame);
}

QSize DialogGrid::sizeHint() const
{
    return minimumSize();
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

void DialogGrid::removeActiveRow()
{
    const int active = activeRow();
    const int last = rowCount();
    if (active < 1) {
        return;
    }
    if (active < last) {
        moveRowTexts(active + 1, last, active);
    }
    setRowCount(last - 1);
}

void DialogGrid::ensureActiveCell()
{
    if (activeRow() < 1 && rowCount() > 0) {
        setActiveCell(1, 1);
    }
}

void DialogGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore(); // the dialog takes it
    } else {
        SpreadGrid::keyPressEvent(event);
    }
}
