#pragma once

#include "grid/SpreadGrid.h"

#include <QObject>
#include <QString>

#include <map>
#include <optional>
#include <vector>

class OpenDocument;
struct CellType;
struct GridBlock;

/// Fills the selected cells of one document's parameter grid by keys. A cell takes what could have been typed there; if
/// one of them does not, the user is told why and nothing is filled. Hidden columns stay as they are unless whole rows
/// are selected. A fill is one undo step, which restores the selection as well.
class GridFilling : public QObject
{
    Q_OBJECT

public:
    GridFilling(SpreadGrid &grid, OpenDocument &document, QObject *parent);

    /// Down and Right copy the first row or column of the selected block over the others; of a block of one row or
    /// column the one above or to the left. Selection puts the open editor's text, else the one cell that was copied
    /// here, into all selected cells. Series continues each column of the block, or of one row those above it.
    void fill(SpreadGrid::Fill way);

private:
    using Texts = std::vector<std::optional<QString>>; ///< std::nullopt: there is no text for the cell
    struct Column
    {
        Texts texts;
        std::vector<bool> isNew; ///< whether the cell has another text than that; filled in by adaptToCells()
    };
    /// What cells are to hold: texts of some columns from row1 on, the same number for each column.
    struct Filling
    {
        int row1 = 1;
        std::map<int, Column> columns;
    };

    Filling downward() const;
    Filling rightward() const;
    Filling everywhere() const;
    Filling series() const;
    Texts seriesTexts(int column, const GridBlock &cells) const;
    Texts textsFromAbove(int column, int row) const;

    GridBlock selectedCells() const;
    std::vector<int> selectedColumns() const;
    std::vector<QString> texts(int column, int row1, int row2) const;
    CellType cellType(int column) const;
    void adaptToCells(Filling &filling) const;
    QString refusalText(int column, int row, const std::optional<QString> &text) const;
    QString firstRefusal(const Filling &filling) const;
    void write(const Filling &filling);
    bool colourChanged(const Filling &filling);

    SpreadGrid &m_grid;
    OpenDocument &m_document;
};
