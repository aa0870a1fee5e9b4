#include "grid/CheckBoxPictures.h"

#include "desktop/Contrast.h"
#include "grid/cells/CellMetrics.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

QSize CheckBoxPictures::size(int zoom) const
{
    const QStyle *style = m_view.style();
    return {CellMetrics::zoomed(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &m_view), zoom),
        CellMetrics::zoomed(style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &m_view), zoom)};
}

const QPixmap &CheckBoxPictures::picture(bool ticked, const QColor &own, int zoom)
{
    const Look look{m_view.style(), m_view.palette().cacheKey(), m_view.devicePixelRatioF(), zoom};
    if (look != m_look) {
        m_look = look;
        m_pictures.clear();
    }
    QPixmap &picture = m_pictures[{own.isValid() ? own.rgba() : QRgb(0), ticked}];
    if (picture.isNull()) {
        picture = drawn(ticked, own, zoom);
    }
    return picture;
}

QPixmap CheckBoxPictures::drawn(bool ticked, const QColor &own, int zoom) const
{
    QPixmap picture(size(zoom) * m_view.devicePixelRatioF());
    picture.setDevicePixelRatio(m_view.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QStyleOptionButton box;
    box.initFrom(&m_view);
    box.styleObject = nullptr; // a style that fades a tick in would have its first frame kept here
    box.rect = QRect(QPoint(), size(zoom));
    box.palette = boxPalette(box.palette, box.palette.color(QPalette::Base), own);
    box.state = QStyle::State_Enabled | (ticked ? QStyle::State_On : QStyle::State_Off);
    QPainter painter(&picture);
    m_view.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, &m_view);
    return picture;
}
