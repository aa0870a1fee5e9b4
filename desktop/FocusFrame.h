#pragma once

#include <QObject>

class QFrame;

/// Shows by its frame that a list or a text has the focus, where the style shows it by an item only.
class FocusFrame final : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the frame.
    explicit FocusFrame(QFrame &frame);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paint() const;

    QFrame &m_frame;
};
