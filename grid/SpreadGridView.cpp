// What a SpreadGrid shows and how it is handled: painting, scrolling, headers, keys.

#include "desktop/Contrast.h"
#include "grid/ActiveFrame.h"
#include "grid/SpreadCorner.h"
#include "grid/SpreadDelegate.h"
#include "grid/SpreadGrid.h"
#include "grid/SpreadHeader.h"
#include "grid/SpreadKeys.h"
#include "grid/SpreadSelection.h"
#include "grid/cells/CellWalk.h"
#include "grid/cells/SpreadModel.h"
#include "grid/editors/CellEditor.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionViewItem>
#include <QWheelEvent>

#include <algorithm>

// Headers

void SpreadGrid::connectHeaders()
{
    for (SpreadHeader *header : {m_columnHeader, m_rowHeader}) {
        disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
        disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
        disconnect(header, &QHeaderView::sectionHandleDoubleClicked, this, nullptr);
        // With the grid's own, a header looks at every cell of a selected column each time it is painted.
        header->setSelectionModel(new QItemSelectionModel(m_model, header));
    }
    // A heading is there for its column's width: whoever only means to fit it must not have all rows selected by it.
    m_columnHeader->setSectionsClickable(false);
    connect(m_rowHeader, &QHeaderView::sectionPressed, this, [this](int at) { pressRow(at + 1); });
    connect(m_rowHeader, &QHeaderView::sectionEntered, this, [this](int at) {
        m_selection->extendTo(columnCount(), at + 1);
        scrollToCell(activeColumn(), at + 1);
    });
    connect(m_columnHeader, &QHeaderView::sectionDoubleClicked, this, [this](int at) { doubleClickHeading(at + 1); });
    connect(m_columnHeader, &QHeaderView::sectionHandleDoubleClicked, this, [this](int at) {
        commitEdit();
        fitColumnWidth(at + 1);
    });
    connect(m_rowHeader, &QHeaderView::sectionHandleDoubleClicked, this, [this](int at) { fitRowHeight(at + 1); });
    connect(m_columnHeader, &SpreadHeader::rightClicked, this,
        [this](int at, const QPoint &place) { emit rightClicked(at + 1, 0, place); });
    connect(m_rowHeader, &SpreadHeader::rightClicked, this, [this](int at, const QPoint &place) {
        if (!m_selection->block().isWholeRows() || !m_selection->contains(1, at + 1)) {
            pressRow(at + 1);
        }
        emit rightClicked(0, at + 1, place);
    });
    const auto *corner = new SpreadCorner(*this, *m_model);
    connect(corner, &SpreadCorner::doubleClicked, this, [this] { doubleClickHeading(0); });
    connect(corner, &SpreadCorner::rightClicked, this, [this](const QPoint &place) { emit rightClicked(0, 0, place); });
}

// What is being typed counts for the width.
void SpreadGrid::doubleClickHeading(int column)
{
    commitEdit();
    emit headerDoubleClicked(column);
}

void SpreadGrid::pressRow(int row)
{
    commitEdit();
    if (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) {
        m_selection->selectRows(m_selection->rowOfBeginning(), row, activeColumn());
    } else {
        const QModelIndex first = indexAt({0, 0});
        m_selection->selectRows(row, row, first.isValid() ? first.column() + 1 : 1);
    }
}

// Places

int SpreadGrid::frozenWidth() const
{
    return m_frozenColumns > 0 && columnCount() > 0 ? columnWidth(0) : 0;
}

QModelIndex SpreadGrid::indexAt(const QPoint &place) const
{
    if (place.x() >= 0 && place.x() < m_columnHeader->coveredWidth()) {
        return model()->index(rowAt(place.y()), 0);
    }
    return SpreadView::indexAt(place);
}

QRect SpreadGrid::visualRect(const QModelIndex &index) const
{
    QRect place = SpreadView::visualRect(index);
    if (index.isValid() && index.column() == 0 && m_columnHeader->coveredWidth() > 0) {
        place.moveLeft(0);
    }
    return place;
}

// A frozen column that stands over scrolled ones has changed as well.
QRegion SpreadGrid::visualRegionForSelection(const QItemSelection &selection) const
{
    return SpreadView::visualRegionForSelection(selection)
        + QRect(0, 0, m_columnHeader->coveredWidth(), viewport()->height());
}

int SpreadGrid::shownColumnFrom(int column, int steps) const
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

// Scrolling

int SpreadGrid::topRow() const
{
    return rowAt(0) + 1;
}

void SpreadGrid::setTopRow(int row)
{
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(row - 1);
}

int SpreadGrid::bottomRow() const
{
    const int row = rowAt(viewport()->height() - 1) + 1;
    return row > 0 ? row : rowCount();
}

void SpreadGrid::scrollToCell(int column, int row)
{
    scrollTo(m_model->cellIndex(column, row));
}

// Both directions by as little as possible; a frozen column needs none sideways, and the others none beneath it.
void SpreadGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (!index.isValid()) {
        return;
    }
    executeDelayedItemsLayout();
    int top = index.row();
    for (int room = viewport()->height() - rowHeight(top); top > 0 && room >= rowHeight(top - 1); --top) {
        room -= rowHeight(top - 1);
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

void SpreadGrid::scrollContentsBy(int dx, int dy)
{
    const QPoint before(m_columnHeader->offset(), m_rowHeader->offset());
    SpreadView::scrollContentsBy(dx, dy);
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

// Few wheels can be tilted: with Shift the usual one scrolls sideways.
void SpreadGrid::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() != Qt::ShiftModifier || event->angleDelta().x() != 0) {
        SpreadView::wheelEvent(event);
        return;
    }
    QWheelEvent tilted(event->position(), event->globalPosition(), event->pixelDelta().transposed(),
        event->angleDelta().transposed(), event->buttons(), Qt::NoModifier, event->phase(), event->inverted());
    SpreadView::wheelEvent(&tilted);
    event->setAccepted(tilted.isAccepted());
}

