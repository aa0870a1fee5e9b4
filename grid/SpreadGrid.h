#pragma once

#include "grid/CellSearch.h"
#include "grid/SpreadView.h"
#include "grid/cells/CellType.h"
#include "grid/cells/GridBlock.h"

#include <QColor>

#include <functional>
#include <memory>
#include <optional>
#include <span>

class CellMarks;
class CellRow;
class MoveKeys;
class QContextMenuEvent;
class QKeyEvent;
class SpreadHistory;
struct TextChange;

/// A spread sheet: texts in columns and rows, with a cell type per column, which the user edits by keys and mouse.
/// Columns and rows count from 1; row 0 is the header row, column 0 the row numbers, -1 means all. A cell's text is its
/// only value: a check box holds "0" or "1" (any number other than 0 is shown ticked). Cells outside the grid read as
/// empty, and writing to them does nothing.
///
/// Routines change the grid silently, but for contentsChanged(); only what the user does raises the other signals.
///
///     SpreadGrid grid;
///     grid.setColumnCount(2);
///     grid.setText(1, 0, u"Name"_s);                     // a heading
///     grid.setCellType(2, -1, CellType::integer(0, 99)); // what can be typed into column 2
///     grid.setRowCount(10);
///     grid.setText(2, 5, u"42"_s);                       // column 2, row 5
///     grid.history().start();                            // steps are kept from now on
///     connect(&grid, &SpreadGrid::cellsEdited, ...);     // raised when the user types, not by setText()
///     connect(&grid, &SpreadGrid::undoRequested, &grid, [&grid] { grid.history().undo(); });
class SpreadGrid : public SpreadView
{
    Q_OBJECT

public:
    /// Down, Right: from the first row or column of what is selected. Selection: one text everywhere. Series: downward.
    enum class Fill { Down, Right, Selection, Series };

    explicit SpreadGrid(QWidget *parent = nullptr);
    ~SpreadGrid() override;

    // Texts
    QString text(int column, int row) const;
    /// The text of a data cell without a copy; valid until the grid's next change.
    QStringView cellText(int column, int row) const;
    void setText(int column, int row, const QString &text);
    /// Replaces the texts of a data row from column 1 on; fewer texts than columns leave the rest.
    void setRowTexts(int row, std::span<const QStringView> texts);
    /// Replaces the texts of all columns of the first data rows, as many as are given and there; rows is given the
    /// former ones. A row shares its memory with the one given.
    void exchangeRows(std::span<CellRow> rows);
    /// Gives each data cell of the block the text that textOf has for (column, row).
    void setTexts(const GridBlock &block, const std::function<QStringView(int, int)> &textOf);
    /// The cells of the block joined by tabs, rows by CR LF; column 0 gives the row numbers. Column 1 to column 2 as
    /// they are, hidden ones included.
    QString blockText(const GridBlock &block) const;
    /// Puts a block text (rows by CR LF, CR or LF; one at the end does not begin a row) into the block, from its top
    /// left cell. Cells and rows beyond the block are dropped, what the text does not reach is left; texts for column 0
    /// are dropped.
    void setBlockText(const GridBlock &block, QStringView text);
    /// Moves the texts of rows row1 to row2 (all columns) so that they begin at row target, within the grid; what falls
    /// outside is dropped. Rows that are not a target keep their texts. Colours and heights stay where they are.
    void moveRowTexts(int row1, int row2, int target);
    /// Sorts rows row1 to row2 by the numbers in column key, ascending and stable; texts that are not numbers come
    /// last, in their order. If rows move, the active cell, an open editor and what the mouse is about to click go
    /// along with their row, and nothing but the active cell stays selected.
    void sortRows(int row1, int row2, int key);

    // Cell types, looks
    /// row -1: the whole column. A type of a single cell takes precedence over its column's.
    void setCellType(int column, int row, const CellType &type);
    CellType cellType(int column, int row) const;
    /// Column 0: the row numbers.
    void setAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment alignment(int column) const;
    void setTextColour(const GridBlock &block, const QColor &colour);
    QColor textColour(int column, int row) const;

