#include "desktop/MessageBox.h"

#include "desktop/TitledMessageBox.h"

#include <QGuiApplication>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct BoxButton
{
    QMessageBox::StandardButton standard;
    QLatin1StringView objectName;
};

constexpr std::array boxButtons = {
    BoxButton{QMessageBox::Ok, "cmdOK"_L1},
    BoxButton{QMessageBox::Yes, "cmdYes"_L1},
    BoxButton{QMessageBox::No, "cmdNo"_L1},
    BoxButton{QMessageBox::Cancel, "cmdCancel"_L1},
};

/// In the order of boxButtons. Until they are set the buttons have the desktop's own texts.
std::array<QString, boxButtons.size()> buttonTexts;

/// Shows the arrow cursor in a box that opens while the busy cursor is shown.
class ArrowPointer
{
public:
    ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(ArrowPointer)
};

void labelButtons(QMessageBox &box)
{
    for (std::size_t i = 0; i < boxButtons.size(); ++i) {
        QAbstractButton *button = box.button(boxButtons[i].standard);
        if (!button) {
            continue;
        }
        button->setObjectName(boxButtons[i].objectName);
        if (!buttonTexts[i].isEmpty()) {
            button->setText(buttonTexts[i]);
        }
    }
}

/// Returns the button that closed the box. Enter presses buttons[byEnter]; Escape and the close box press the last one.
int run(QMessageBox::Icon icon, QWidget *parent, const QString &text, const QString &title,
    std::initializer_list<QMessageBox::StandardButton> buttons, std::size_t byEnter = 0)
{
    TitledMessageBox box(title, text, parent);
    box.setObjectName(u"MessageBox"_s);
    box.setIcon(icon);
    for (const auto button : buttons) {
        box.addButton(button);
    }
    box.setDefaultButton(buttons.begin()[byEnter]);
    box.setEscapeButton(*(buttons.end() - 1));
    labelButtons(box);
    const ArrowPointer arrow;
    return box.exec();
}

} // namespace

void MessageBox::setButtonTexts(const QString &ok, const QString &yes, const QString &no, const QString &cancel)
{
    buttonTexts = {ok, yes, no, cancel};
}

void MessageBox::showPlain(QWidget *parent, const QString &text, const QString &title)
{
    run(QMessageBox::NoIcon, parent, text, title, {QMessageBox::Ok});
}

void MessageBox::showExclamation(QWidget *parent, const QString &text, const QString &title)
{
    run(QMessageBox::Warning, parent, text, title, {QMessageBox::Ok});
}

MessageBox::Answer MessageBox::askYesNoCancel(QWidget *parent, const QString &text, const QString &title)
{
    switch (run(QMessageBox::Warning, parent, text, title, {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

bool MessageBox::askYesNo(QWidget *parent, const QString &text, const QString &title)
{
    return run(QMessageBox::Warning, parent, text, title, {QMessageBox::Yes, QMessageBox::No}, 1) == QMessageBox::Yes;
}
