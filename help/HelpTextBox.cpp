#include "help/HelpTextBox.h"

#include "desktop/Contrast.h"

#include <QAction>
#include <QEvent>

HelpTextBox::HelpTextBox(const QString &name, const QString &label)
{
    setObjectName(name);
    setPlaceholderText(label);
    setAccessibleName(label);
    setClearButtonEnabled(true);
    showPlaceholder();
    widenForLabel();
    for (QAction *action : findChildren<QAction *>()) {
        action->setText(label); // the button that clears the box
    }
}

void HelpTextBox::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showPlaceholder();
    } else if (event->type() == QEvent::FontChange) {
        widenForLabel();
    }
}

// Qt makes a box as wide as some Latin letters, whatever its placeholder is.
void HelpTextBox::widenForLabel()
{
    const QFontMetrics metrics(font());
    setMinimumWidth(metrics.horizontalAdvance(placeholderText()) + 4 * metrics.averageCharWidth());
}

// Desktops with a palette of their own often leave the placeholder colour as it is on a light desktop.
void HelpTextBox::showPlaceholder()
{
    const QColor text = palette().color(QPalette::Text);
    const QColor background = palette().color(QPalette::Base);
    const auto half = [](int part, int of) { return (part + of) / 2; };
    const QColor faint = readableOn(background,
        QColor(half(text.red(), background.red()), half(text.green(), background.green()),
            half(text.blue(), background.blue())));
    if (palette().color(QPalette::PlaceholderText) != faint) {
        QPalette own;
        own.setColor(QPalette::PlaceholderText, faint);
        setPalette(own);
    }
}
