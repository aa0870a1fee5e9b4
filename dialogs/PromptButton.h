#pragma once

#include "desktop/Contrast.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QShortcutEvent>
#include <QStyleOptionButton>

/// A check box or option whose access key takes effect at once. Otherwise it shows itself pressed for a moment first,
/// and a quick Enter overtakes it. It can be seen on a dark desktop.
template <typename Button>
class PromptButton : public Button
{
public:
    using Button::Button;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent *>(event)->isAmbiguous()) {
            return Button::event(event);
        }
        this->setFocus(Qt::ShortcutFocusReason);
        this->click();
        return true;
    }

    void initStyleOption(QStyleOptionButton *option) const override
    {
        Button::initStyleOption(option);
        option->palette = boxPalette(option->palette, option->palette.color(QPalette::Window));
    }
};

using PromptCheckBox = PromptButton<QCheckBox>;
using PromptRadioButton = PromptButton<QRadioButton>;
