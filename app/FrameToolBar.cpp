#include "app/FrameToolBar.h"

#include "app/services/Language.h"
#include "desktop/PlainCaption.h"
#include "desktop/RibbonButton.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPalette>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int tipIntervalInMilliseconds = 100;
constexpr int tipMargin = 4;

QLabel *newTipPanel(QWidget *frame)
{
    QLabel *panel = newPlainLabel(u"sspnlToolTip"_s, frame);
    panel->setFrameStyle(QFrame::Box | QFrame::Plain);
    panel->setMargin(tipMargin);
    panel->setBackgroundRole(QPalette::ToolTipBase);
    panel->setForegroundRole(QPalette::ToolTipText);
    panel->setAutoFillBackground(true);
    panel->hide();
    return panel;
}

QString tipText(const CommandInfo &command)
{
    return ResString(command.button->tip);
}

/// The commands that have a button, from left to right.
QList<const CommandInfo *> commandsWithButtons()
{
    QList<const CommandInfo *> found;
    for (const CommandInfo &command : commands()) {
        if (command.button) {
            found << &command;
        }
    }
    std::ranges::sort(found, {}, [](const CommandInfo *command) { return command->button->position; });
    return found;
}

} // namespace

FrameToolBar::FrameToolBar(QWidget *frame)
    : QToolBar(frame), m_sspnlToolTip(newTipPanel(frame)), m_timer1(new QTimer(this))
{
    setObjectName(u"pictToolBar"_s);
    setMovable(false);
    setMouseTracking(true);
    for (const CommandInfo *command : commandsWithButtons()) {
        addButton(*command);
    }
    m_timer1->setObjectName(u"Timer1"_s);
    m_timer1->setInterval(tipIntervalInMilliseconds);
    connect(m_timer1, &QTimer::timeout, this, &FrameToolBar::ShowTip);
}

void FrameToolBar::addButton(const CommandInfo &command)
{
    if (command.button->startsGroup) {
        addSeparator();
    }
    auto *widget = new RibbonButton(this);
    widget->setObjectName(command.button->name.toString());
    widget->setIconSize(iconSize());
    addWidget(widget);
    const CommandButton button{widget, &command};
    m_buttons << button;
    connect(widget, &RibbonButton::mouseMoved, this, [this, button] { startTip(button); });
    // A push button in the guise of a toggle: up again before the command runs.
    connect(widget, &RibbonButton::clickedByUser, this, [this, button] {
        button.widget->setValue(false);
        emit chosen(*button.command);
    });
}

void FrameToolBar::loadPictures()
{
    for (const CommandButton &button : std::as_const(m_buttons)) {
        button.widget->setPictures(button.command->button->picture, button.command->button->otherPicture);
        button.widget->setAccessibleName(tipText(*button.command));
    }
}

void FrameToolBar::clearTip()
{
    m_sspnlToolTip->clear();
}

void FrameToolBar::enableDocumentButtons(bool enabled)
{
    for (const CommandNeeds needs : {CommandNeeds::Document, CommandNeeds::CopiedText, CommandNeeds::CopiedRows}) {
        enableButtons(needs, enabled);
    }
}

void FrameToolBar::enableButtons(CommandNeeds needs, bool enabled)
{
    for (const CommandButton &button : std::as_const(m_buttons)) {
        if (button.command->needs == needs) {
            button.widget->setEnabled(enabled);
        }
    }
}

void FrameToolBar::startTip(const CommandButton &button)
{
    m_tipped = button;
    m_timer1->start();
}

void FrameToolBar::ShowTip()
{
    if (!m_tipped.widget || QApplication::widgetAt(QCursor::pos()) != m_tipped.widget) {
        endTip();
        return;
    }
    m_sspnlToolTip->setText(tipText(*m_tipped.command));
    placeTip();
}

void FrameToolBar::placeTip()
{
    QWidget *frame = m_sspnlToolTip->parentWidget();
    m_sspnlToolTip->adjustSize();
    QPoint place = m_tipped.widget->mapTo(frame, m_tipped.widget->rect().bottomLeft()) + QPoint(0, tipMargin);
    place.setX(std::clamp(place.x(), 0, std::max(0, frame->width() - m_sspnlToolTip->width())));
    m_sspnlToolTip->move(place);
    m_sspnlToolTip->raise();
    m_sspnlToolTip->show();
}

void FrameToolBar::endTip()
{
    m_timer1->stop();
    clearTip();
    m_sspnlToolTip->hide();
}

bool FrameToolBar::event(QEvent *event)
{
    // A button passes the moves over itself on.
    const bool moved =
        event->type() == QEvent::MouseMove && !childAt(static_cast<QMouseEvent *>(event)->position().toPoint());
    if (moved || event->type() == QEvent::Leave) {
        endTip();
    }
    return QToolBar::event(event);
}
