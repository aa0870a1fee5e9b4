#include "editor/FindField.h"

#include "desktop/Contrast.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

FindField::FindField(QWidget *parent) : QLineEdit(parent)
{
    setObjectName(u"txtFind"_s);
}

void FindField::showCount(const CellSearch::Count &count)
{
    const bool asks = !text().isEmpty();
    m_found = !asks || count.all > 0;
    m_count = asks ? u"%1/%2"_s.arg(count.number).arg(count.all) : QString();
    setTextMargins(0, 0, asks ? fontMetrics().horizontalAdvance(m_count + u' ') : 0, 0);
    setAccessibleDescription(m_count);
    colour();
    update();
}

void FindField::colour()
{
    QPalette colours; // the window's
    if (!m_found) {
        colours = parentWidget()->palette();
        const QColor background = tinted(colours.color(QPalette::Base), Qt::red);
        colours.setColor(QPalette::Base, background);
        colours.setColor(QPalette::Text, readableOn(background, colours.color(QPalette::Text)));
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

void FindField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    const int side =
        style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) + fontMetrics().averageCharWidth();
    const QColor faint = palette().color(QPalette::Disabled, QPalette::Text);
    QPainter painter(this);
    painter.setPen(readableOn(palette().color(QPalette::Base), faint));
    painter.drawText(rect().adjusted(0, 0, -side, 0), Qt::AlignRight | Qt::AlignVCenter, m_count);
}

QSize FindField::sizeHint() const
{
    constexpr int digits = 28; // a text and a count of several hundred
    return {fontMetrics().horizontalAdvance(u'0') * digits, QLineEdit::sizeHint().height()};
}

bool FindField::focusNextPrevChild(bool)
{
    emit leaveRequested();
    return true;
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
