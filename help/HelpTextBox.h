#pragma once

#include <QLineEdit>

/// A box of the help window to type into, called and labelled within by the same text.
class HelpTextBox : public QLineEdit
{
    Q_OBJECT

public:
    HelpTextBox(const QString &name, const QString &label);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showPlaceholder();
    void widenForLabel();
};
