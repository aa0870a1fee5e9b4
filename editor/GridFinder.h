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
/// right corner, and from match to match, around the end of the grid. While what is typed is found nowhere, the grid
/// stays where the search began. Escape returns there, unless the user has gone on from the match; Tab stays at it.
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
    /// What was selected and in view before a search led elsewhere.
    struct Place
    {
        GridBlock block;
        QPoint cell;
        int topRow;
        int left; ///< pixels that are scrolled out
    };

    void followGrid();
    void searchTyped();
    Place here() const;
    void returnTo(const Place &place);
    void showCount();
    void find(int step);
    void giveUp();
    void close();
    void place();

    SpreadGrid &m_grid;
    FindField *m_field;
    std::optional<Place> m_origin; ///< of what is being typed
    QPoint m_reached; ///< the cell to which typing has led
    QTimer m_recount;
};
