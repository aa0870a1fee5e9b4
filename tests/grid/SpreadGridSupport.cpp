#include "tests/grid/SpreadGridSupport.h"

#include "tests/support/Patience.h"

#include <QApplication>
#include <QHeaderView>

#include <algorithm>
#include <ostream>
#include <stdexcept>

using namespace Qt::StringLiterals;

std::unique_ptr<SpreadGrid> shownGrid(int rows)
{
    auto grid = std::make_unique<SpreadGrid>();
    grid->setColumnCount(6);
    grid->setCellType(1, -1, CellType::integer(0, 1000));
    grid->setCellType(3, -1, CellType::text(5));
    grid->setCellType(4, -1, CellType::checkBox());
    grid->setCellType(5, -1, CellType::comboBox({u"1"_s, u"0.1"_s, u"0.01"_s}, {}, {u"No"_s}));
    grid->setCellType(6, -1, CellType::number(0, 3600));
    grid->setRowCount(rows);
    for (int row = 1; row <= rows; ++row) {
        for (const int column : {2, 3}) {
            grid->setText(column, row, u"%1.%2"_s.arg(column).arg(row));
        }
    }
    grid->resize(700, 320);
    grid->show();
    if (!QTest::qWaitForWindowExposed(grid.get(), patience)) {
        throw std::runtime_error("the grid is not shown");
    }
    QApplication::setActiveWindow(grid.get());
    grid->setFocus();
    return grid;
}

void PrintTo(const GridBlock &block, std::ostream *out)
{
    *out << block.column1 << ',' << block.row1 << " to " << block.column2 << ',' << block.row2;
}

QRect cellRect(const SpreadGrid &grid, int column, int row)
{
    return grid.visualRect(grid.model()->index(row - 1, column - 1));
}

QRect innerRect(const SpreadGrid &grid, int column, int row)
{
    return cellRect(grid, column, row).adjusted(3, 3, -3, -3);
}

QImage pictureOf(SpreadGrid &grid)
{
    QApplication::processEvents();
    return grid.viewport()->grab().toImage();
}

QPoint placeOf(const SpreadGrid &grid, int column, int row)
{
    return cellRect(grid, column, row).center();
}

void clickCell(SpreadGrid &grid, int column, int row, Qt::KeyboardModifiers modifiers, Qt::MouseButton button)
{
    QTest::mouseClick(grid.viewport(), button, modifiers, placeOf(grid, column, row));
}

void doubleClickCell(SpreadGrid &grid, int column, int row)
{
    clickCell(grid, column, row);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, placeOf(grid, column, row));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, placeOf(grid, column, row));
}

QPoint headerPlace(const SpreadGrid &grid, int column)
{
    const QHeaderView &header = *grid.horizontalHeader();
    return {header.sectionViewportPosition(column - 1) + header.sectionSize(column - 1) / 2, header.height() / 2};
}

QWidget *openEditor(const SpreadGrid &grid)
{
    const auto editors = grid.findChildren<QWidget *>(u"cellEditor"_s);
    const auto open = std::ranges::find_if(editors, [](const QWidget *editor) { return !editor->isHidden(); });
    return open == editors.end() ? nullptr : *open;
}

void pressKey(SpreadGrid &grid, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *editor = openEditor(grid);
    QTest::keyClick(editor ? editor : &grid, key, modifiers);
}

void typeText(SpreadGrid &grid, const QString &text)
{
    for (const QChar character : text) {
        QWidget *editor = openEditor(grid);
        QTest::keyClick(editor ? editor : &grid, character.toLatin1());
    }
}
