#pragma once

#include <QScrollArea>

class QLayout;

/// What a dialog has above its buttons. It is as large as its contents need. If the screen is too small for that, the
/// contents scroll, and a control that gets the focus by Tab is scrolled into view.
class ContentsArea : public QScrollArea
{
    Q_OBJECT

public:
    ContentsArea(QLayout *contents, QWidget *dialog);

    /// Limits the size that it asks for.
    void setMaxSize(const QSize &size);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSize withinMaxSize(QSize needed) const;

    QSize m_maxSize;
};
