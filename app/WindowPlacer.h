#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>

class QMdiArea;
class QMdiSubWindow;

/// Gives new windows a place next to the others and the size that their content asks for, as far as the area allows.
/// While the area changes its size, as it does before the frame is first shown, windows that the user has not moved,
/// sized or maximised follow.
class WindowPlacer : public QObject
{
    Q_OBJECT

public:
    explicit WindowPlacer(QMdiArea &area);

    void place(QMdiSubWindow &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Placed
    {
        QPointer<QMdiSubWindow> window;
        int position; ///< in the cascade, from 0
        QRect geometry;
    };

    void setGeometry(Placed &placed);
    void placeAgain();

    QMdiArea &m_area;
    QList<Placed> m_placed;
};
