#pragma once

class QFont;
class SpreadGrid;

/// Asks for a font, keeps it as UserFont in the settings, and applies it to the grid.
void chooseGridFont(SpreadGrid &grid);

/// Sets the font of all cells and headers. The header row becomes as high as its texts need; data rows keep their
/// heights.
void applyGridFont(SpreadGrid &grid, const QFont &font);
