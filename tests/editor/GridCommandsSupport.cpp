#include "tests/editor/GridCommandsSupport.h"

#include "document/DocumentTables.h"
#include "grid/SpreadGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QHeaderView>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

void GridCommandsTest::SetUp()
{
    start();
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(12))));
}

QString GridCommandsTest::clipboard()
{
    return QApplication::clipboard()->text();
}

void GridCommandsTest::select(int column1, int row1, int column2, int row2)
{
    grid().selectBlock({column1, row1, column2, row2});
}

void GridCommandsTest::selectRows(int row1, int row2)
{
    select(-1, row1, grid().columnCount(), row2);
}

void GridCommandsTest::selectCell(int column, int row)
{
    select(column, row, column, row);
}

void GridCommandsTest::clickRowNumber(int row, Qt::KeyboardModifiers modifiers)
{
    const QPoint place(5, grid().rowViewportPosition(row - 1) + grid().rowHeight(row - 1) / 2);
    QTest::mouseClick(grid().verticalHeader()->viewport(), Qt::LeftButton, modifiers, place);
}

void GridCommandsTest::edit(const QString &command)
{
    chooseMenu(u"mneEdit"_s, command);
}

bool GridCommandsTest::isEnabled(const QString &command)
{
    return menuCommand(u"mneEdit"_s, command).isEnabled();
}

QStringList GridCommandsTest::names()
{
    QStringList names;
    for (int row = 1; row <= grid().rowCount(); ++row) {
        names << grid().text(2, row);
    }
    return names;
}

QString GridCommandsTest::rowText(int row)
{
    return grid().blockText({1, row, grid().columnCount(), row});
}

bool GridCommandsTest::isRed(int column, int row)
{
    return grid().textColour(column, row) == QColor(128, 0, 0);
}

bool GridCommandsTest::isChanged()
{
    return DocFlags[docNo()].changed;
}

QString GridCommandsTest::countLabel()
{
    return control<QLabel>(frame(), u"lblPrcount"_s).text();
}

QString GridCommandsTest::parameter(int number)
{
    return u"Parameter %1"_s.arg(number);
}

QString GridCommandsTest::deleteAllQuestion(int rows)
{
    return u"All %1 rows of the table are selected. Delete them all?"_s.arg(rows);
}
