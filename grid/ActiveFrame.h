#pragma once

class QPainter;
class QPoint;
class QRect;
class QRegion;
class QTableView;
class SpreadHeader;

/// The frame that shows where keys act: around the active cell or, while that cell is out of view, around the whole
/// view, so that the focus is always visible.
class ActiveFrame
{
public:
    ActiveFrame(QTableView &view, const SpreadHeader &columns) : m_view(view), m_columns(columns) { }

    /// The part of a region that the frame will leave visible: cells under it need not be painted.
    QRegion uncovered(const QRegion &region) const;
    /// Call it after the cells were painted.
    void paint(QPainter &painter);
    /// Call it when the view has scrolled. moved: how many pixels the contents of the viewport have moved.
    void follow(const QPoint &moved);

private:
    QRect visibleArea() const;
    bool isCellVisible() const;
    bool shouldBeAroundView() const;
    void paintAroundCell(QPainter &painter) const;
    QRegion edges() const;

    QTableView &m_view;
    const SpreadHeader &m_columns;
    bool m_isAroundView = false; ///< when it was last painted
};
