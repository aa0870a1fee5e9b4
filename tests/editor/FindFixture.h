#pragma once

#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Controls.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <utility>

/// A frame whose active document is searched by keys.
class FindFixture : public FrameTest
{
protected:
    using Cell = std::pair<int, int>; ///< column, row

    QLineEdit &field() { return control<QLineEdit>(editor(), QStringLiteral("txtFind")); }
    static void type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void find(const QString &text)
    {
        press(Qt::Key_F, Qt::ControlModifier);
        type(text);
    }
    Cell active() { return {grid().activeColumn(), grid().activeRow()}; }
    /// The background of a cell as it is painted: near its lower left corner, where no text and no frame is.
    QColor background(int column, int row)
    {
        const QRect cell = grid().visualRect(grid().model()->index(row - 1, column - 1));
        return grid().viewport()->grab().toImage().pixelColor(cell.bottomLeft() + QPoint(4, -5));
    }
};
