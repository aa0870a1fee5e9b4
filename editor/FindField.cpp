#include "editor/FindField.h"

#include "platform/Contrast.h"

#include <QEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

FindField::FindField(QWidget *parent) : QLineEdit(parent)
{
    setObjectName(u"txtFind"_s);
}

void FindField::showFound(bool found)
{
    m_found = found;
    colour();
}

void FindField::colour()
{
    QPalette colours; // the window's
    if (!m_found) {
        colours = parentWidget()->palette();
        const QColor ground = tinted(colours.color(QPalette::Base), Qt::red);
        colours.setColor(QPalette::Base, ground);
        colours.setColor(QPalette::Text, readableOn(ground, colours.color(QPalette::Text)));
    }
    setPalette(colours);
}

void FindField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) {
        colour();
    }
}

QSize FindField::sizeHint() const
{
    constexpr int digits = 20;
    return {fontMetrics().horizontalAdvance(u'0') * digits, QLineEdit::sizeHint().height()};
}

// Enter and Escape end here: the window around the field knows them as well.
void FindField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->modifiers().testFlag(Qt::ShiftModifier) ? emit previousRequested() : emit nextRequested();
        break;
    case Qt::Key_Escape:
        emit closeRequested();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}
