#pragma once

#include <QHeaderView>

#include <optional>

/// A header of a spread grid. Its first section stays in view with a frozen column: it is painted over the sections
/// that were scrolled beneath it, and takes the mouse there. Sections count from 0, as Qt has it.
class SpreadHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit SpreadHeader(Qt::Orientation orientation, QWidget *parent = nullptr);

    void setFirstSectionFrozen(bool frozen);
    /// The pixels from the left that the frozen section takes from the scrolled ones; 0 while nothing is scrolled.
    int coveredWidth() const;
    /// Marks the sections first to last as those of the selection; last before first for none.
    void setMarkedSections(int first, int last);
    /// The pixels that the section's text takes in that font, with the header's own margins.
    QSize textSize(int section, QFont font) const;
    /// The section at that position of the viewport, the frozen one included; -1 for none.
    int sectionAt(const QPoint &position) const;
    /// The thickness that the grid fixed; Qt's own would measure all captions at each layout.
    QSize sizeHint() const override { return minimumSize(); }

signals:
    /// The right button was released over a section.
    void rightClicked(int section, const QPoint &globalPosition);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int section) const override;
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
    std::optional<int> m_gripOffset; ///< while the frozen section is widened: its right edge less the mouse's position
};
