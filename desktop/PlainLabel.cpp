#include "desktop/PlainLabel.h"

#include <QLabel>

QLabel *newPlainLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}
