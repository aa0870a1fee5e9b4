#include "grid/SpreadGrid.h"

#include "grid/ActiveFrame.h"
#include "grid/SpreadCorner.h"
#include "grid/SpreadDelegate.h"
#include "grid/SpreadHeader.h"
#include "grid/SpreadHistory.h"
#include "grid/SpreadKeys.h"
#include "grid/SpreadMouse.h"
#include "grid/SpreadSelection.h"
#include "grid/SpreadSizes.h"
#include "grid/UndoStep.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/TextChange.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

SpreadGrid::SpreadGrid(QWidget *parent)
    : SpreadView(parent)
    , m_model(new SpreadModel(this))
    , m_columnHeader(new SpreadHeader(Qt::Horizontal, this))
    , m_rowHeader(new SpreadHeader(Qt::Vertical, this))
    , m_activeFrame(std::make_unique<ActiveFrame>(*this, *m_columnHeader))
{
    setHorizontalHeader(m_columnHeader);
    setVerticalHeader(m_rowHeader);
    setModel(m_model);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setAutoScroll(false);
    setWordWrap(false);
    m_selection = new SpreadSelection(*this, *m_model);
    m_history = new SpreadHistory(*this, *m_model, *m_selection);
    m_delegate = new SpreadDelegate(*this, *m_model);
    setItemDelegate(m_delegate);
    m_sizes = new SpreadSizes(*this, *m_model, *m_columnHeader, *m_rowHeader, *m_delegate);
    connect(m_selection, &SpreadSelection::changed, this, &SpreadGrid::markHeaders);
    m_keys = std::make_unique<SpreadKeys>(*this, *m_model, *m_selection);
    const auto *mouse = new SpreadMouse(*this, *m_selection, *m_delegate);
    connect(mouse, &SpreadMouse::rightClicked, this, &SpreadGrid::rightClicked);
    connect(m_delegate, &SpreadDelegate::keyAfterEdit, this, [this](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        keyPressEvent(&event);
    });
    m_delegate->setFillKey([this] { return fillFromEditor(); });
    connect(m_model, &SpreadModel::dataChanged, this, &SpreadGrid::contentsChanged);
    m_model->setObserver([this](const TextChange &change) { noteTexts(change); });
    connectHeaders();
    m_sizes->noteFont();
    setWidthInCharacters(0, 4);
}

SpreadGrid::~SpreadGrid() = default;

// Size

int SpreadGrid::rowCount() const
{
    return m_model->rowCount();
}

void SpreadGrid::setRowCount(int rows)
{
    const auto held = m_selection->hold();
    const QScopedValueRollback quiet(m_quiet, true);
    m_history->noteRowCount(std::max(rows, 0));
    m_model->setRowCount(rows);
    m_selection->fitIntoGrid();
    m_sizes->fitRowNumberWidth();
    emit contentsChanged();
}

int SpreadGrid::columnCount() const
{
    return m_model->columnCount();
}

void SpreadGrid::setColumnCount(int columns)
{
    const auto held = m_selection->hold();
    const QScopedValueRollback quiet(m_quiet, true);
    m_model->setColumnCount(columns);
    m_selection->fitIntoGrid();
}

// Texts

QString SpreadGrid::text(int column, int row) const
{
    if (row == 0) {
        return m_model->headerText(column);
    }
    const bool isRowNumber = column == 0 && row > 0 && row <= rowCount();
    return isRowNumber ? QString::number(row) : cellText(column, row).toString();
}

QStringView SpreadGrid::cellText(int column, int row) const
{
    return m_model->text(column, row);
}

void SpreadGrid::setText(int column, int row, const QString &text)
{
    m_model->setText(column, row, text);
}

void SpreadGrid::setRowTexts(int row, std::span<const QStringView> texts)
{
    m_model->setRowTexts(row, texts);
}

QString SpreadGrid::blockText(const GridBlock &block) const
{
    return m_model->blockText(block);
}

void SpreadGrid::setBlockText(const GridBlock &block, QStringView text)
{
    m_model->setBlockText(block, text);
}

void SpreadGrid::moveRowTexts(int row1, int row2, int target)
{
    m_model->moveRowTexts(row1, row2, target);
}

void SpreadGrid::sortRows(int row1, int row2, int key)
{
    if (m_model->sortRows(row1, row2, key)) {
        m_selection->moveTo(activeColumn(), activeRow()); // the model has moved the active cell with its row
        scrollToCell(activeColumn(), activeRow());
    }
}

// Types and looks

void SpreadGrid::setCellType(int column, int row, const CellType &type)
{
    m_model->setCellType(column, row, type);
}

CellType SpreadGrid::cellType(int column, int row) const
{
    return m_model->cellType(column, row);
}

void SpreadGrid::setAlignment(int column, Qt::Alignment alignment)
{
    if (column == 0) {
        m_rowHeader->setDefaultAlignment(alignment | Qt::AlignVCenter);
    } else {
        m_model->setAlignment(column, alignment);
    }
}

