#include "grid/SpreadView.h"

#include "desktop/Contrast.h"
#include "grid/ActiveFrame.h"
#include "grid/SpreadDelegate.h"
#include "grid/SpreadHeader.h"
#include "grid/SpreadSelection.h"
#include "grid/SpreadSizes.h"
#include "grid/cells/GridBlock.h"
#include "grid/cells/SpreadModel.h"
#include "grid/editors/CellEditor.h"

#include <QAccessible>
#include <QInputMethodEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionViewItem>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

SpreadView::SpreadView(QWidget *parent)
    : QTableView(parent)
    , m_model(new SpreadModel(this))
    , m_columnHeader(new SpreadHeader(Qt::Horizontal, this))
    , m_rowHeader(new SpreadHeader(Qt::Vertical, this))
    , m_activeFrame(std::make_unique<ActiveFrame>(*this, *m_columnHeader))
{
    setHorizontalHeader(m_columnHeader);
    setVerticalHeader(m_rowHeader);
    setModel(m_model);
    for (SpreadHeader *header : {m_columnHeader, m_rowHeader}) {
        // With the grid's own model, a header looks at every cell of a selected column each time it is painted.
        header->setSelectionModel(new QItemSelectionModel(m_model, header));
    }
    for (QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()}) {
        // Many styles let through what is below a scroll bar; without this all windows around it would be painted too.
        bar->parentWidget()->setAutoFillBackground(true);
    }
    setSelectionMode(ContiguousSelection);
    setEditTriggers(AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setAutoScroll(false);
    setWordWrap(false);
    m_selection = new SpreadSelection(*this, *m_model);
    m_delegate = new SpreadDelegate(*this, *m_model);
    setItemDelegate(m_delegate);
    m_sizes = new SpreadSizes(*this, *m_model, *m_columnHeader, *m_rowHeader, *m_delegate);
    connect(m_selection, &SpreadSelection::changed, this, &SpreadView::markHeaders);
    connect(m_model, &SpreadModel::dataChanged, this, &SpreadView::contentsChanged);
    m_sizes->adaptToFont();
    setWidthInCharacters(0, 4);
}

SpreadView::~SpreadView() = default;

// Size

int SpreadView::rowCount() const
{
    return m_model->rowCount();
}

void SpreadView::setRowCount(int rows)
{
    const auto held = m_selection->hold();
    const QScopedValueRollback quiet(m_quiet, true);
    emit rowCountAboutToChange(std::max(rows, 0));
    m_model->setRowCount(rows);
    m_selection->fitIntoGrid();
    m_sizes->fitRowNumberWidth();
    emit contentsChanged();
}

int SpreadView::columnCount() const
{
    return m_model->columnCount();
}

void SpreadView::setColumnCount(int columns)
{
    const auto held = m_selection->hold();
    const QScopedValueRollback quiet(m_quiet, true);
    m_model->setColumnCount(columns);
    m_selection->fitIntoGrid();
}

// Widths and heights

void SpreadView::setGridFont(const QFont &font)
{
    m_sizes->setFont(font);
}

QFont SpreadView::gridFont() const
{
    return m_sizes->font();
}

void SpreadView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_sizes) {
        m_sizes->adaptToFont();
    }
}

void SpreadView::setWidthInCharacters(int column, double characters)
{
    m_sizes->setWidthInCharacters(column, characters);
}

void SpreadView::fitColumnWidth(int column)
{
    m_sizes->fitColumnWidth(column);
}

void SpreadView::fitRowHeight(int row)
{
    m_sizes->fitRowHeight(row);
}

int SpreadView::unzoomedColumnWidth(int column) const
{
    return isColumnShown(column) ? m_sizes->columnWidth(column) : 0;
}

int SpreadView::unzoomedRowNumberWidth() const
{
    return m_sizes->rowNumberWidth();
}

int SpreadView::unzoomedRowHeight(int row) const
{
    return m_sizes->rowHeight(row);
}

void SpreadView::setUnzoomedRowHeight(int row, int pixels)
{
    m_sizes->setRowHeight(row, pixels);
}

QSize SpreadView::sizeForRows(int rows) const
{
    const int frame = 2 * frameWidth();
    int width = frame + std::max(m_rowHeader->minimumWidth(), m_rowHeader->sizeHint().width());
    for (int column = 0; column < columnCount(); ++column) {
        width += columnWidth(column); // 0 for a hidden one
    }
    return {width, frame + m_columnHeader->minimumHeight() + rows * m_rowHeader->defaultSectionSize()};
}

int SpreadView::zoom() const
{
    return m_sizes->zoom();
}

// The same cell stays at the top left, unless that moves the active cell out of view.
void SpreadView::setZoom(int percent)
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

void SpreadView::setColumnShown(int column, bool shown)
{
    if (column >= 1 && column <= columnCount()) {
        setColumnHidden(column - 1, !shown);
    }
}

bool SpreadView::isColumnShown(int column) const
{
    return column >= 1 && column <= columnCount() && !isColumnHidden(column - 1);
}