// Search

void SpreadGrid::setSearchedText(const QString &text)
{
    m_delegate->search().setText(text);
    viewport()->update();
}

void SpreadGrid::setFoundMarked(bool marked)
{
    m_delegate->setFoundMarked(marked);
    viewport()->update();
}

bool SpreadGrid::goToFound(int step)
{
    return goTo(m_delegate->search().next({activeColumn(), std::max(activeRow(), 1)}, step));
}

bool SpreadGrid::goToFoundFrom(int column, int row)
{
    return goTo(m_delegate->search().next({std::max(column, 1) - 1, std::max(row, 1)}, 1));
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
    return m_delegate->search().count({activeColumn(), activeRow()});
}

bool SpreadGrid::goToColoured(const QColor &colour, int step)
{
    return goTo(nextCell(
        {columnCount(), rowCount()}, {activeColumn(), std::max(activeRow(), 1)}, step,
        [this](int row) { return m_model->isColoured(row); },
        [&](int column, int row) { return isColumnShown(column) && foreColour(column, row) == colour; }));
}

// Painting

void SpreadGrid::markHeaders()
{
    const GridBlock block = selectedBlock();
    m_columnHeader->setMarkedSections(std::max(block.column1, 1) - 1, block.column2 - 1);
    m_rowHeader->setMarkedSections(block.row1 - 1, block.row2 - 1);
}

// Each cell is painted with its ground, so that one that is asked for twice looks the same.
void SpreadGrid::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.font = font();
    const int covered = m_columnHeader->coveredWidth();
    for (const QRect &part : event->region()) {
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

void SpreadGrid::paintColumn(QPainter &painter, QStyleOptionViewItem &option, int column, int left, const QRect &part)
{
    const int width = columnWidth(column);
    const auto usual = QColor::fromRgba(QRgb(style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this)));
    const QColor lines = lineOn(palette().color(QPalette::Base), usual);
    int top = 0;
    for (int row = rowAt(part.top()); row >= 0 && row < rowCount(); ++row) {
        top = rowViewportPosition(row);
        const int height = rowHeight(row);
        option.rect = QRect(left, top, width - 1, height - 1);
        option.state.setFlag(QStyle::State_Selected, m_selection->contains(column + 1, row + 1));
        m_delegate->paint(&painter, option, model()->index(row, column));
        painter.fillRect(left, top + height - 1, width, 1, lines);
        painter.fillRect(left + width - 1, top, 1, height, lines);
        if (top + height > part.bottom()) {
            break;
        }
    }
}

// Keys and the active cell

void SpreadGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        emit escapePressed(event->modifiers());
        event->ignore(); // a dialog around the grid closes by it
    } else {
        event->setAccepted(m_keys->handle(*event));
    }
}

// Qt opens an editor for composed text, but keeps the text itself back.
void SpreadGrid::inputMethodEvent(QInputMethodEvent *event)
{
    const bool hasText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (hasText && edit(currentIndex(), AnyKeyPressed, event) && m_delegate->editor()) {
        QCoreApplication::sendEvent(m_delegate->editor()->widget(), event);
    } else {
        event->ignore();
    }
}

void SpreadGrid::contextMenuEvent(QContextMenuEvent *event)
{
    const QPoint place = visualRect(currentIndex()).center();
    emit rightClicked(activeColumn(), activeRow(), viewport()->mapToGlobal(place));
    event->accept();
}

void SpreadGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    SpreadView::currentChanged(current, previous);
    if (!m_quiet) {
        emit cellLeft(previous.column() + 1, previous.row() + 1, current.column() + 1, current.row() + 1);
    }
}

// A press beside the cells, on a scroll bar say, ends no edit by itself.
// A screen reader hears of the grid by itself, of the cell that the keys will act on only so, and only after it.
void SpreadGrid::focusInEvent(QFocusEvent *event)
{
    SpreadView::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason) {
        QMetaObject::invokeMethod(this, &SpreadGrid::commitEdit, Qt::QueuedConnection);
    }
    if (QAccessible::isActive()) {
        QMetaObject::invokeMethod(this, &SpreadGrid::announceActiveCell, Qt::QueuedConnection);
    }
}

void SpreadGrid::announceActiveCell()
{
    if (!hasFocus() || !currentIndex().isValid()) {
        return;
    }
    QAccessibleTableInterface *table = QAccessible::queryAccessibleInterface(this)->tableInterface();
    QAccessibleEvent event(table->cellAt(currentIndex().row(), currentIndex().column()), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void SpreadGrid::openEditor(EditStart start)
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

std::optional<QString> SpreadGrid::textBeingTyped() const
{
    const CellEditor *editor = m_delegate->editor();
    return editor && editor->isModified() && editor->isAcceptable() ? std::optional(editor->text()) : std::nullopt;
}

void SpreadGrid::openEditor(QKeyEvent &typed)
{
    scrollTo(currentIndex());
    edit(currentIndex(), AnyKeyPressed, &typed);
}

QSize SpreadGrid::sizeForRows(int rows) const
{
    const int frame = 2 * frameWidth();
    int width = frame + std::max(m_rowHeader->minimumWidth(), m_rowHeader->sizeHint().width());
    for (int column = 0; column < columnCount(); ++column) {
        width += columnWidth(column); // 0 for a hidden one
    }
    return {width, frame + m_columnHeader->minimumHeight() + rows * m_rowHeader->defaultSectionSize()};
}
