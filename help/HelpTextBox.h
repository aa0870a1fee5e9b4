#pragma once

#include <QLineEdit>

/// A text box of the help window. Its label is both its placeholder and its accessible name.
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