int SpreadView::shownColumnFrom(int column, int steps) const
{
    const int step = steps < 0 ? -1 : 1;
    int reached = column;
    for (int at = column + step; at >= 1 && at <= columnCount() && steps != 0; at += step) {
        if (isColumnShown(at)) {
            reached = at;
            steps -= step;
        }
    }
    return reached;
}

void SpreadView::setFrozenColumns(int columns)
{
    m_frozenColumns = std::clamp(columns, 0, 1);
    m_columnHeader->setFirstSectionFrozen(m_frozenColumns > 0);
    viewport()->update();
}

// Selection

GridBlock SpreadView::selectedBlock() const
{
    return m_selection->block();
}

void SpreadView::selectBlock(const GridBlock &block)
{
    m_selection->select(block);
}

bool SpreadView::isBlockSelected() const
{
    return m_selection->isBlock();
}

void SpreadView::selectAll()
{
    m_selection->selectAll();
}

int SpreadView::activeColumn() const
{
    return m_selection->activeColumn();
}

int SpreadView::activeRow() const
{
    return m_selection->activeRow();
}

void SpreadView::setActiveCell(int column, int row)
{
    m_selection->moveTo(column, row);
    scrollToCell(activeColumn(), activeRow());
}

void SpreadView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_quiet) {
        emit cellLeft(previous.column() + 1, previous.row() + 1, current.column() + 1, current.row() + 1);
    }
}

void SpreadView::markHeaders()
{
    const GridBlock block = selectedBlock();
    m_columnHeader->setMarkedSections(std::max(block.column1, 1) - 1, block.column2 - 1);
    m_rowHeader->setMarkedSections(block.row1 - 1, block.row2 - 1);
}

// Positions

int SpreadView::frozenWidth() const
{
    return m_frozenColumns > 0 && columnCount() > 0 ? columnWidth(0) : 0;
}

QModelIndex SpreadView::indexAt(const QPoint &position) const
{
    if (position.x() >= 0 && position.x() < m_columnHeader->coveredWidth()) {
        return model()->index(rowAt(position.y()), 0);
    }
    return QTableView::indexAt(position);
}

QRect SpreadView::visualRect(const QModelIndex &index) const
{
    QRect rect = QTableView::visualRect(index);
    if (index.isValid() && index.column() == 0 && m_columnHeader->coveredWidth() > 0) {
        rect.moveLeft(0);
    }
    return rect;
}

// A frozen column that covers scrolled ones has changed as well.
QRegion SpreadView::visualRegionForSelection(const QItemSelection &selected) const
{
    return QTableView::visualRegionForSelection(selected)
        + QRect(0, 0, m_columnHeader->coveredWidth(), viewport()->height());
}

// Scrolling

int SpreadView::topRow() const
{
    return rowAt(0) + 1;
}

void SpreadView::setTopRow(int row)
{
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(row - 1);
}

int SpreadView::bottomRow() const
{
    const int row = rowAt(viewport()->height() - 1) + 1;
    return row > 0 ? row : rowCount();
}

void SpreadView::scrollToCell(int column, int row)
{
    scrollTo(m_model->cellIndex(column, row));
}

// Scrolls by as little as possible in both directions. A frozen column needs no scrolling sideways, and the others must
// not end up below it.
void SpreadView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (!index.isValid()) {
        return;
    }
    executeDelayedItemsLayout();
    int top = index.row();
    for (int available = viewport()->height() - rowHeight(top); top > 0 && available >= rowHeight(top - 1); --top) {
        available -= rowHeight(top - 1);
    }
    const int first = hint == PositionAtTop ? index.row() : std::max(verticalScrollBar()->value(), top);
    verticalScrollBar()->setValue(std::min(first, index.row()));
    if (index.column() == 0 && m_frozenColumns > 0) {
        return;
    }
    const int left = m_columnHeader->sectionPosition(index.column());
    const int right = left + columnWidth(index.column());
    const int offset = std::max(horizontalScrollBar()->value(), right - viewport()->width());
    horizontalScrollBar()->setValue(std::min(offset, left - frozenWidth()));
}

void SpreadView::scrollContentsBy(int dx, int dy)
{
    const QPoint before(m_columnHeader->offset(), m_rowHeader->offset());
    QTableView::scrollContentsBy(dx, dy);
    m_activeFrame->follow(before - QPoint(m_columnHeader->offset(), m_rowHeader->offset()));
    if (dx != 0 && m_frozenColumns > 0) {
        viewport()->update();
        m_columnHeader->viewport()->update();
        updateEditorGeometries();
        CellEditor *editor = m_delegate->editor();
        if (editor && currentIndex().column() > 0 && editor->widget()->x() < m_columnHeader->coveredWidth()) {
            commitEdit();
        }
    }
}

