#include "app/WindowArrangement.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <cmath>

QList<QRect> tiledHorizontally(const QRect &area, int count)
{
    QList<QRect> rectangles;
    const int columns = int(std::sqrt(count));
    int placed = 0;
    for (int column = 0; column < columns; ++column) {
        // The last columns take the windows that do not divide evenly.
        const int rows = (count - placed) / (columns - column);
        const int left = area.left() + area.width() * column / columns;
        const int right = area.left() + area.width() * (column + 1) / columns;
        for (int row = 0; row < rows; ++row, ++placed) {
            const int top = area.top() + area.height() * row / rows;
            const int bottom = area.top() + area.height() * (row + 1) / rows;
            rectangles << QRect(left, top, right - left, bottom - top);
        }
    }
    return rectangles;
}

void cascadeWindows(QMdiArea &area)
{
    area.cascadeSubWindows();
    const QRect viewport = area.viewport()->rect();
    for (QMdiSubWindow *window : area.subWindowList()) {
        if (window->isVisible() && !window->isMinimized()) {
            window->setGeometry(window->geometry() & viewport); // Qt gives them the size that their grids would like
        }
    }
}

void tileWindows(QMdiArea &area)
{
    QList<QMdiSubWindow *> windows;
    for (QMdiSubWindow *window : area.subWindowList()) {
        if (window->isVisible() && !window->isMinimized()) {
            windows << window;
        }
    }
    const QList<QRect> rectangles = tiledHorizontally(area.viewport()->rect(), int(windows.size()));
    for (qsizetype i = 0; i < windows.size(); ++i) {
        windows[i]->showNormal();
        windows[i]->setGeometry(rectangles[i]);
    }
}
