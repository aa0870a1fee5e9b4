#include "app/WindowPlacer.h"

#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

namespace {

constexpr int cascadeLength = 6; // as many windows as stand one below the other before the top is reached again

} // namespace

WindowPlacer::WindowPlacer(QMdiArea &area) : m_area(area)
{
    m_area.viewport()->installEventFilter(this);
}

void WindowPlacer::place(QMdiSubWindow &window)
{
    m_placed.removeIf([](const Placed &placed) { return placed.window.isNull(); });
    m_placed << Placed{&window, int(m_placed.size()) % cascadeLength, {}};
    setGeometry(m_placed.back());
}

void WindowPlacer::setGeometry(Placed &placed)
{
    const QRect available = m_area.viewport()->rect();
    const QStyle &style = *placed.window->style();
    const int step =
        style.pixelMetric(QStyle::PM_TitleBarHeight) + style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const QPoint offset(step * placed.position, step * placed.position);
    const QSize room = available.size() - QSize(offset.x(), offset.y());
    placed.geometry = QRect(available.topLeft() + offset, placed.window->sizeHint().boundedTo(room));
    placed.window->setGeometry(placed.geometry);
}

void WindowPlacer::placeAgain()
{
    for (Placed &placed : m_placed) {
        if (placed.window && !placed.window->isMaximized() && placed.window->geometry() == placed.geometry) {
            setGeometry(placed);
        }
    }
}

bool WindowPlacer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        placeAgain();
    }
    return QObject::eventFilter(watched, event);
}