    // Marks
    /// Shows the marks in corners of the cells, and what they say in tool tips and to screen readers. marks must
    /// outlive the grid, or be taken back with nullptr.
    void setMarks(CellMarks *marks);
    /// The row's marks have become others.
    void updateMarks(int row);
    /// The data rows' texts by row from 1 at index 0: a row that stays the same shares its memory. Valid until the
    /// grid's next change.
    std::span<const CellRow> textRows() const;

    // Search
    /// What goToFound() looks for, without regard to case, in the texts of the shown columns. Empty: nothing.
    void setSearchedText(const QString &text);
    /// Whether cells that hold the searched text have a background of another colour.
    void setFoundMarked(bool marked);
    /// Makes the next cell that holds the searched text the active one (step 1), or the one before (-1), around the end
    /// of the grid. False if there is none.
    bool goToFound(int step);
    /// The same for the first one from that cell on, which itself counts first.
    bool goToFoundFrom(int column, int row);
    /// How many cells hold the searched text, and which of them, from 1, the active one is (0: none of them).
    CellSearch::Count countFound() const;
    /// Makes the next shown cell in that text colour (step 1), or the one before (-1), the active one, around the end
    /// of the grid. False if there is none.
    bool goToColoured(const QColor &colour, int step);

    // Editing
    /// Empties the selected data cells as the user's own doing: it raises cellsEdited(). A check box becomes "0".
    void clearSelectedCells();
    /// The user's steps for undo and redo; it keeps none until it is started.
    SpreadHistory &history() const { return *m_history; }

signals:
    /// The user changed texts. Raised once per act, after it, with the smallest block that holds all changed cells; not
    /// if every text stayed the same.
    void cellsEdited(const GridBlock &block);
    void headerDoubleClicked(int column);
    void escapePressed(Qt::KeyboardModifiers modifiers);
    /// Row or column 0: a header. position is global.
    void rightClicked(int column, int row, const QPoint &position);

    // What a key asks for; the grid itself does nothing then.
    void copyRequested(); ///< Ctrl+C, Ctrl+Insert
    void cutRequested(); ///< Ctrl+X, Shift+Delete
    void pasteRequested(); ///< Ctrl+V, Shift+Insert
    void undoRequested(); ///< Ctrl+Z
    void redoRequested(); ///< Ctrl+Y, Ctrl+Shift+Z
    /// Ctrl+D, Ctrl+R, Ctrl+Enter and Ctrl+Shift+D. With Fill::Selection an editor may be open, whose text is to be
    /// filled in; it stays open until all slots have run.
    void fillRequested(SpreadGrid::Fill way);
    /// Ctrl+Plus and Ctrl+Minus: by 1 and by -1; Ctrl+0: 0, back to 100 %.
    void zoomRequested(int steps);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    struct CommandKey
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        void (SpreadGrid::*run)();
    };
    static const CommandKey commandKeys[];

    void connectMouse();
    void connectEditor();
    void recordTexts(const TextChange &change);

    bool runCommand(const QKeyEvent &event);
    bool beginTyping(QKeyEvent &event);
    void editActive() { openEditor(EditStart::GoOn); }
    void editEmpty() { openEditor(EditStart::Empty); }
    void selectWholeColumns();
    void selectWholeRows();
    template <Fill way>
    void requestFill()
    {
        emit fillRequested(way);
    }
    template <int steps>
    void requestZoom()
    {
        emit zoomRequested(steps);
    }

    void toggleActiveCheckBox();
    bool toggleSelectedCheckBoxes();
    bool fillFromEditor();
    bool goTo(const std::optional<QPoint> &cell);

    SpreadHistory *m_history;
    std::unique_ptr<MoveKeys> m_moveKeys;
};
