#pragma once

#include "editor/Commands.h"

#include <QList>
#include <QToolBar>

class QLabel;
class QTimer;
class RibbonButton;

/// The frame's tool bar: the buttons of the command table, with their tips.
class FrameToolBar : public QToolBar
{
    Q_OBJECT

public:
    explicit FrameToolBar(QWidget *frame);

    /// Gives every button its pictures and its spoken name.
    void loadPictures();
    void clearTip();

    /// Enables the buttons of all commands that act on a document.
    void enableDocumentButtons(bool enabled);
    /// Enables the buttons of the commands that need this.
    void enableButtons(CommandNeeds needs, bool enabled);

    /// Shows the tip of the button last moved over, or ends it when the mouse has left that button.
    void ShowTip();

signals:
    void chosen(const CommandInfo &command);

protected:
    bool event(QEvent *event) override;

private:
    struct CommandButton
    {
        RibbonButton *widget;
        const CommandInfo *command;
    };

    void addButton(const CommandInfo &command);
    void startTip(const CommandButton &button);
    void placeTip();
    void endTip();

    QList<CommandButton> m_buttons; ///< from left to right
    CommandButton m_tipped{nullptr, nullptr}; ///< the button that the mouse last moved over
    QLabel *m_sspnlToolTip;
    QTimer *m_timer1;
};
