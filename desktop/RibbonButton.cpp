#include "desktop/RibbonButton.h"

#include "desktop/Picture.h"

namespace {

/// The pictures are drawn on a grid of this size.
constexpr int pictureSize = 24;

} // namespace

RibbonButton::RibbonButton(QWidget *parent) : QToolButton(parent)
{
    setCheckable(true);
    setAutoRaise(true);
    setMouseTracking(true);
    setIconSize({pictureSize, pictureSize});
    connect(this, &QToolButton::clicked, this, &RibbonButton::clickedByUser);
}

void RibbonButton::setPictures(int first, int second)
{
    setIcon(Picture::icon(first, second));
}

void RibbonButton::setValue(bool down)
{
    setChecked(down);
}

void RibbonButton::mouseMoveEvent(QMouseEvent *event)
{
    QToolButton::mouseMoveEvent(event);
    emit mouseMoved();
}

void RibbonButton::enterEvent(QEnterEvent *event)
{
    QToolButton::enterEvent(event);
    emit mouseMoved();
}
