#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>

class QContextMenuEvent;
class QMouseEvent;
class SpreadDelegate;
class SpreadView;
class SpreadSelection;

/// What the mouse does on the cells of a spread grid: it selects by clicks and by dragging (scrolling at the edges),
/// ticks check boxes, drops lists down, opens editors, and asks for the pop-up menu.
class SpreadMouse final : public QObject
{
    Q_OBJECT

public:
    SpreadMouse(SpreadView &grid, SpreadSelection &selection, SpreadDelegate &delegate);

signals:
    /// The check box of the active cell was clicked.
    void checkBoxClicked();
    void rightClicked(int column, int row, const QPoint &globalPosition);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    enum class Menu { None, Pressed, Shown };

    bool press(const QMouseEvent &event);
    bool drag(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    bool doubleClick(const QMouseEvent &event);
    bool contextMenu(const QContextMenuEvent &event);
    void pressLeft(const QModelIndex &index, const QMouseEvent &event);
    void extendTo(const QPoint &position);
    bool isOnCheckBox(const QModelIndex &index, const QPoint &position) const;
    void requestMenu(const QPoint &position);

    SpreadView &m_view;
    SpreadSelection &m_selection;
    SpreadDelegate &m_delegate;
    QPersistentModelIndex m_pressedBox;
    QBasicTimer m_scrollTimer;
    QPoint m_dragPosition;
    bool m_dragging = false;
    bool m_pressedCellMoved = false; ///< the pressed cell moved when the press ended an edit, and is the active one
    Menu m_menu = Menu::None;
};
