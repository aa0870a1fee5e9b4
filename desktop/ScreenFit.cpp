#include "desktop/ScreenFit.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

QRect screenOf(const QWidget &window)
{
    const QWidget *parent = window.parentWidget();
    return (parent ? parent->screen() : window.screen())->availableGeometry();
}

QSize frameOf(const QWidget &window)
{
    const QStyle *style = window.style();
    const int border = 2 * style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const QSize drawn(border, border + style->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window));
    const QWidget *parent = window.parentWidget();
    return parent ? drawn.expandedTo(parent->window()->frameGeometry().size() - parent->window()->size()) : drawn;
}

/// The position nearest to wanted at which the length fits between begin and end; begin if it does not fit at all.
int within(int wanted, int begin, int end, int length)
{
    return std::max(begin, std::min(wanted, end - length));
}

} // namespace

QSize maxSizeOnScreen(const QWidget &window)
{
    return screenOf(window).size() - frameOf(window);
}

QPoint positionOnScreen(const QWidget &window, const QPoint &wanted, const QSize &innerSize)
{
    const QRect screen = screenOf(window);
    const QSize outer = innerSize + frameOf(window);
    return {within(wanted.x(), screen.left(), screen.left() + screen.width(), outer.width()),
        within(wanted.y(), screen.top(), screen.top() + screen.height(), outer.height())};
}
