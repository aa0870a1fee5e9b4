#pragma once

#include <QHeaderView>

#include <optional>

/// A header of a spread grid. With a frozen column its first section stays in view: it is painted over the sections
/// that were scrolled below it, and takes the mouse there. Sections count from 0, as in Qt.
class SpreadHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit SpreadHeader(Qt::Orientation orientation, QWidget *parent = nullptr);

    void setFirstSectionFrozen(bool frozen);
    /// How many pixels of the scrolled sections the frozen one covers, from the left; 0 while nothing is scrolled.
    int coveredWidth() const;
    /// Marks the sections first to last as selected; last < first marks none.
    void setMarkedSections(int first, int last);
    /// The pixels that the section's text takes in that font, including the header's margins.
    QSize textSize(int section, QFont font) const;
    /// The section at that position of the viewport, the frozen one included; -1 for none.
    int sectionAt(const QPoint &position) const;
    /// The size that the grid has fixed; Qt's own hint would measure all captions at each layout.
    QSize sizeHint() const override { return minimumSize(); }

signals:
    /// The right button was released over a section.
    void rightClicked(int section, const QPoint &globalPosition);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int section) const override;
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QMouseEvent translated(const QMouseEvent &event) const;
    bool isOnFrozen(const QPoint &position) const;
    bool isOnFrozenGrip(const QPoint &position) const;
    int gripWidth() const;

    bool m_frozen = false;
    int m_firstMarked = 0;
    int m_lastMarked = -1;
    std::optional<int> m_gripOffset; ///< while the frozen section is widened: its right edge minus the mouse's x
};