Qt::Alignment SpreadGrid::alignment(int column) const
{
    return column == 0 ? m_rowHeader->defaultAlignment() : m_model->alignment(column);
}

void SpreadGrid::setForeColour(const GridBlock &block, const QColor &colour)
{
    m_history->noteColours(block);
    m_model->setForeColour(block, colour);
}

QColor SpreadGrid::foreColour(int column, int row) const
{
    return m_model->foreColour(column, row);
}

void SpreadGrid::setGridFont(const QFont &font)
{
    m_sizes->setFont(font);
}

QFont SpreadGrid::gridFont() const
{
    return m_sizes->font();
}

void SpreadGrid::changeEvent(QEvent *event)
{
    SpreadView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_sizes) {
        m_sizes->noteFont();
    }
}

// Widths and heights

void SpreadGrid::setWidthInCharacters(int column, double characters)
{
    m_sizes->setWidthInCharacters(column, characters);
}

void SpreadGrid::fitColumnWidth(int column)
{
    m_sizes->fitColumnWidth(column);
}

void SpreadGrid::fitRowHeight(int row)
{
    m_sizes->fitRowHeight(row);
}

int SpreadGrid::plainColumnWidth(int column) const
{
    return isColumnShown(column) ? m_sizes->columnWidth(column) : 0;
}

int SpreadGrid::plainRowNumberWidth() const
{
    return m_sizes->rowNumberWidth();
}

int SpreadGrid::plainRowHeight(int row) const
{
    return m_sizes->rowHeight(row);
}

void SpreadGrid::setPlainRowHeight(int row, int pixels)
{
    m_sizes->setRowHeight(row, pixels);
}

int SpreadGrid::zoom() const
{
    return m_sizes->zoom();
}

// The same cell stays at the top left, unless the active one would leave the view.
void SpreadGrid::setZoom(int percent)
{
    const bool activeInView = viewport()->rect().intersects(visualRect(currentIndex()));
    const int top = topRow();
    const double left = double(horizontalScrollBar()->value()) / zoom();
    m_sizes->setZoom(percent);
    updateGeometries();
    setTopRow(top);
    horizontalScrollBar()->setValue(int(std::lround(left * percent)));
    if (activeInView) {
        scrollTo(currentIndex());
    }
    updateEditorGeometries();
    viewport()->update();
}

void SpreadGrid::setColumnShown(int column, bool shown)
{
    if (column >= 1 && column <= columnCount()) {
        setColumnHidden(column - 1, !shown);
    }
}

bool SpreadGrid::isColumnShown(int column) const
{
    return column >= 1 && column <= columnCount() && !isColumnHidden(column - 1);
}

void SpreadGrid::setFrozenColumns(int columns)
{
    m_frozenColumns = std::clamp(columns, 0, 1);
    m_columnHeader->setFirstSectionFrozen(m_frozenColumns > 0);
    viewport()->update();
}

// Selection

GridBlock SpreadGrid::selectedBlock() const
{
    return m_selection->block();
}

void SpreadGrid::selectBlock(const GridBlock &block)
{
    m_selection->select(block);
}

bool SpreadGrid::isBlockSelected() const
{
    return m_selection->isBlock();
}

int SpreadGrid::activeColumn() const
{
    return m_selection->activeColumn();
}

int SpreadGrid::activeRow() const
{
    return m_selection->activeRow();
}

void SpreadGrid::setActiveCell(int column, int row)
{
    m_selection->moveTo(column, row);
    scrollToCell(activeColumn(), activeRow());
}

void SpreadGrid::selectAll()
{
    m_selection->selectAll();
}

// Editing

void SpreadGrid::setRedraw(bool on)
{
    if (!on && m_redrawsOff++ == 0) {
        m_model->beginBatch();
        setUpdatesEnabled(false);
    } else if (on && m_redrawsOff > 0 && --m_redrawsOff == 0) {
        m_model->endBatch();
        setUpdatesEnabled(true);
    }
}

void SpreadGrid::clearSelectedCells()
{
    if (activeRow() > 0) {
        m_model->clearCells(selectedBlock());
    }
}

void SpreadGrid::commitEdit()
{
    m_delegate->finishEdit();
}

void SpreadGrid::toggleActiveCheckBox()
{
    const bool ticked = CellInput::isTicked(cellText(activeColumn(), activeRow()));
    m_model->setText(activeColumn(), activeRow(), ticked ? u"0"_s : u"1"_s, SpreadModel::Origin::User);
}

// Who hears of an edit may colour its cells: that belongs to the same step.
void SpreadGrid::noteTexts(const TextChange &change)
{
    if (change.origin == TextChange::Origin::Program) {
        m_history->noteTexts(change);
        return;
    }
    const UndoStep step(*m_history);
    m_history->noteTexts(change);
    if (const auto block = changedBlock(change, columnCount())) {
        emit cellsEdited(*block);
    }
}
