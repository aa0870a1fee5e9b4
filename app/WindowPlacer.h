#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>

class QMdiArea;
class QMdiSubWindow;

/// Gives new windows a place next to the others and the size that their content asks for, as far as the area allows.
/// While the area changes its size, as it does before the frame is first shown, windows that the user has not moved,
/// sized or maximised follow. A file that is opened again finds the place and size that its window was closed with; a
/// window that opens alone is maximised when the last one was.
class WindowPlacer : public QObject
{
    Q_OBJECT

public:
    explicit WindowPlacer(QMdiArea &area);

    /// Places and shows a new window of that file.
    void show(QMdiSubWindow &window, const QString &fileName);
    /// Notes how a window stands that is about to close.
    void remember(const QMdiSubWindow &window, const QString &fileName);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Placed
    {
        QPointer<QMdiSubWindow> window;
        int position; ///< in the cascade, from 0
        QRect geometry; ///< as it was placed; none when it was given back the place that it had
        QRect normal; ///< as it stands while it is neither maximised nor minimised
    };

    Placed *find(const QObject *window);
    void setGeometry(Placed &placed);
    void placeAgain();

    QMdiArea &m_area;
    QWidget &m_viewport; ///< its events still come while the area is being destroyed and can no longer be asked
    QList<Placed> m_placed;
    QHash<QString, QRect> m_closed; ///< where closed windows stood, by their files
    bool m_lastMaximized = false;
};
