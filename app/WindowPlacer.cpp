#include "app/WindowPlacer.h"

#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int cascadeLength = 6; // windows, before the next one begins at the top again

} // namespace

WindowPlacer::WindowPlacer(QMdiArea &area) : m_area(area), m_viewport(*area.viewport())
{
    m_viewport.installEventFilter(this);
}

void WindowPlacer::show(QMdiSubWindow &window, const QString &fileName)
{
    const bool alone = !m_area.currentSubWindow();
    m_placed.removeIf([](const Placed &placed) { return placed.window.isNull(); });
    m_placed << Placed{&window, int(m_placed.size()) % cascadeLength, {}, {}};
    window.installEventFilter(this);
    const QRect former = m_closed.take(fileName); // once: a second window of the file gets a position of its own
    if (m_viewport.rect().contains(former.topLeft()) && former.isValid()) {
        window.setGeometry(former);
    } else {
        setGeometry(m_placed.back());
    }
    m_placed.back().normal = window.geometry();
    if (alone && m_lastMaximized) {
        window.showMaximized();
    } else {
        window.show();
    }
}

void WindowPlacer::remember(const QMdiSubWindow &window, const QString &fileName)
{
    m_lastMaximized = window.isMaximized();
    if (const Placed *placed = find(&window)) {
        m_closed.insert(fileName, placed->normal);
    }
}

WindowPlacer::Placed *WindowPlacer::find(const QObject *window)
{
    const auto found =
        std::ranges::find_if(m_placed, [window](const Placed &placed) { return placed.window == window; });
    return found == m_placed.end() ? nullptr : &*found;
}

void WindowPlacer::setGeometry(Placed &placed)
{
    const QRect available = m_viewport.rect();
    const QStyle &style = *placed.window->style();
    const int step =
        style.pixelMetric(QStyle::PM_TitleBarHeight) + style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const QPoint offset(step * placed.position, step * placed.position);
    const QSize maxSize = available.size() - QSize(offset.x(), offset.y());
    placed.geometry = QRect(available.topLeft() + offset, placed.window->sizeHint().boundedTo(maxSize));
    placed.window->setGeometry(placed.geometry);
    placed.geometry = placed.window->geometry(); // an area that is not yet laid out gives another than was asked for
}

void WindowPlacer::followArea()
{
    for (Placed &placed : m_placed) {
        if (placed.window && !placed.window->isMaximized() && placed.window->geometry() == placed.geometry) {
            setGeometry(placed);
        }
    }
}

bool WindowPlacer::eventFilter(QObject *watched, QEvent *event)
{
    const bool moved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (watched == &m_viewport && event->type() == QEvent::Resize) {
        followArea();
    } else if (Placed *placed = moved ? find(watched) : nullptr) {
        if (!placed->window->isMaximized() && !placed->window->isMinimized()) {
            placed->normal = placed->window->geometry();
        }
    }
    return QObject::eventFilter(watched, event);
}
