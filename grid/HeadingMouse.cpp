#include "grid/HeadingMouse.h"

#include "grid/SpreadCorner.h"
#include "grid/SpreadHeader.h"
#include "grid/SpreadSelection.h"
#include "grid/SpreadView.h"

#include <QGuiApplication>

HeadingMouse::HeadingMouse(
    SpreadView &view, const SpreadModel &model, SpreadSelection &selection, SpreadHeader &columns, SpreadHeader &rows)
    : QObject(&view), m_view(view), m_selection(selection)
{
    for (const SpreadHeader *header : {&columns, &rows}) {
        disconnect(header, &QHeaderView::sectionPressed, &view, nullptr);
        disconnect(header, &QHeaderView::sectionEntered, &view, nullptr);
        disconnect(header, &QHeaderView::sectionHandleDoubleClicked, &view, nullptr);
    }
    connectColumns(columns);
    connectRows(rows);
    connectCorner(model);
}

void HeadingMouse::connectColumns(SpreadHeader &columns)
{
    // A heading is there for its column's width: a user who only means to fit it must not select all rows by it.
    columns.setSectionsClickable(false);
    connect(&columns, &QHeaderView::sectionDoubleClicked, this, [this](int at) { doubleClick(at + 1); });
    connect(&columns, &QHeaderView::sectionHandleDoubleClicked, this, [this](int at) {
        m_view.commitEdit();
        m_view.fitColumnWidth(at + 1);
    });
    connect(&columns, &SpreadHeader::rightClicked, this,
        [this](int at, const QPoint &position) { emit rightClicked(at + 1, 0, position); });
}

void HeadingMouse::connectRows(SpreadHeader &rows)
{
    connect(&rows, &QHeaderView::sectionPressed, this, [this](int at) { pressRow(at + 1); });
    connect(&rows, &QHeaderView::sectionEntered, this, [this](int at) { extendToRow(at + 1); });
    connect(&rows, &QHeaderView::sectionHandleDoubleClicked, this, [this](int at) { m_view.fitRowHeight(at + 1); });
    connect(&rows, &SpreadHeader::rightClicked, this, [this](int at, const QPoint &position) {
        if (!m_selection.block().isWholeRows() || !m_selection.contains(1, at + 1)) {
            pressRow(at + 1);
        }
        emit rightClicked(0, at + 1, position);
    });
}

void HeadingMouse::connectCorner(const SpreadModel &model)
{
    const auto *corner = new SpreadCorner(m_view, model);
    connect(corner, &SpreadCorner::doubleClicked, this, [this] { doubleClick(0); });
    connect(corner, &SpreadCorner::rightClicked, this,
        [this](const QPoint &position) { emit rightClicked(0, 0, position); });
}

// The text that is being typed counts for the width.
void HeadingMouse::doubleClick(int column)
{
    m_view.commitEdit();
    emit doubleClicked(column);
}

void HeadingMouse::pressRow(int row)
{
    m_view.commitEdit();
    if (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) {
        m_selection.selectRows(m_selection.startRow(), row, m_view.activeColumn());
    } else {
        const QModelIndex first = m_view.indexAt({0, 0});
        m_selection.selectRows(row, row, first.isValid() ? first.column() + 1 : 1);
    }
}

void HeadingMouse::extendToRow(int row)
{
    m_selection.extendTo(m_view.columnCount(), row);
    m_view.scrollToCell(m_view.activeColumn(), row);
}
