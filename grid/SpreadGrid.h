#pragma once

#include "grid/CellSearch.h"
#include "grid/SpreadView.h"
#include "grid/cells/CellType.h"
#include "grid/cells/GridBlock.h"

#include <QColor>
#include <QFont>

#include <functional>
#include <memory>
#include <optional>
#include <span>

class ActiveFrame;
class QFocusEvent;
class QKeyEvent;
class SpreadDelegate;
class SpreadHeader;
class SpreadHistory;
class SpreadKeys;
class SpreadModel;
class SpreadSelection;
class SpreadSizes;
struct TextChange;

/// A spread sheet: texts in columns and rows, with a cell type per column. Columns and rows count from 1; row 0 is the
/// header row, column 0 the row numbers, -1 stands for all. A cell's text is its only value: a check box holds "0" or
/// "1" (any number other than 0 is shown ticked). Cells outside the grid read as empty and are left alone by writing.
///
/// Routines change the grid silently, but for contentsChanged(); only what the user does raises the other signals.
class SpreadGrid : public SpreadView
{
    Q_OBJECT

public:
    explicit SpreadGrid(QWidget *parent = nullptr);
    ~SpreadGrid() override;

    // Size. New rows stand at the end and hold their columns' initial texts; surplus rows are dropped from the end.
    int rowCount() const;
    void setRowCount(int rows) override;
    int columnCount() const;
    void setColumnCount(int columns);

    // Texts
    QString text(int column, int row) const;
    /// The text of a data cell without a copy; valid until the grid's next change.
    QStringView cellText(int column, int row) const;
    void setText(int column, int row, const QString &text);
    /// Replaces the texts of a data row from column 1 on; fewer texts than columns leave the rest.
    void setRowTexts(int row, std::span<const QStringView> texts);
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
    /// Sorts rows row1 to row2 by the numbers in column key, ascending and stable; texts that are no number come
    /// last, in their order. Where rows change their places the active cell, an open editor and what the mouse is
    /// about to click go along with their row, and nothing but the active cell stays selected.
    void sortRows(int row1, int row2, int key);

    // Cell types, looks
    /// row -1: the whole column. A type of a single cell goes before its column's.
    void setCellType(int column, int row, const CellType &type);
    CellType cellType(int column, int row) const;
    /// Column 0: the row numbers.
    void setAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment alignment(int column) const;
    void setForeColour(const GridBlock &block, const QColor &colour);
    QColor foreColour(int column, int row) const;
    /// The font of all cells and headers. Heights and widths stay, widths in character units included; only a grid
    /// without rows takes its heights from the font.
    void setGridFont(const QFont &font);
    QFont gridFont() const;

    // Widths and heights
    /// Width of a column for that many digits of the grid's font at this moment. Column 0, the row numbers, gets
    /// wider by itself when the last number does not fit.
    void setWidthInCharacters(int column, double characters);
    /// Makes the column as wide as its widest text, the header's included. All rows are measured.
    void fitColumnWidth(int column);
    /// Makes the row (0: the header row) as high as its highest text needs.
    void fitRowHeight(int row);

    // Pixels at 100 %, whatever the zoom; 0 for a hidden column
    int plainColumnWidth(int column) const;
    int plainRowNumberWidth() const;
    int plainRowHeight(int row) const override;
    void setPlainRowHeight(int row, int pixels) override;

    int zoom() const; ///< per cent
    /// Shows fonts, widths and heights at that many per cent. Everything that is set or asked for stays what it is at
    /// 100 %, but for Qt's own routines, which tell what is on the screen.
    void setZoom(int percent);

    void setColumnShown(int column, bool shown);
    bool isColumnShown(int column) const;
    /// 0 or 1: that many columns from the left stay in view. The column may also be hidden.
    void setFrozenColumns(int columns);
    int frozenColumns() const { return m_frozenColumns; }

