#pragma once

#include <QPoint>

#include <optional>

class QKeyEvent;
class SpreadModel;
class SpreadSelection;
class SpreadView;

/// The keys that move the active cell of a spread grid: by a cell, by a page, to the end of filled cells or of the
/// grid. With Shift they move the far corner of the selection instead, except Tab and Enter, which only turn around.
class MoveKeys
{
public:
    MoveKeys(SpreadView &view, const SpreadModel &model, SpreadSelection &selection);

    /// False if the key moves nothing: it is another key, there is no cell, or Tab leaves the grid.
    bool handle(const QKeyEvent &event);

private:
    enum class Move {
        Left,
        Right,
        Up,
        Down,
        RowStart,
        RowEnd,
        GridStart,
        GridEnd,
        EdgeLeft,
        EdgeRight,
        EdgeUp,
        EdgeDown,
        PageUp,
        PageDown,
        Next,
        Previous,
        NextRow,
        PreviousRow
    };
    struct MoveKey
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        Move move;
        bool extends;
    };
    static const MoveKey moveKeys[];

    /// The cell that the move leads to; std::nullopt if Tab leaves the grid.
    std::optional<QPoint> target(Move move, QPoint from) const;
    QPoint pageTarget(QPoint from, int direction) const;
    std::optional<QPoint> tabTarget(QPoint from, int step) const;
    QPoint edgeTarget(QPoint from, QPoint step) const;
    QPoint stepped(QPoint cell, QPoint step) const;

    SpreadView &m_view;
    const SpreadModel &m_model;
    SpreadSelection &m_selection;
};
