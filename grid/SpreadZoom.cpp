#include "grid/SpreadZoom.h"

#include "grid/SpreadGrid.h"

#include <QWheelEvent>

#include <algorithm>

namespace {

// Per cent
constexpr int defaultZoom = 100;
constexpr int zoomStep = 10;
constexpr int minZoom = 50;
constexpr int maxZoom = 300;

} // namespace

SpreadZoom::SpreadZoom(SpreadGrid &grid) : QObject(&grid), m_grid(grid)
{
    grid.viewport()->installEventFilter(this);
    connect(&grid, &SpreadGrid::zoomRequested, this, &SpreadZoom::zoomBy);
}

// Headers pass their wheel on to the viewport.
bool SpreadZoom::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) {
        const auto &wheel = *static_cast<QWheelEvent *>(event);
        if (wheel.modifiers() == Qt::ControlModifier) {
            turn(wheel);
            event->accept();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

// Fine wheels and touch pads report small parts of a step, which add up.
void SpreadZoom::turn(const QWheelEvent &event)
{
    const int delta = event.angleDelta().y();
    const bool turnsBack = (delta < 0) != (m_turned < 0);
    m_turned = (turnsBack ? 0 : m_turned) + delta;
    if (const int steps = m_turned / QWheelEvent::DefaultDeltasPerStep) {
        m_turned %= QWheelEvent::DefaultDeltasPerStep;
        zoomBy(steps);
    }
}

void SpreadZoom::zoomBy(int steps)
{
    m_grid.setZoom(steps == 0 ? defaultZoom : std::clamp(m_grid.zoom() + steps * zoomStep, minZoom, maxZoom));
}
