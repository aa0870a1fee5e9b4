#include "grid/HeaderSection.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QWidget>

void drawHeaderSection(const QStyleOptionHeaderV2 &section, QPainter &painter, const QWidget &header)
{
    const QStyle &style = *header.style();
    style.drawControl(QStyle::CE_HeaderSection, &section, &painter, &header);
    QStyleOptionHeaderV2 label = section;
    label.rect = style.subElementRect(QStyle::SE_HeaderLabel, &section, &header);
    label.rect.setTop(section.rect.top());
    label.rect.setBottom(section.rect.bottom());
    style.drawControl(QStyle::CE_HeaderLabel, &label, &painter, &header);
}
