#pragma once

#include <QLineEdit>

/// A text box that selects its whole text when it is entered, so that typing replaces it.
class SelectAllBox : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool m_enteredByMouse = false;
};
