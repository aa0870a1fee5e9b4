#pragma once

#include "platform/GridBlock.h"

#include <QString>

#include <array>
#include <utility>
#include <vector>

/// A parameter table as plain rows of texts, and what the Edit commands and the keyboard do to it: written for the
/// tests without a look at the grid, so that the two can be held against each other. Columns and rows count from 1.
class RowsModel
{
public:
    static constexpr int columnCount = 13;
    using Row = std::array<QString, columnCount>;

    explicit RowsModel(std::vector<Row> rows) : m_rows(std::move(rows)) { }

    const std::vector<Row> &rows() const { return m_rows; }
    int rowCount() const { return int(m_rows.size()); }
    const QString &text(int column, int row) const { return m_rows.at(size_t(row - 1)).at(size_t(column - 1)); }
    const GridBlock &selection() const { return m_selection; }
    int activeColumn() const { return m_activeColumn; }
    int activeRow() const { return m_activeRow; }
    const QString &clipboard() const { return m_clipboard; }
    bool canPaste() const { return m_canPaste; }
    bool canAddPaste() const { return m_canAddPaste; }
    /// A block was copied, and a block of another size is selected: Paste complains.
    bool pasteIsRefused() const;
    /// Whether something was changed since the last question.
    bool takeChanged() { return std::exchange(m_changed, false); }

    /// The top left cell becomes the active one. column1 -1 selects whole rows.
    void select(const GridBlock &block);
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

private:
    enum class Copied { Nothing, Cell, Block, Rows };

    QString &at(int column, int row) { return m_rows.at(size_t(row - 1)).at(size_t(column - 1)); }
    QString joined(int column1, int row1, int column2, int row2) const;
    void place(int column1, int row1, int column2, int row2, int dropped);
    void pasteBlock();
    void pasteRows();
    void blank(int row);
    void change(QString &cell, const QString &text);

    std::vector<Row> m_rows;
    GridBlock m_selection{1, 1, 1, 1};
    int m_activeColumn = 1;
    int m_activeRow = 1;
    QString m_clipboard;
    Copied m_copied = Copied::Nothing;
    int m_copiedWidth = 0; ///< last column minus first
    int m_copiedHeight = 0;
    bool m_canPaste = false;
    bool m_canAddPaste = false;
    bool m_changed = false;
};
