#pragma once

class QPainter;
class QPoint;
class QRect;
class QRegion;
class QTableView;
class SpreadHeader;

/// The frame that shows where the keys act: around the active cell or, while that is out of view, around all cells, so
/// that the focus can always be seen.
class ActiveFrame
{
public:
    ActiveFrame(QTableView &view, const SpreadHeader &columns) : m_view(view), m_columns(columns) { }

    /// To be painted over the cells.
    void paint(QPainter &painter);
    /// To be called when the view has scrolled. moved: by how many pixels what is in the viewport was moved.
    void follow(const QPoint &moved);

private:
    QRect visibleArea() const;
    bool isCellSeen() const;
    bool isToBeAroundAll() const;
    void paintAroundCell(QPainter &painter) const;
    QRegion edges() const;

    QTableView &m_view;
    const SpreadHeader &m_columns;
    bool m_isAroundAll = false; ///< as it was painted last
};
