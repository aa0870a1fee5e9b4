#pragma once

#include <QScrollArea>

class QLayout;

/// What a dialog has above its buttons. It is as large as its contents need; only where the screen has no room for them
/// it is smaller, and they scroll: whatever takes the focus by Tab comes into view.
class ContentsArea : public QScrollArea
{
    Q_OBJECT

public:
    ContentsArea(QLayout *contents, QWidget *dialog);

    /// The largest size that it asks for.
    void setRoom(const QSize &room);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSize withinRoom(QSize needed) const;

    QSize m_room;
};
