#include "editor/GridFinder.h"

#include "editor/FindField.h"
#include "platform/SpreadGrid.h"

#include <QEvent>

#include <algorithm>

GridFinder::GridFinder(SpreadGrid &grid, QWidget *window)
    : QObject(window), m_grid(grid), m_field(new FindField(window))
{
    m_field->hide();
    m_grid.viewport()->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this, &GridFinder::searchTyped);
    connect(m_field, &FindField::nextRequested, this, &GridFinder::findNext);
    connect(m_field, &FindField::previousRequested, this, &GridFinder::findPrevious);
    connect(m_field, &FindField::closeRequested, this, &GridFinder::close);
}

void GridFinder::open()
{
    m_grid.commitEdit();
    m_field->setAccessibleName(m_field->parentWidget()->windowTitle()); // what it searches; it has no text of its own
    place();
    m_field->show();
    m_field->raise();
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    m_grid.setFoundMarked(true);
}

void GridFinder::close()
{
    m_field->hide();
    m_grid.setFoundMarked(false);
    m_grid.setFocus(Qt::OtherFocusReason);
}

// What is typed further is looked for from the match that it led to so far, which may hold the longer text as well.
void GridFinder::searchTyped()
{
    m_grid.setSearchedText(m_field->text());
    m_field->showFound(m_field->text().isEmpty() || m_grid.goToFound(0));
}

void GridFinder::find(int step)
{
    if (m_field->text().isEmpty()) {
        open();
        return;
    }
    m_grid.commitEdit();
    const bool found = m_grid.goToFound(step);
    m_field->showFound(found);
    if (!found) {
        open(); // so that the user sees why nothing happens
    }
}

void GridFinder::place()
{
    const QRect cells(m_grid.viewport()->mapTo(m_field->parentWidget(), QPoint()), m_grid.viewport()->size());
    const int width = std::min(m_field->sizeHint().width(), cells.width());
    m_field->setGeometry(cells.right() + 1 - width, 0, width, m_field->sizeHint().height());
}

bool GridFinder::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_field->isVisible()) {
        place();
    }
    return QObject::eventFilter(watched, event);
}
