#pragma once

#include <QObject>

struct GridBlock;
class OpenDocument;
class SpreadGrid;
class SpreadHistory;

/// The Edit commands that move rows and cells of one document's parameter grid.
class GridCommands : public QObject
{
    Q_OBJECT

public:
    GridCommands(SpreadGrid &grid, OpenDocument &document, QObject *parent);

    void copy();
    void cut();
    void paste();
    /// Inserts as many rows as were copied above the first selected row, then pastes them.
    void addPaste();
    /// Inserts rows above the first selected row. The topmost is given an added parameter's texts but keeps the read
    /// condition of the row that stood there; the others keep their texts. Returns false, and adds none, when a file
    /// could not count the rows.
    bool addLines(int lines = 1);
    /// Removes the rows that the selection touches, unless the grid holds two rows or fewer. Asks before the last row
    /// goes, whatever shape of selection touches them all.
    void deleteLines();

    /// Takes the last edit or command back, with its colours, the frame's labels and the changed flag.
    void undo();
    /// Makes again what was taken back last.
    void redo();

signals:
    /// Paste has become possible, and Add-paste too when rows were copied.
    void copied(bool wholeRows);

private:
    void pasteBlock(const QString &text);
    void pasteRows(const QString &text);
    void pasteCell(const QString &text);
    void place(const GridBlock &target, const QString &text);
    bool confirmsDeletingAll();
    void restore(bool (SpreadHistory::*way)());
    void noteRowCount();

    SpreadGrid &m_grid;
    OpenDocument &m_document;
};
