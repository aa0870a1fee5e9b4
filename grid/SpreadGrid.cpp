#include "grid/SpreadGrid.h"

#include "grid/HeadingMouse.h"
#include "grid/MoveKeys.h"
#include "grid/SpreadDelegate.h"
#include "grid/SpreadHeader.h"
#include "grid/SpreadHistory.h"
#include "grid/SpreadMouse.h"
#include "grid/SpreadSelection.h"
#include "grid/UndoStep.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/CellWalk.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/TextChange.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMetaMethod>

#include <algorithm>

using namespace Qt::StringLiterals;

const SpreadGrid::CommandKey SpreadGrid::commandKeys[] = {
    {Qt::Key_F2, Qt::NoModifier, &SpreadGrid::editActive},
    {Qt::Key_Down, Qt::AltModifier, &SpreadGrid::editActive},
    {Qt::Key_Backspace, Qt::NoModifier, &SpreadGrid::editEmpty},
    {Qt::Key_Delete, Qt::NoModifier, &SpreadGrid::clearSelectedCells},
    {Qt::Key_Space, Qt::ControlModifier, &SpreadGrid::selectWholeColumns},
    {Qt::Key_Space, Qt::ShiftModifier, &SpreadGrid::selectWholeRows},
    {Qt::Key_A, Qt::ControlModifier, &SpreadGrid::selectAll},
    {Qt::Key_C, Qt::ControlModifier, &SpreadGrid::copyRequested},
    {Qt::Key_Insert, Qt::ControlModifier, &SpreadGrid::copyRequested},
    {Qt::Key_X, Qt::ControlModifier, &SpreadGrid::cutRequested},
    {Qt::Key_Delete, Qt::ShiftModifier, &SpreadGrid::cutRequested},
    {Qt::Key_V, Qt::ControlModifier, &SpreadGrid::pasteRequested},
    {Qt::Key_Insert, Qt::ShiftModifier, &SpreadGrid::pasteRequested},
    {Qt::Key_Z, Qt::ControlModifier, &SpreadGrid::undoRequested},
    {Qt::Key_Y, Qt::ControlModifier, &SpreadGrid::redoRequested},
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, &SpreadGrid::redoRequested},
    {Qt::Key_D, Qt::ControlModifier, &SpreadGrid::requestFill<Fill::Down>},
    {Qt::Key_R, Qt::ControlModifier, &SpreadGrid::requestFill<Fill::Right>},
    {Qt::Key_Return, Qt::ControlModifier, &SpreadGrid::requestFill<Fill::Selection>},
    {Qt::Key_Enter, Qt::ControlModifier, &SpreadGrid::requestFill<Fill::Selection>},
    {Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier, &SpreadGrid::requestFill<Fill::Series>},
    {Qt::Key_Plus, Qt::ControlModifier, &SpreadGrid::requestZoom<1>},
    {Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier, &SpreadGrid::requestZoom<1>},
    {Qt::Key_Minus, Qt::ControlModifier, &SpreadGrid::requestZoom<-1>},
    {Qt::Key_0, Qt::ControlModifier, &SpreadGrid::requestZoom<0>},
};

SpreadGrid::SpreadGrid(QWidget *parent)
    : SpreadView(parent)
    , m_history(new SpreadHistory(*this, sheet(), selection()))
    , m_moveKeys(std::make_unique<MoveKeys>(*this, sheet(), selection()))
{
    sheet().setObserver([this](const TextChange &change) { recordTexts(change); });
    connectMouse();
    connectEditor();
}

SpreadGrid::~SpreadGrid() = default;

void SpreadGrid::connectMouse()
{
    const auto *mouse = new SpreadMouse(*this, selection(), delegate());
    connect(mouse, &SpreadMouse::rightClicked, this, &SpreadGrid::rightClicked);
    connect(mouse, &SpreadMouse::checkBoxClicked, this, &SpreadGrid::toggleActiveCheckBox);
    const auto *headings = new HeadingMouse(*this, sheet(), selection(), columnHeader(), rowHeader());
    connect(headings, &HeadingMouse::doubleClicked, this, &SpreadGrid::headerDoubleClicked);
    connect(headings, &HeadingMouse::rightClicked, this, &SpreadGrid::rightClicked);
}

void SpreadGrid::connectEditor()
{
    connect(&delegate(), &SpreadDelegate::keyAfterEdit, this, [this](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        keyPressEvent(&event);
    });
    delegate().setFillKey([this] { return fillFromEditor(); });
}

// Texts

