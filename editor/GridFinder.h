#pragma once

#include "grid/cells/GridBlock.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>

class FindField;
class QWidget;
class SpreadGrid;

/// Finds texts in the shown columns of an editor window's grid: as they are typed into a field over the grid's upper
/// right corner, and from match to match, wrapping around the end of the grid. While there is no match, the grid stays
/// where the search began. Escape returns there, unless the user has moved on from the match; Tab stays at the match.
class GridFinder : public QObject
{
    Q_OBJECT

public:
    GridFinder(SpreadGrid &grid, QWidget *window);

    /// Shows the field with the last searched text selected.
    void open();
    /// To the next match, also while the field is closed. Without a text to search for, the field opens.
    void findNext() { find(1); }
    void findPrevious() { find(-1); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What was selected and in view before a search led elsewhere.
    struct Position
    {
        GridBlock block;
        QPoint cell;
        int topRow;
        int left; ///< pixels that are scrolled out
    };

    void followGrid();
    void searchTyped();
    Position here() const;
    void returnTo(const Position &position);
    void showCount();
    void find(int step);
    void giveUp();
    void close();
    void placeField();

    SpreadGrid &m_grid;
    FindField *m_field;
    std::optional<Position> m_origin; ///< of the search that is being typed
    QPoint m_reached; ///< the cell to which typing has led
    QTimer m_recount;
};
