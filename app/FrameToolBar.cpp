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
constexpr int firstEditTip = 10;
constexpr int firstEditPicture = 1010;
constexpr int editButtons = 8;
constexpr int pasteIndex = 2;
constexpr int addPasteIndex = 3;
constexpr int groupStarts[] = {0, 4, 6}; // edit buttons with a gap before them
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

QString tipText(int tip)
{
    return ResString(textAfter(Text::TipOpen, tip));
}

} // namespace

FrameToolBar::FrameToolBar(QWidget *frame)
    : QToolBar(frame), m_sspnlToolTip(newTipPanel(frame)), m_timer1(new QTimer(this))
{
    setObjectName(u"pictToolBar"_s);
    setMovable(false);
    setMouseTracking(true);
    m_ssrbnOpen = addButton(u"ssrbnOpen"_s, 0);
    m_ssrbnSave = addButton(u"ssrbnSave"_s, 1);
    m_ssrbnPrint = addButton(u"ssrbnPrint"_s, 2);
    for (int i = 0; i < editButtons; ++i) {
        if (std::ranges::find(groupStarts, i) != std::end(groupStarts)) {
            addSeparator();
        }
        m_ssrbnEdit << addButton(u"ssrbnEdit(%1)"_s.arg(i), firstEditTip + i);
        connect(m_ssrbnEdit.back(), &RibbonButton::clickedByUser, this, [this, i] { emit editClicked(i); });
    }
    connect(m_ssrbnOpen, &RibbonButton::clickedByUser, this, &FrameToolBar::openClicked);
    connect(m_ssrbnSave, &RibbonButton::clickedByUser, this, &FrameToolBar::saveClicked);
    connect(m_ssrbnPrint, &RibbonButton::clickedByUser, this, &FrameToolBar::printClicked);
    m_timer1->setObjectName(u"Timer1"_s);
    m_timer1->setInterval(tipIntervalInMilliseconds);
    connect(m_timer1, &QTimer::timeout, this, &FrameToolBar::ShowTip);
}

RibbonButton *FrameToolBar::addButton(const QString &name, int tip)
{
    auto *button = new RibbonButton(this);
    button->setObjectName(name);
    button->setIconSize(iconSize());
    addWidget(button);
    const TippedButton tipped{button, tip};
    m_tippedButtons << tipped;
    connect(button, &RibbonButton::mouseMoved, this, [this, tipped] { startTip(tipped); });
    // A push button in the guise of a toggle: up again before the command runs.
    connect(button, &RibbonButton::clickedByUser, button, [button] { button->setValue(false); });
    return button;
}

void FrameToolBar::loadPictures()
{
    m_ssrbnOpen->setPictures(1000, 0);
    m_ssrbnSave->setPictures(1001, 1002);
    m_ssrbnPrint->setPictures(1003, 1004);
    for (int i = 0; i < editButtons; ++i) {
        m_ssrbnEdit[i]->setPictures(firstEditPicture + 2 * i, firstEditPicture + 1 + 2 * i);
    }
    for (const TippedButton &tipped : m_tippedButtons) {
        tipped.button->setAccessibleName(tipText(tipped.tip));
    }
}

void FrameToolBar::clearTip()
{
    m_sspnlToolTip->clear();
}

void FrameToolBar::enableDocumentButtons(bool enabled)
{
    m_ssrbnSave->setEnabled(enabled);
    m_ssrbnPrint->setEnabled(enabled);
    for (RibbonButton *button : m_ssrbnEdit) {
        button->setEnabled(enabled);
    }
}

void FrameToolBar::enablePasteButton(bool enabled)
{
    m_ssrbnEdit[pasteIndex]->setEnabled(enabled);
}

void FrameToolBar::enableAddPasteButton(bool enabled)
{
    m_ssrbnEdit[addPasteIndex]->setEnabled(enabled);
}

void FrameToolBar::startTip(const TippedButton &tipped)
{
    m_tipped = tipped;
    m_timer1->start();
}

void FrameToolBar::ShowTip()
{
    if (!m_tipped.button || QApplication::widgetAt(QCursor::pos()) != m_tipped.button) {
        endTip();
        return;
    }
    m_sspnlToolTip->setText(tipText(m_tipped.tip));
    placeTip();
}

void FrameToolBar::placeTip()
{
    QWidget *frame = m_sspnlToolTip->parentWidget();
    m_sspnlToolTip->adjustSize();
    QPoint place = m_tipped.button->mapTo(frame, m_tipped.button->rect().bottomLeft()) + QPoint(0, tipMargin);
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