QString SpreadGrid::text(int column, int row) const
{
    if (row == 0) {
        return sheet().headerText(column);
    }
    const bool isRowNumber = column == 0 && row > 0 && row <= rowCount();
    return isRowNumber ? QString::number(row) : cellText(column, row).toString();
}

QStringView SpreadGrid::cellText(int column, int row) const
{
    return sheet().text(column, row);
}

void SpreadGrid::setText(int column, int row, const QString &text)
{
    sheet().setText(column, row, text);
}

void SpreadGrid::setRowTexts(int row, std::span<const QStringView> texts)
{
    sheet().setRowTexts(row, texts);
}

void SpreadGrid::exchangeRows(std::span<CellRow> rows)
{
    const auto count = std::min(rows.size(), size_t(rowCount()));
    if (count > 0) {
        sheet().exchangeRows(1, rows.first(count));
    }
}

void SpreadGrid::setTexts(const GridBlock &block, const std::function<QStringView(int, int)> &textOf)
{
    sheet().setTexts(block, textOf, SpreadModel::Origin::Program);
}

QString SpreadGrid::blockText(const GridBlock &block) const
{
    return sheet().blockText(block);
}

void SpreadGrid::setBlockText(const GridBlock &block, QStringView text)
{
    sheet().setBlockText(block, text);
}

void SpreadGrid::moveRowTexts(int row1, int row2, int target)
{
    sheet().moveRowTexts(row1, row2, target);
}

void SpreadGrid::sortRows(int row1, int row2, int key)
{
    if (sheet().sortRows(row1, row2, key)) {
        selection().moveTo(activeColumn(), activeRow()); // the model has moved the active cell with its row
        scrollToCell(activeColumn(), activeRow());
    }
}

// Types and looks

void SpreadGrid::setCellType(int column, int row, const CellType &type)
{
    sheet().setCellType(column, row, type);
}

CellType SpreadGrid::cellType(int column, int row) const
{
    return sheet().cellType(column, row);
}

void SpreadGrid::setAlignment(int column, Qt::Alignment alignment)
{
    if (column == 0) {
        rowHeader().setDefaultAlignment(alignment | Qt::AlignVCenter);
    } else {
        sheet().setAlignment(column, alignment);
    }
}

Qt::Alignment SpreadGrid::alignment(int column) const
{
    return column == 0 ? rowHeader().defaultAlignment() : sheet().alignment(column);
}

void SpreadGrid::setTextColour(const GridBlock &block, const QColor &colour)
{
    m_history->recordColours(block);
    sheet().setTextColour(block, colour);
}

QColor SpreadGrid::textColour(int column, int row) const
{
    return sheet().textColour(column, row);
}

// Marks

void SpreadGrid::setMarks(CellMarks *marks)
{
    sheet().setMarks(marks);
    viewport()->update();
}

void SpreadGrid::updateMarks(int row)
{
    const int index = row - 1;
    viewport()->update(0, rowViewportPosition(index), viewport()->width(), rowHeight(index));
}

std::span<const CellRow> SpreadGrid::textRows() const
{
    return rowCount() == 0 ? std::span<const CellRow>() : sheet().rows(1, rowCount());
}

// Search

void SpreadGrid::setSearchedText(const QString &text)
{
    delegate().search().setText(text);
    viewport()->update();
}

void SpreadGrid::setFoundMarked(bool marked)
{
    delegate().setFoundMarked(marked);
    viewport()->update();
}

bool SpreadGrid::goToFound(int step)
{
    return goTo(delegate().search().next({activeColumn(), std::max(activeRow(), 1)}, step));
}

bool SpreadGrid::goToFoundFrom(int column, int row)
{
    return goTo(delegate().search().next({std::max(column, 1) - 1, std::max(row, 1)}, 1));
}

bool SpreadGrid::goTo(const std::optional<QPoint> &cell)
{
    if (cell) {
        setActiveCell(cell->x(), cell->y());
    }
    return cell.has_value();
}

CellSearch::Count SpreadGrid::countFound() const
{
    return delegate().search().count({activeColumn(), activeRow()});
}

bool SpreadGrid::goToColoured(const QColor &colour, int step)
{
    return goTo(nextCell(
        {columnCount(), rowCount()}, {activeColumn(), std::max(activeRow(), 1)}, step,
        [this](int row) { return sheet().isColoured(row); },
        [&](int column, int row) { return isColumnShown(column) && textColour(column, row) == colour; }));
}

// Keys and menu

void SpreadGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        emit escapePressed(event->modifiers());
        event->ignore(); // a dialog around the grid closes by it
    } else {
        event->setAccepted(m_moveKeys->handle(*event) || runCommand(*event) || beginTyping(*event));
    }
}

