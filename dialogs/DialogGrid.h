#pragma once

#include "grid/SpreadGrid.h"

#include <QList>
#include <QString>

/// A small spread grid in a dialog. Enter presses the dialog's OK, unless it ends an edit.
class DialogGrid : public SpreadGrid
{
    Q_OBJECT

public:
    struct Column
    {
        QString heading;
        double width; ///< digits of the grid's font
        CellType type;
    };

    using SpreadGrid::SpreadGrid;

    /// Gives the grid these columns and no rows, in the user's font. It never gets smaller than its columns and that
    /// many rows.
    void layOut(const QList<Column> &columns, int visibleRows = 6);
    /// Whether the grid may get smaller nevertheless, down to its widest column and a few rows; it scrolls then.
    void setShrinkable(bool shrinkable);
    /// Fills the grid with rows, each the texts of its cells, and makes the first cell the active one.
    void setRows(const QList<QStringList> &rows);
    /// The texts of all rows.
    QList<QStringList> rows() const;
    /// Adds a row with its columns' initial texts at the end and scrolls it into view.
    void addRow();
    /// Removes those rows, which must exist; the rows below them move up. A single cell is selected then.
    void removeRows(int first, int last);

    /// Whether Insert requests another row, and Delete the removal of selected whole rows. Off by default: Insert does
    /// nothing and Delete empties the cells.
    void setRowKeys(bool on) { m_rowKeys = on; }

    QSize sizeHint() const override { return m_wholeSize; }
    QSize minimumSizeHint() const override;

signals:
    void rowRequested();
    void removalRequested(int first, int last);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    QSize sizeFor(int columnsWidth, int rows) const;
    void ensureActiveCell();
    bool runRowKey(const QKeyEvent &event);

    QSize m_wholeSize;
    QSize m_smallestSize;
    bool m_shrinkable = false;
    bool m_rowKeys = false;
};
