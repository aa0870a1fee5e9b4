#include "desktop/TitledMessageBox.h"

#include "desktop/PlainCaption.h"
#include "desktop/ScreenFit.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

/// The desktop draws titles in a font that Qt does not know: they are measured in bold letters.
QFontMetrics titleMetrics()
{
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    return QFontMetrics(font);
}

/// Width of what a title bar has beside the title: an icon and buttons.
int besideTitle(const QWidget &window)
{
    constexpr int parts = 5;
    return parts * window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
}

} // namespace

TitledMessageBox::TitledMessageBox(const QString &title, const QString &text, QWidget *parent)
    : QMessageBox(parent), m_neededWidth(titleMetrics().horizontalAdvance(title) + besideTitle(*this))
{
    setTextFormat(Qt::PlainText); // texts hold file names, and a file name may look like markup
    const int available = maxSizeOnScreen(*this).width();
    if (m_neededWidth <= available) {
        setWindowTitle(plainTitle(title));
        setText(breakable(text, fontMetrics()));
    } else {
        m_neededWidth = available;
        setWindowTitle(plainTitle(titleMetrics().elidedText(title, Qt::ElideMiddle, available - besideTitle(*this))));
        setText(breakable(title + u"\n\n"_s + text, fontMetrics()));
    }
}

// The base class sets its size whenever its contents change and when it is shown.
bool TitledMessageBox::event(QEvent *event)
{
    const bool done = QMessageBox::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        widenForTitle();
    }
    return done;
}

void TitledMessageBox::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    widenForTitle();
}

void TitledMessageBox::widenForTitle()
{
    const int missing = m_neededWidth - width();
    if (missing <= 0) {
        return;
    }
    const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(m_neededWidth)
                                                     : layout()->totalMinimumSize().height();
    setFixedSize(m_neededWidth, height);
    move(positionOnScreen(*this, pos() - QPoint(missing / 2, 0), size()));
}