bool SpreadGrid::runCommand(const QKeyEvent &event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto *found = std::ranges::find_if(
        commandKeys, [&](const CommandKey &entry) { return entry.key == event.key() && entry.modifiers == modifiers; });
    if (found == std::end(commandKeys)) {
        return false;
    }
    (this->*found->run)();
    return true;
}

// A key that the cell cannot begin with does not open its editor.
bool SpreadGrid::beginTyping(QKeyEvent &event)
{
    const QString typed = event.text();
    // Both together are what a third shift level sends on some systems.
    const bool isCommand =
        event.modifiers().testFlag(Qt::ControlModifier) != event.modifiers().testFlag(Qt::AltModifier);
    const bool isText = !typed.isEmpty() && (typed.front().isPrint() || typed.front().isSurrogate());
    if (!isText || isCommand || activeRow() == 0) {
        return false;
    }
    if (event.key() == Qt::Key_Space && toggleSelectedCheckBoxes()) {
        return true;
    }
    const CellType &type = sheet().cellType(activeColumn(), activeRow());
    if (type.kind != CellType::Kind::CheckBox && CellInput::check(type, typed) != QValidator::Invalid) {
        openEditor(event);
    }
    return true;
}

void SpreadGrid::selectWholeColumns()
{
    const GridBlock block = selectedBlock();
    selection().selectColumns(std::max(block.column1, 1), block.column2, activeRow());
}

void SpreadGrid::selectWholeRows()
{
    const GridBlock block = selectedBlock();
    selection().selectRows(block.row1, block.row2, activeColumn());
}

// Asked for by a key; the mouse has its own way.
void SpreadGrid::contextMenuEvent(QContextMenuEvent *event)
{
    const QPoint position = visualRect(currentIndex()).center();
    emit rightClicked(activeColumn(), activeRow(), viewport()->mapToGlobal(position));
    event->accept();
}

// Editing

// Slots may colour the cells that were edited: that belongs to the same step.
void SpreadGrid::recordTexts(const TextChange &change)
{
    if (change.origin == TextChange::Origin::Program) {
        m_history->recordTexts(change);
        return;
    }
    const UndoStep step(*m_history);
    const auto block = changedBlock(change.firstRow, change.before, change.after, columnCount());
    m_history->recordTexts(change);
    if (block) {
        emit cellsEdited(*block);
    }
}

void SpreadGrid::clearSelectedCells()
{
    if (activeRow() > 0) {
        sheet().clearCells(selectedBlock());
    }
}

void SpreadGrid::toggleActiveCheckBox()
{
    const bool ticked = CellInput::isTicked(cellText(activeColumn(), activeRow()));
    sheet().setText(activeColumn(), activeRow(), ticked ? u"0"_s : u"1"_s, SpreadModel::Origin::User);
}

// Ticks the check boxes among the selected cells, or unticks them if all of them are ticked; boxes in hidden columns
// stay as they are. False if there are none.
bool SpreadGrid::toggleSelectedCheckBoxes()
{
    const auto cells = sheet().dataCells(selectedBlock());
    if (activeRow() == 0 || !cells) {
        return false;
    }
    const auto isBox = [this](int column, int row) {
        return isColumnShown(column) && sheet().cellType(column, row).kind == CellType::Kind::CheckBox;
    };
    int boxes = 0;
    int ticked = 0;
    for (int row = cells->row1; row <= cells->row2; ++row) {
        for (int column = cells->column1; column <= cells->column2; ++column) {
            boxes += isBox(column, row) ? 1 : 0;
            ticked += isBox(column, row) && CellInput::isTicked(cellText(column, row)) ? 1 : 0;
        }
    }
    const bool ticks = ticked < boxes;
    const auto textOf = [&](int column, int row) -> QStringView {
        const QStringView text = cellText(column, row);
        return !isBox(column, row) || CellInput::isTicked(text) == ticks ? text : ticks ? u"1" : u"0";
    };
    if (boxes > 0) {
        const UndoStep step(*m_history);
        m_history->keepSelection();
        sheet().setTexts(*cells, textOf, SpreadModel::Origin::User);
    }
    return boxes > 0;
}

// If nobody fills, as in the lists of dialogs, Ctrl+Enter ends the edit of the one cell.
bool SpreadGrid::fillFromEditor()
{
    const bool fills = isBlockSelected() && isSignalConnected(QMetaMethod::fromSignal(&SpreadGrid::fillRequested));
    if (fills) {
        emit fillRequested(Fill::Selection);
    }
    return fills;
}
