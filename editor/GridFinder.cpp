#include "editor/GridFinder.h"

#include "editor/FindField.h"
#include "grid/SpreadGrid.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QScrollBar>

#include <algorithm>

GridFinder::GridFinder(SpreadGrid &grid, QWidget *window)
    : QObject(window), m_grid(grid), m_field(new FindField(window))
{
    m_field->hide();
    m_grid.viewport()->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &GridFinder::searchTyped);
    connect(m_field, &FindField::nextRequested, this, &GridFinder::findNext);
    connect(m_field, &FindField::previousRequested, this, &GridFinder::findPrevious);
    connect(m_field, &FindField::closeRequested, this, &GridFinder::giveUp);
    connect(m_field, &FindField::leaveRequested, this, &GridFinder::close);
    followGrid();
}

// Once for all that happens at a time.
void GridFinder::followGrid()
{
    m_recount.setSingleShot(true);
    connect(&m_recount, &QTimer::timeout, this, &GridFinder::showCount);
    const auto recount = [this] {
        if (m_field->isVisible()) {
            m_recount.start();
        }
    };
    const auto noteChange = [this, recount] {
        m_origin.reset(); // it may have another row by now
        recount();
    };
    const QAbstractItemModel *cells = m_grid.model();
    connect(&m_grid, &SpreadGrid::cellLeft, this, recount);
    connect(cells, &QAbstractItemModel::dataChanged, this, noteChange);
    connect(cells, &QAbstractItemModel::rowsInserted, this, noteChange);
    connect(cells, &QAbstractItemModel::rowsRemoved, this, noteChange);
    connect(cells, &QAbstractItemModel::layoutChanged, this, noteChange);
    connect(cells, &QAbstractItemModel::modelReset, this, noteChange);
}

void GridFinder::open()
{
    m_grid.commitEdit();
    m_field->setAccessibleName(m_field->parentWidget()->windowTitle()); // what it searches; it has no text of its own
    placeField();
    m_field->show();
    m_field->raise();
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    m_grid.setFoundMarked(true);
    m_origin.reset();
    showCount();
}

void GridFinder::giveUp()
{
    if (m_origin && here().cell == m_reached) {
        returnTo(*m_origin);
    }
    close();
}

void GridFinder::close()
{
    m_field->hide();
    m_grid.setFoundMarked(false);
    m_grid.setFocus(Qt::OtherFocusReason);
}

// Further typing searches from the same position, unless the user has meanwhile moved on from the match.
void GridFinder::searchTyped()
{
    if (!m_origin || here().cell != m_reached) {
        m_origin = here();
    }
    m_grid.setSearchedText(m_field->text());
    const bool found = m_grid.goToFoundFrom(m_origin->cell.x(), m_origin->cell.y());
    if (!found) {
        returnTo(*m_origin);
    }
    m_reached = here().cell;
    m_field->showCount(found ? m_grid.countFound() : CellSearch::Count());
}

GridFinder::Position GridFinder::here() const
{
    return {m_grid.selectedBlock(), {m_grid.activeColumn(), m_grid.activeRow()}, m_grid.topRow(),
        m_grid.horizontalScrollBar()->value()};
}

void GridFinder::returnTo(const Position &position)
{
    if (here().cell == position.cell) {
        return;
    }
    m_grid.setActiveCell(position.cell.x(), position.cell.y());
    if (!position.block.isSingleCell()) {
        m_grid.selectBlock(position.block);
    }
    m_grid.setTopRow(position.topRow);
    m_grid.horizontalScrollBar()->setValue(position.left);
}

void GridFinder::showCount()
{
    m_field->showCount(m_grid.countFound());
}

void GridFinder::find(int step)
{
    if (m_field->text().isEmpty()) {
        open();
        return;
    }
    m_grid.commitEdit();
    if (m_grid.goToFound(step)) {
        m_origin.reset(); // the user has gone on from there
        showCount();
    } else {
        open(); // so that the user sees why nothing happens
    }
}

void GridFinder::placeField()
{
    const QRect cells(m_grid.viewport()->mapTo(m_field->parentWidget(), QPoint()), m_grid.viewport()->size());
    const int width = std::min(m_field->sizeHint().width(), cells.width());
    m_field->setGeometry(cells.right() + 1 - width, 0, width, m_field->sizeHint().height());
}

bool GridFinder::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_field->isVisible()) {
        placeField();
    }
    return QObject::eventFilter(watched, event);
}
