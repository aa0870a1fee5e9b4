#pragma once

#include <QObject>

class SpreadHeader;
class SpreadModel;
class SpreadSelection;
class SpreadView;

/// What the mouse does on the headings of a spread grid: it selects rows by their numbers, fits columns and rows to
/// their texts, and asks for the pop-up menu. Columns and rows count from 1; a column's heading is in row 0, a row's in
/// column 0, and the corner is both.
class HeadingMouse final : public QObject
{
    Q_OBJECT

public:
    HeadingMouse(SpreadView &view, const SpreadModel &model, SpreadSelection &selection, SpreadHeader &columns,
        SpreadHeader &rows);

signals:
    void doubleClicked(int column);
    void rightClicked(int column, int row, const QPoint &globalPosition);

private:
    void connectColumns(SpreadHeader &columns);
    void connectRows(SpreadHeader &rows);
    void connectCorner(const SpreadModel &model);
    void doubleClick(int column);
    void pressRow(int row);
    void extendToRow(int row);

    SpreadView &m_view;
    SpreadSelection &m_selection;
};
