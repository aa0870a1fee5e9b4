#pragma once

#include "grid/cells/GridBlock.h"

#include <QString>

#include <array>
#include <optional>
#include <utility>
#include <vector>

/// A parameter table as plain rows of texts, and what the Edit commands and the keyboard do to it: written for the
/// tests without a look at the grid, so that the two can be compared. Columns and rows count from 1.
class RowsModel
{
public:
    static constexpr int columnCount = 13;
    using Row = std::array<QString, columnCount>;

    enum class Copied { Nothing, Cell, Block, Rows };
    /// What the windows of one program share: the clipboard, and what the program remembers of its last copy.
    struct Clipboard
    {
        QString text;
        Copied copied = Copied::Nothing;
        int width = 0; ///< last column minus first
        int height = 0;
        bool canPaste = false;
        bool canAddPaste = false;
    };

    explicit RowsModel(std::vector<Row> rows);
    /// The rows and colours as a document that has changes and no past.
    RowsModel asRecovered() const;

    const std::vector<Row> &rows() const { return m_rows; }
    int rowCount() const { return int(m_rows.size()); }
    /// Whether the cell is shown as changed.
    bool isRed(int column, int row) const { return m_red.at(size_t(row - 1)).at(size_t(column - 1)); }
    const QString &text(int column, int row) const { return m_rows.at(size_t(row - 1)).at(size_t(column - 1)); }
    const GridBlock &selection() const { return m_selection; }
    int activeColumn() const { return m_activeColumn; }
    int activeRow() const { return m_activeRow; }
    const QString &clipboard() const { return m_shared.text; }
    bool canPaste() const { return m_shared.canPaste; }
    bool canAddPaste() const { return m_shared.canAddPaste; }
    const Clipboard &shared() const { return m_shared; }
    void share(const Clipboard &clipboard) { m_shared = clipboard; }
    /// A block was copied, and a block of another size is selected: Paste complains.
    bool pasteIsRefused() const;
    /// Whether the document counts as changed since it was loaded or saved.
    bool isChanged() const { return m_changed; }
    void save();
    void undo();
    void redo();

    /// The top left cell becomes the active one. column1 -1 selects whole rows.
    void select(const GridBlock &block);
    /// Cells of column 1, from row2 up to row1.
    void selectUpward(int row1, int row2);
    /// All rows would be deleted: the program asks.
    bool deletionIsAsked() const { return rowCount() > 2 && m_selection.row2 - m_selection.row1 + 1 == rowCount(); }
    /// Another program puts a text on the clipboard, and the window is activated again.
    void takeForeignText(const QString &text);
    void forgetClipboard();

    void copy();
    void cut();
    void paste();
    void addPaste();
    void addLines(int lines);
    void deleteLines();
    void clearSelection();
    /// A text typed into the active cell; Enter then goes to the row below.
    void type(const QString &text);
    /// An item chosen from the active cell's list.
    void choose(const QString &text);
    void toggleCheckBox();
    /// Copies the first selected row, or the row above a single one, over the selected cells, whatever they hold.
    void fillDown();

private:
    /// The table between two acts.
    struct State
    {
        std::vector<Row> rows;
        std::vector<std::array<bool, columnCount>> red;
        int number; ///< no two states share one
    };
    /// What an action left for undo, the state before it, and for redo, the state after it.
    struct Step
    {
        State other;
        GridBlock selectedByUndo;
        GridBlock selectedByRedo;
    };
    /// From its beginning to its end everything is one act; within another it is a part of that.
    class Act
    {
    public:
        explicit Act(RowsModel &model);
        ~Act();
        Q_DISABLE_COPY_MOVE(Act)

    private:
        RowsModel &m_model;
        State m_before;
        GridBlock m_selection;
    };
    QString &at(int column, int row) { return m_rows.at(size_t(row - 1)).at(size_t(column - 1)); }
    QString joined(int column1, int row1, int column2, int row2) const;
    void place(int column1, int row1, int column2, int row2, int dropped);
    void pasteBlock();
    void pasteRows();
    QString foreignText() const;
    void clearRow(int row);
    void change(int column, int row, const QString &text);
    void redden(const GridBlock &block);
    State state() const { return {m_rows, m_red, m_stateNumber}; }
    void go(std::vector<Step> &from, std::vector<Step> &to, GridBlock Step::*selected);
    void finishAct(State before, const GridBlock &selection);

    std::vector<Row> m_rows;
    std::vector<std::array<bool, columnCount>> m_red;
    GridBlock m_selection{1, 1, 1, 1};
    int m_activeColumn = 1;
    int m_activeRow = 1;
    Clipboard m_shared;
    bool m_changed = false;
    int m_stateNumber = 0;
    int m_savedNumber = 0;
    int m_lastNumber = 0;
    std::vector<Step> m_undo; ///< the last one comes first
    std::vector<Step> m_redo;
    int m_actDepth = 0;
    std::optional<GridBlock> m_touched; ///< the smallest block that holds what the act changed or coloured
};
