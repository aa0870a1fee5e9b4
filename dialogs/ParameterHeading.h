#pragma once

#include <QHBoxLayout>

class QLabel;

/// The line above the controls of a dialog on one parameter: its number, and at the right end a caption with a value.
class ParameterHeading : public QHBoxLayout
{
    Q_OBJECT

public:
    /// The labels are the dialog's; those of the caption and the value are the elements 0 and 1 of the control array.
    ParameterHeading(QWidget *dialog, const QString &array);

    /// An empty pr, as that of a parameter without a number, shows nothing.
    void setTexts(const QString &pr, const QString &caption);
    QLabel &value() const { return *m_value; }

private:
    QLabel *m_pr;
    QLabel *m_caption;
    QLabel *m_value;
};
