#pragma once

#include <QPushButton>
#include <QShortcutEvent>

/// A button that changes a list. Its access key takes effect at once and leaves the focus where it is. Qt's own would
/// show the button pressed for a moment first, and what is typed meanwhile would meet the list as it was.
class ListButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent *>(event)->isAmbiguous()) {
            return QPushButton::event(event);
        }
        click();
        return true;
    }
};
