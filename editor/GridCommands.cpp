#include "editor/GridCommands.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"
#include "editor/Clipboard.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "grid/RedrawOff.h"
#include "grid/SpreadGrid.h"
#include "grid/SpreadHistory.h"
#include "grid/UndoStep.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/PasteTarget.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int deleteFloor = 2;
// A file counts its rows in a 16-bit integer.
constexpr int maxRows = std::numeric_limits<qint16>::max();

/// A spreadsheet ends even a single cell by a line end. Several lines stay as they are.
QString withoutOnlyLineEnd(const QString &text)
{
    const qsizetype units = text.endsWith("\r\n"_L1) ? 2 : 1;
    const QString line = text.chopped(std::min(units, text.size()));
    return CellInput::hasLineEnd(line) || !CellInput::hasLineEnd(text) ? text : line;
}

} // namespace

GridCommands::GridCommands(SpreadGrid &grid, OpenDocument &document, QObject *parent)
    : QObject(parent), m_grid(grid), m_document(document)
{
}

void GridCommands::copy()
{
    m_grid.commitEdit();
    if (m_grid.activeRow() == 0) {
        return;
    }
    GridBlock block = m_grid.selectedBlock();
    const ClipboardRecord shape = copiedShape(block);
    const bool wholeRows = block.isWholeRows();
    if (wholeRows) {
        block = {0, block.row1, m_grid.columnCount(), block.row2};
    }
    const bool single = block.isSingleCell();
    fillClipboard(single ? m_grid.text(block.column1, block.row1) : m_grid.blockText(block), shape);
    emit copied(wholeRows);
}

void GridCommands::cut()
{
    copy();
    if (m_grid.activeRow() == 0) {
        return;
    }
    m_grid.setFocus();
    m_grid.clearSelectedCells();
    m_document.markChanged();
}

void GridCommands::paste()
{
    const QString text = readClipboard();
    m_grid.commitEdit();
    if (text.isEmpty() || m_grid.activeRow() == 0) {
        return;
    }
    switch (clipboardRecord().kind) {
    case ClipboardRecord::Block:
        return pasteBlock(text);
    case ClipboardRecord::WholeRows:
        return pasteRows(text);
    case ClipboardRecord::OneCell:
        return pasteCell(text);
    default:
        return pasteCell(withoutOnlyLineEnd(text));
    }
}

void GridCommands::pasteBlock(const QString &text)
{
    const auto target =
        blockPasteTarget(clipboardRecord(), m_grid.selectedBlock(), m_grid.columnCount(), m_grid.rowCount());
    if (!target) {
        MessageBox::showExclamation(&m_grid, ResString(Text::SizeMismatch), ResString(Text::ProgramName));
        return;
    }
    m_grid.selectBlock(*target);
    place(*target, text);
}

void GridCommands::pasteRows(const QString &text)
{
    place(rowsPasteTarget(clipboardRecord(), m_grid.selectedBlock(), m_grid.columnCount(), m_grid.rowCount()), text);
}

void GridCommands::pasteCell(const QString &text)
{
    const int column = m_grid.activeColumn();
    const int row = m_grid.activeRow();
    const UndoStep step(m_grid.history());
    m_grid.setTextColour({column, row, column, row}, QColor(changedCellColour));
    m_grid.setText(column, row, text);
    m_document.markChanged();
}

void GridCommands::place(const GridBlock &target, const QString &text)
{
    const UndoStep step(m_grid.history());
    const RedrawOff redrawOff(m_grid);
    m_grid.setTextColour(target, QColor(changedCellColour));
    m_grid.setBlockText(target, text);
    m_document.markChanged();
}

void GridCommands::addPaste()
{
    // Read once: the lines that are added and the text that goes into them belong together.
    const QString text = readClipboard();
    if (clipboardRecord().kind != ClipboardRecord::WholeRows || text.isEmpty()) {
        return;
    }
    m_grid.commitEdit();
    const UndoStep step(m_grid.history());
    if (addLines(clipboardRecord().height + 1)) {
        pasteRows(text);
    }
}

bool GridCommands::addLines(int lines)
{
    m_grid.commitEdit();
    const int lastRow = m_grid.rowCount();
    if (lastRow + lines > maxRows) {
        MessageBox::showExclamation(&m_grid, failureText({FailureCode::Overflow}), ResString(Text::ProgramName));
        return false;
    }
    const UndoStep step(m_grid.history());
    const RedrawOff redrawOff(m_grid);
    const int row = m_grid.selectedBlock().row1;
    m_grid.setRowCount(lastRow + lines);
    if (row > 0) {
        m_grid.moveRowTexts(row, lastRow, row + lines);
        resetParameterRow(m_grid, row);
    } else {
        for (int added = 1; added <= lines; ++added) {
            resetParameterRow(m_grid, added);
        }
    }
    noteRowCount();
    return true;
}

void GridCommands::deleteLines()
{
    m_grid.commitEdit();
    const int lastRow = m_grid.rowCount();
    const GridBlock selection = m_grid.selectedBlock();
    const int count = selection.row2 - selection.row1 + 1;
    if (lastRow <= deleteFloor || (count == lastRow && !confirmsDeletingAll())) {
        return;
    }
    const UndoStep step(m_grid.history());
    const RedrawOff redrawOff(m_grid);
    const int column = m_grid.activeColumn();
    if (selection.row2 < lastRow) {
        m_grid.moveRowTexts(selection.row2 + 1, lastRow, selection.row1);
    }
    m_grid.setRowCount(lastRow - count);
    m_grid.setActiveCell(column, std::min(selection.row1, lastRow - count));
    noteRowCount();
}

bool GridCommands::confirmsDeletingAll()
{
    const QString question = ownText(OwnText::DeleteAllRowsQuestion, {QString::number(m_grid.rowCount())});
    return MessageBox::askYesNo(&m_grid, question, ResString(Text::ProgramName));
}

void GridCommands::undo()
{
    restore(&SpreadHistory::undo);
}

void GridCommands::redo()
{
    restore(&SpreadHistory::redo);
}

void GridCommands::restore(bool (SpreadHistory::*way)())
{
    m_grid.commitEdit();
    if ((m_grid.history().*way)()) {
        m_document.setRowCount(m_grid.rowCount());
        m_document.noteRestored();
    }
}

void GridCommands::noteRowCount()
{
    m_document.setRowCount(m_grid.rowCount());
    m_document.markChanged();
}
