#pragma once

#include <QGroupBox>

/// A frame whose access key always leads to its first control; Qt's own leads back to where the focus was last.
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
