#include "app/FrameStatusBar.h"

#include "app/services/Common.h"
#include "desktop/PlainCaption.h"
#include "dialogs/SelectAllBox.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int gapInTwips = 50;
constexpr int twipsPerInch = 1440;
constexpr int verticalMargin = 3;
constexpr int labelMargin = 4;

QLabel *newLabel(const QString &name, QWidget *parent)
{
    QLabel *label = newPlainLabel(name, parent);
    label->setMargin(labelMargin);
    return label;
}

} // namespace

FrameStatusBar::FrameStatusBar(QWidget *parent)
    : QStatusBar(parent)
    , m_lblNotice(newLabel(u"lblNotice"_s, this))
    , m_countCaption(newLabel(u"lblPrcountCaption"_s, this))
    , m_lblPrcount(newLabel(u"lblPrcount"_s, this))
    , m_numberCaption(newLabel(u"lblPrCaption"_s, this))
    , m_txtPr(new SelectAllBox(this))
{
    setObjectName(u"sspnlStatus"_s);
    setSizeGripEnabled(false);
    m_lblNotice->hide();
    m_lblPrcount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_numberCaption->setBuddy(m_txtPr);
    m_txtPr->setObjectName(u"txtPr"_s);
    m_txtPr->setFixedWidth(fontMetrics().horizontalAdvance(u"0000000000"_s));
    m_txtPr->installEventFilter(this);
    setMinimumHeight(m_txtPr->sizeHint().height() + 2 * verticalMargin);
    connect(m_txtPr, &QLineEdit::returnPressed, this, &FrameStatusBar::jump);
}

void FrameStatusBar::setCaptions(const QString &count, const QString &number)
{
    m_countCaption->setText(count);
    m_numberCaption->setText(number);
    m_txtPr->setAccessibleName(number);
    m_lblPrcount->setAccessibleName(count);
    placeControls();
}

void FrameStatusBar::showParameterCount(int count)
{
    m_lblPrcount->setText(QString::number(count));
}

void FrameStatusBar::showPrNumber(const QString &number)
{
    m_prNumber = number;
    restorePrNumber();
}

void FrameStatusBar::showNoDocument()
{
    m_lblPrcount->clear();
    showPrNumber({});
}

void FrameStatusBar::showNotice(const QString &message)
{
    if (m_notice == message) {
        return;
    }
    m_notice = message;
    m_lblNotice->setVisible(!message.isEmpty());
    m_lblNotice->setAccessibleName(message);
    m_lblNotice->setToolTip(message.isEmpty() ? QString() : Qt::convertFromPlainText(message, Qt::WhiteSpaceNormal));
    placeNotice();
    if (!message.isEmpty()) {
        QAccessibleEvent event(m_lblNotice, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

/// A message that is too long for its place is in the tool tip as a whole.
void FrameStatusBar::placeNotice()
{
    const int left = gapInTwips * logicalDpiX() / twipsPerInch;
    m_lblNotice->setGeometry(left, 0, std::max(m_countCaption->x() - left, 0), height());
    m_lblNotice->setText(fontMetrics().elidedText(m_notice, Qt::ElideRight, m_lblNotice->width() - 2 * labelMargin));
}

void FrameStatusBar::jump()
{
    emit jumpRequested(m_txtPr->text());
    restorePrNumber(); // a number that was not found is not the active row's
}

void FrameStatusBar::restorePrNumber()
{
    m_txtPr->setText(m_prNumber);
}

void FrameStatusBar::enterJumpBox()
{
    m_txtPr->setFocus(Qt::ShortcutFocusReason);
    SelectAllText(*m_txtPr); // also when the focus was there already
}

void FrameStatusBar::resizeEvent(QResizeEvent *event)
{
    QStatusBar::resizeEvent(event);
    placeControls();
}

void FrameStatusBar::placeControls()
{
    const int gap = gapInTwips * logicalDpiX() / twipsPerInch;
    m_lblPrcount->setMinimumWidth(fontMetrics().horizontalAdvance(u"00000"_s) + 2 * labelMargin);
    int right = width() - gap;
    const auto place = [this, &right](QWidget *control) {
        control->resize(control->sizeHint().expandedTo(control->minimumSize()).boundedTo(control->maximumSize()));
        control->move(right - control->width(), (height() - control->height()) / 2);
        right = control->x();
    };
    place(m_txtPr);
    place(m_numberCaption);
    place(m_lblPrcount);
    right -= gap;
    place(m_countCaption);
    placeNotice();
}

// A number that was typed but not looked for is not the active row's. A menu or another program takes the focus only
// for a while.
bool FrameStatusBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_txtPr && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            restorePrNumber();
        }
    } else if (watched == m_txtPr && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        restorePrNumber();
        emit jumpGivenUp();
        return true;
    }
    return QStatusBar::eventFilter(watched, event);
}