    // Selection and view
    /// The selected block: the active cell when nothing else is selected. Rows selected as rows (by their number, by
    /// Shift+Space, by Ctrl+A) report column1 -1, and the first of them is the active row.
    GridBlock selectedBlock() const;
    /// column1 -1 selects whole rows. The block's top left cell becomes the active cell.
    void selectBlock(const GridBlock &block);
    /// More than one cell is selected, or whole rows.
    bool isBlockSelected() const;
    int activeColumn() const; ///< 0 when there is no active cell
    int activeRow() const; ///< 0 when there is no active cell
    void setActiveCell(int column, int row);
    int topRow() const override;
    void setTopRow(int row) override;
    int bottomRow() const override;

    // Search
    /// What goToFound() looks for, without regard to case, in the texts of the shown columns. Empty: nothing.
    void setSearchedText(const QString &text);
    /// Whether cells that hold the searched text stand on a ground of another colour.
    void setFoundMarked(bool marked);
    /// Makes the next cell that holds the searched text the active one (step 1), or the one before (-1), around the end
    /// of the grid. False when there is none.
    bool goToFound(int step);
    /// The same for the first one from that cell on, which itself counts first.
    bool goToFoundFrom(int column, int row);
    /// How many cells hold the searched text, and which of them, from 1, the active one is (0: none of them).
    CellSearch::Count countFound() const;
    /// Makes the next shown cell in that fore colour (step 1), or the one before (-1), the active one, around the end
    /// of the grid. False when there is none.
    bool goToColoured(const QColor &colour, int step);

    /// The size at which every shown column and that many rows of usual height are in view.
    QSize sizeForRows(int rows) const;

    void setRedraw(bool on) override;

    // Editing
    /// Empties the selected data cells as the user's own doing: it raises cellsEdited(). A check box becomes "0".
    void clearSelectedCells() override;
    void commitEdit() override;
    /// What the user has typed into the active cell's editor so far; nothing when no edit is under way, when it changed
    /// nothing, or when the cell would not take it.
    std::optional<QString> textBeingTyped() const;
    /// What stands in the open editor, whatever the cell takes; nothing when no edit is under way.
    std::optional<QString> editorText() const;
    /// Ends an edit that is under way without taking its text.
    void dropEdit();
    /// The way back; it must be started.
    SpreadHistory &history() const { return *m_history; }

signals:
    /// Texts or looks of data cells may be others, or rows came or went, by whoever's doing; once for all that was
    /// done while redrawing was off.
    void contentsChanged();
    /// The user changed texts. Raised once per act, after it, with the smallest block that holds all changed cells; not
    /// when every text stayed the same.
    void cellsEdited(const GridBlock &block);
    void headerDoubleClicked(int column);
    /// The active cell moves. newRow is 0 when there is no cell to move to.
    void cellLeft(int column, int row, int newColumn, int newRow);
    void escapePressed(Qt::KeyboardModifiers modifiers);
    /// Row or column 0: a header. position is global.
    void rightClicked(int column, int row, const QPoint &position);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

public:
    QModelIndex indexAt(const QPoint &place) const override;
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    void selectAll() override;

private:
    void connectHeaders();
    void doubleClickHeading(int column);
    void pressRow(int row);
    void noteTexts(const TextChange &change);

    void openEditor(EditStart start) override;
    void openEditor(QKeyEvent &typed) override;
    void toggleActiveCheckBox() override;
    bool toggleSelectedCheckBoxes() override;
    bool fillFromEditor();
    void scrollToCell(int column, int row) override;
    int shownColumnFrom(int column, int steps) const override;
    int frozenWidth() const;
    void markHeaders();
    void paintColumn(QPainter &painter, QStyleOptionViewItem &option, int column, int left, const QRect &part);
    void announceActiveCell();
    bool goTo(const std::optional<QPoint> &cell);

    SpreadModel *m_model;
    SpreadHeader *m_columnHeader;
    SpreadHeader *m_rowHeader;
    SpreadSelection *m_selection = nullptr;
    SpreadHistory *m_history = nullptr;
    SpreadDelegate *m_delegate = nullptr;
    SpreadSizes *m_sizes = nullptr;
    std::unique_ptr<SpreadKeys> m_keys;
    std::unique_ptr<ActiveFrame> m_activeFrame;
    int m_frozenColumns = 0;
    int m_redrawsOff = 0;
    bool m_quiet = false; ///< the active cell moves by a routine's work, not as a move of its own
};
