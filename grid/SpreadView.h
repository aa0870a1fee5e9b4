#pragma once

#include <QTableView>

/// The view of a spread grid as its keys and its mouse act on it. Columns and rows count from 1.
class SpreadView : public QTableView
{
    Q_OBJECT

public:
    enum class EditStart { GoOn, Empty };
    /// Down, Right: from the first row or column of what is selected. Selection: one text everywhere. Series: downward.
    enum class Fill { Down, Right, Selection, Series };

    using QTableView::QTableView;

    /// Opens the active cell's editor: on its text, or emptied.
    virtual void openEditor(EditStart start) = 0;
    /// Opens the active cell's editor for what was typed.
    virtual void openEditor(QKeyEvent &typed) = 0;
    virtual void toggleActiveCheckBox() = 0;
    /// Ticks the check boxes among the selected cells, or unticks them when all of them are ticked, as the user's own
    /// doing; boxes in hidden columns stay as they are. False when there is none.
    virtual bool toggleSelectedCheckBoxes() = 0;
    /// Ends an edit that is under way and takes what was typed, if the cell type allows it.
    virtual void commitEdit() = 0;
    /// Empties the selected data cells as the user's own doing. A check box becomes "0".
    virtual void clearSelectedCells() = 0;

    virtual void setRowCount(int rows) = 0;
    // The height of a row (0: the header row, which can only be asked for) in pixels at 100 %, whatever the zoom
    virtual int plainRowHeight(int row) const = 0;
    virtual void setPlainRowHeight(int row, int pixels) = 0;
    /// Off: nothing is painted and no view work is done until it is on again. Calls nest.
    virtual void setRedraw(bool on) = 0;

    virtual int topRow() const = 0; ///< the first row in view; 0 without rows
    /// Near the end of the grid as far as the view can scroll.
    virtual void setTopRow(int row) = 0;
    virtual int bottomRow() const = 0; ///< the last row that is at least partly in view; 0 without rows
    virtual void scrollToCell(int column, int row) = 0;
    /// The shown column that many steps from a column (0 and the one behind the last included); the column itself when
    /// there is none.
    virtual int shownColumnFrom(int column, int steps) const = 0;

signals:
    /// Ctrl+C, Ctrl+X, Ctrl+V and their old equivalents; the grid itself does nothing then.
    void copyRequested();
    void cutRequested();
    void pasteRequested();
    /// Ctrl+Z, and Ctrl+Y or Ctrl+Shift+Z; the grid itself does nothing then.
    void undoRequested();
    void redoRequested();
    /// Ctrl+D, Ctrl+R, Ctrl+Enter and Ctrl+Shift+D; the grid itself does nothing then. An editor is still open when
    /// its text is to be filled in (Fill::Selection); it stays so as long as the request is dealt with.
    void fillRequested(SpreadView::Fill way);
    /// Ctrl+Plus and Ctrl+Minus: by 1 and by -1; Ctrl+0: 0, back to 100 %. The grid itself does nothing then.
    void zoomRequested(int steps);
};
