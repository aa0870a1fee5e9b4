#pragma once

#include <QObject>

class FindField;
class QWidget;
class SpreadGrid;

/// Finds texts in the shown columns of an editor window's grid: as they are typed into a field over the grid's upper
/// right corner, and from match to match, around the end of the grid.
class GridFinder : public QObject
{
    Q_OBJECT

public:
    GridFinder(SpreadGrid &grid, QWidget *window);

    /// Shows the field with what was searched for last, ready to be typed over.
    void open();
    /// To the next match, also while the field is closed. Without a text to search for, the field opens.
    void findNext() { find(1); }
    void findPrevious() { find(-1); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void searchTyped();
    void find(int step);
    void close();
    void place();

    SpreadGrid &m_grid;
    FindField *m_field;
};
