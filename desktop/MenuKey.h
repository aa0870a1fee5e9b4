#pragma once

#include <QObject>

/// Makes Shift+F10 open the pop-up menu of the widget that has the focus, like the Menu key, which many keyboards lack.
/// Desktops that do so themselves do not get the key then.
class MenuKey : public QObject
{
    Q_OBJECT

public:
    explicit MenuKey(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
