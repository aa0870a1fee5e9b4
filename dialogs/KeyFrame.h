#pragma once

#include <QGroupBox>

/// A frame whose access key always leads to its first control; Qt's own returns to the control that had the focus last.
class KeyFrame : public QGroupBox
{
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    bool event(QEvent *event) override;

private:
    QWidget *firstControl() const;
};
