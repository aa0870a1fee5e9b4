#pragma once

#include <QIcon>
#include <QToolButton>

/// A tool-bar toggle button with a picture for its normal state and one for its other state (disabled or down). value()
/// is true while it is down.
class RibbonButton : public QToolButton
{
    Q_OBJECT

public:
    explicit RibbonButton(QWidget *parent = nullptr);

    /// Picture numbers of the resource table; second 0 for none.
    void setPictures(int first, int second);
    bool value() const { return isChecked(); }
    void setValue(bool down);

signals:
    /// The user clicked the button or pressed its key; not raised by setValue().
    void clickedByUser();
    /// The mouse moved over the button.
    void mouseMoved();

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
};
