#include "app/FrameStatusBar.h"

#include "app/Common.h"
#include "platform/PlainLabel.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>

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
    , m_countCaption(newLabel(u"lblPrcountCaption"_s, this))
    , m_lblPrcount(newLabel(u"lblPrcount"_s, this))
    , m_numberCaption(newLabel(u"lblPrCaption"_s, this))
    , m_txtPr(new QLineEdit(this))
{
    setObjectName(u"sspnlStatus"_s);
    setSizeGripEnabled(false);
    m_lblPrcount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_numberCaption->setBuddy(m_txtPr);
    m_txtPr->setObjectName(u"txtPr"_s);
    m_txtPr->setFixedWidth(fontMetrics().horizontalAdvance(u"0000000000"_s));
    m_txtPr->installEventFilter(this);
    setMinimumHeight(m_txtPr->sizeHint().height() + 2 * verticalMargin);
    connect(m_txtPr, &QLineEdit::returnPressed, this, [this] { emit jumpRequested(m_txtPr->text()); });
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
    m_txtPr->setText(number);
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
}

bool FrameStatusBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_txtPr && event->type() == QEvent::FocusIn) {
        SelectAllText(*m_txtPr);
    }
    return QStatusBar::eventFilter(watched, event);
}
