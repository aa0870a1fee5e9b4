#pragma once

#include <QFont>
#include <QTableView>

#include <memory>
#include <optional>

class ActiveFrame;
class SpreadDelegate;
class SpreadHeader;
class SpreadModel;
class SpreadSelection;
class SpreadSizes;
struct GridBlock;

/// What a spread grid shows, and where: the cells of a SpreadModel with their selection, widths and heights, the zoom,
/// a first column that can be frozen, and the one editor that is open. Columns and rows count from 1; row 0 is the
/// header row, column 0 the row numbers.
///
/// Routines change the view silently, but for contentsChanged().
class SpreadView : public QTableView
{
    Q_OBJECT

public:
    enum class EditStart { GoOn, Empty };

    explicit SpreadView(QWidget *parent = nullptr);
    ~SpreadView() override;

    // Size. New rows are added at the end and hold their columns' initial texts; surplus rows are dropped from the end.
    int rowCount() const;
    void setRowCount(int rows);
    int columnCount() const;
    void setColumnCount(int columns);

    // Widths and heights
    /// The font of all cells and headers. Heights and widths stay, widths in character units included; only a grid
    /// without rows takes its heights from the font.
    void setGridFont(const QFont &font);
    QFont gridFont() const;
    /// Makes the column wide enough for that many digits of the grid's present font. Column 0, the row numbers, gets
    /// wider by itself if the last number does not fit.
    void setWidthInCharacters(int column, double characters);
    /// Makes the column as wide as its widest text, the header's included. All rows are measured.
    void fitColumnWidth(int column);
    /// Makes the row (0: the header row) as high as its tallest text needs.
    void fitRowHeight(int row);
    // In pixels at 100 %, whatever the zoom; a hidden column has width 0
    int unzoomedColumnWidth(int column) const;
    int unzoomedRowNumberWidth() const;
    int unzoomedRowHeight(int row) const; ///< row 0: the header row
    void setUnzoomedRowHeight(int row, int pixels);
    /// The size at which every shown column and that many rows of default height are in view.
    QSize sizeForRows(int rows) const;

    int zoom() const; ///< per cent
    /// Shows fonts, widths and heights at that zoom. All sizes that are set or returned here stay those at 100 %; only
    /// Qt's own routines return what is on the screen.
    void setZoom(int percent);

    void setColumnShown(int column, bool shown);
    bool isColumnShown(int column) const;
    /// The shown column that many steps from a column, which may also be 0 or the column count plus 1; the column
    /// itself if there is none.
    int shownColumnFrom(int column, int steps) const;
    /// 0 or 1: that many columns from the left stay in view. The column may also be hidden.
    void setFrozenColumns(int columns);
    int frozenColumns() const { return m_frozenColumns; }

    // Selection
    /// The selected block; the active cell if nothing else is selected. Whole rows (selected by their numbers,
    /// Shift+Space or Ctrl+A) have column1 -1, and the first of them is the active row.
    GridBlock selectedBlock() const;
    /// column1 -1 selects whole rows. The block's top left cell becomes the active cell.
    void selectBlock(const GridBlock &block);
    /// More than one cell is selected, or whole rows.
    bool isBlockSelected() const;
    void selectAll() override;
    int activeColumn() const; ///< 0 if there is no active cell
    int activeRow() const; ///< 0 if there is no active cell
    void setActiveCell(int column, int row);

    // Scrolling
    int topRow() const; ///< the first row in view; 0 without rows
    /// Near the end of the grid as far as the view can scroll.
    void setTopRow(int row);
    int bottomRow() const; ///< the last row that is at least partly in view; 0 without rows
    void scrollToCell(int column, int row);
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

    QModelIndex indexAt(const QPoint &position) const override;
    QRect visualRect(const QModelIndex &index) const override;

    /// While it is off nothing is painted and the view does no work. Calls nest.
    void setRedraw(bool on);

    // Editing in place
    /// Opens the active cell's editor, with its text or empty.
    void openEditor(EditStart start);
    /// Opens the active cell's editor and types the key into it.
    void openEditor(QKeyEvent &typed);
    /// Ends an open edit and takes what was typed, if the cell type allows it.
    void commitEdit();
    /// Ends an open edit without taking its text.
    void dropEdit();
    /// What the user has typed into the active cell's editor so far; std::nullopt if no editor is open, if nothing was
    /// changed, or if the cell would not take it.
    std::optional<QString> textBeingTyped() const;
    /// The text in the open editor, whether the cell takes it or not; std::nullopt if no editor is open.
    std::optional<QString> editorText() const;

signals:
    /// Texts or looks of data cells, or the row count, may have changed, whoever changed them. Raised once for all that
    /// was done while redrawing was off.
    void contentsChanged();
    /// Raised by setRowCount() before the change, also if the count stays the same.
    void rowCountAboutToChange(int newCount);
    /// The active cell moves. newRow is 0 if there is no cell to move to.
    void cellLeft(int column, int row, int newColumn, int newRow);

protected:
    SpreadModel &sheet() const { return *m_model; }
    SpreadSelection &selection() const { return *m_selection; }
    SpreadDelegate &delegate() const { return *m_delegate; }
    SpreadHeader &columnHeader() const { return *m_columnHeader; }
    SpreadHeader &rowHeader() const { return *m_rowHeader; }

    void paintEvent(QPaintEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    QRegion visualRegionForSelection(const QItemSelection &selected) const override;

private:
    int frozenWidth() const;
    void markHeaders();
    void paintColumn(QPainter &painter, QStyleOptionViewItem &option, int column, int left, const QRect &part);
    void announceActiveCell();

    SpreadModel *m_model;
    SpreadHeader *m_columnHeader;
    SpreadHeader *m_rowHeader;
    SpreadSelection *m_selection = nullptr;
    SpreadDelegate *m_delegate = nullptr;
    SpreadSizes *m_sizes = nullptr;
    std::unique_ptr<ActiveFrame> m_activeFrame;
    int m_frozenColumns = 0;
    int m_redrawsOff = 0;
    bool m_quiet = false; ///< a change of the row or column count moves the active cell: no cellLeft()
};
