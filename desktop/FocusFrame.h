#pragma once

#include <QObject>

class QFrame;

/// Draws a frame around a list or a text that has the focus, for styles that mark only an item in it.
class FocusFrame final : public QObject
{
    Q_OBJECT

public:
    /// The frame owns this object.
    explicit FocusFrame(QFrame &frame);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paint() const;

    QFrame &m_frame;
};
