#pragma once

#include "grid/SpreadGrid.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <iosfwd>
#include <memory>

/// A shown grid with the column kinds that the program uses: 1 integer 0 to 1000, 2 text, 3 text of at most 5,
/// 4 check box, 5 drop-down, 6 float 0 to 3600. Cell (c, r) of the text columns holds "c.r".
std::unique_ptr<SpreadGrid> shownGrid(int rows = 20);

void PrintTo(const GridBlock &block, std::ostream *out);

/// The rectangle of a cell in the viewport, with its grid lines.
QRect cellRect(const SpreadGrid &grid, int column, int row);
/// The same without the frame of the active cell and the grid lines.
QRect innerRect(const SpreadGrid &grid, int column, int row);
/// What the cells' part of the grid shows.
QImage pictureOf(SpreadGrid &grid);
/// The centre of a cell in the viewport.
QPoint placeOf(const SpreadGrid &grid, int column, int row);
void clickCell(SpreadGrid &grid, int column, int row, Qt::KeyboardModifiers modifiers = {},
    Qt::MouseButton button = Qt::LeftButton);
void doubleClickCell(SpreadGrid &grid, int column, int row);
/// The middle of a header cell in the header's own viewport.
QPoint headerPlace(const SpreadGrid &grid, int column);
/// The editor that is open in the grid; nullptr without one.
QWidget *openEditor(const SpreadGrid &grid);
/// Keys as the user presses them: to whatever has the focus in the grid.
void pressKey(SpreadGrid &grid, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void typeText(SpreadGrid &grid, const QString &text);
