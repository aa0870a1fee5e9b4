#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>

class QMdiArea;
class QMdiSubWindow;

/// Gives new windows a position next to the others and the size that their content asks for, as far as the area allows.
/// While the area changes its size, as it does before the frame is first shown, windows that the user has not moved,
/// resized or maximised follow. A file that is opened again gets the position and size that its window had when it was
/// closed; a window that opens alone is maximised if the last one was.
class WindowPlacer : public QObject
{
    Q_OBJECT

public:
    explicit WindowPlacer(QMdiArea &area);

    /// Places and shows a new window of that file.
    void show(QMdiSubWindow &window, const QString &fileName);
    /// Notes the geometry of a window that is about to close.
    void remember(const QMdiSubWindow &window, const QString &fileName);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Placed
    {
        QPointer<QMdiSubWindow> window;
        int position; ///< in the cascade, from 0
        QRect geometry; ///< as it was placed; invalid if it was given the geometry of an earlier window
        QRect normal; ///< while it is neither maximised nor minimised
    };

    Placed *find(const QObject *window);
    void setGeometry(Placed &placed);
    void followArea();

    QMdiArea &m_area;
    QWidget &m_viewport; ///< its events still come while the area is being destroyed and can no longer be asked
    QList<Placed> m_placed;
    QHash<QString, QRect> m_closed; ///< of closed windows, by their files
    bool m_lastMaximized = false;
};