// Few wheels can be tilted: with Shift an ordinary one scrolls sideways.
void SpreadView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() != Qt::ShiftModifier || event->angleDelta().x() != 0) {
        QTableView::wheelEvent(event);
        return;
    }
    QWheelEvent tilted(event->position(), event->globalPosition(), event->pixelDelta().transposed(),
        event->angleDelta().transposed(), event->buttons(), Qt::NoModifier, event->phase(), event->inverted());
    QTableView::wheelEvent(&tilted);
    event->setAccepted(tilted.isAccepted());
}

// Painting

void SpreadView::setRedraw(bool on)
{
    if (!on && m_redrawsOff++ == 0) {
        m_model->beginBatch();
        setUpdatesEnabled(false);
    } else if (on && m_redrawsOff > 0 && --m_redrawsOff == 0) {
        m_model->endBatch();
        setUpdatesEnabled(true);
    }
}

// Each cell is painted with its background, so that painting it twice makes no difference.
void SpreadView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.font = font();
    const int covered = m_columnHeader->coveredWidth();
    const QRegion cells = m_activeFrame->uncovered(event->region());
    for (const QRect &part : cells) {
        for (int x = std::max(part.left(), covered); x <= part.right();) {
            const int column = m_columnHeader->logicalIndexAt(x);
            if (column < 0) {
                break;
            }
            const int left = columnViewportPosition(column);
            paintColumn(painter, option, column, left, part);
            x = left + columnWidth(column);
        }
        if (part.left() < covered) {
            paintColumn(painter, option, 0, 0, part);
        }
    }
    if (covered > 0) {
        painter.fillRect(QRect(covered - 1, 0, 1, viewport()->height()), palette().mid());
    }
    m_activeFrame->paint(painter);
}

void SpreadView::paintColumn(QPainter &painter, QStyleOptionViewItem &option, int column, int left, const QRect &part)
{
    const int width = columnWidth(column);
    const auto styleColour = QColor::fromRgba(QRgb(style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this)));
    const QColor lines = lineOn(palette().color(QPalette::Base), styleColour);
    const int first = rowAt(part.top());
    const int firstTop = first < 0 ? 0 : rowViewportPosition(first);
    int bottom = firstTop;
    for (int row = first; row >= 0 && row < rowCount() && bottom <= part.bottom(); ++row) {
        const int top = bottom;
        const int height = rowHeight(row);
        bottom += height;
        option.rect = QRect(left, top, width - 1, height - 1);
        option.state.setFlag(QStyle::State_Selected, m_selection->contains(column + 1, row + 1));
        m_delegate->paint(&painter, option, model()->index(row, column));
        painter.fillRect(left, bottom - 1, width, 1, lines);
    }
    painter.fillRect(left + width - 1, firstTop, 1, bottom - firstTop, lines);
}

// Focus

// A press beside the cells, on a scroll bar for instance, does not end an edit by itself. Qt tells screen readers of
// the grid that got the focus, but not of the active cell: that has to follow.
void SpreadView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason) {
        QMetaObject::invokeMethod(this, &SpreadView::commitEdit, Qt::QueuedConnection);
    }
    if (QAccessible::isActive()) {
        QMetaObject::invokeMethod(this, &SpreadView::announceActiveCell, Qt::QueuedConnection);
    }
}

void SpreadView::announceActiveCell()
{
    if (!hasFocus() || !currentIndex().isValid()) {
        return;
    }
    QAccessibleTableInterface *table = QAccessible::queryAccessibleInterface(this)->tableInterface();
    QAccessibleEvent event(table->cellAt(currentIndex().row(), currentIndex().column()), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

// Editing in place

// Qt opens an editor for composed text, but does not pass the text itself on.
void SpreadView::inputMethodEvent(QInputMethodEvent *event)
{
    const bool hasText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (hasText && edit(currentIndex(), AnyKeyPressed, event) && m_delegate->editor()) {
        QCoreApplication::sendEvent(m_delegate->editor()->widget(), event);
    } else {
        event->ignore();
    }
}

void SpreadView::openEditor(EditStart start)
{
    if (!(m_model->flags(currentIndex()) & Qt::ItemIsEditable)) {
        return;
    }
    scrollTo(currentIndex());
    edit(currentIndex());
    if (CellEditor *editor = m_delegate->editor()) {
        start == EditStart::Empty ? editor->clearText() : editor->goOn();
    }
}

void SpreadView::openEditor(QKeyEvent &typed)
{
    scrollTo(currentIndex());
    edit(currentIndex(), AnyKeyPressed, &typed);
}

void SpreadView::commitEdit()
{
    m_delegate->finishEdit();
}

void SpreadView::dropEdit()
{
    m_delegate->dropEdit();
}

std::optional<QString> SpreadView::textBeingTyped() const
{
    const CellEditor *editor = m_delegate->editor();
    return editor && editor->isModified() && editor->isAcceptable() ? std::optional(editor->text()) : std::nullopt;
}

std::optional<QString> SpreadView::editorText() const
{
    const CellEditor *editor = m_delegate->editor();
    return editor ? std::optional(editor->text()) : std::nullopt;
}
