#pragma once

#include <QObject>

/// Lets Shift+F10 open the pop-up menu of whatever has the focus, as the Menu key does, which many keyboards lack. Some
/// desktops do so by themselves; they do not get the key then.
class MenuKey : public QObject
{
    Q_OBJECT

public:
    explicit MenuKey(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
