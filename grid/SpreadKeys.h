#pragma once

#include <QPoint>

#include <optional>

class QKeyEvent;
class SpreadView;
class SpreadModel;
class SpreadSelection;

/// What the keys do in a spread grid.
class SpreadKeys
{
public:
    SpreadKeys(SpreadView &grid, SpreadModel &model, SpreadSelection &selection);

    /// False when the key is not the grid's.
    bool handle(QKeyEvent &event);

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
    struct CommandKey
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        void (SpreadKeys::*run)();
    };
    static const MoveKey moveKeys[];
    static const CommandKey commandKeys[];

    bool runMove(int key, Qt::KeyboardModifiers modifiers);
    bool runCommand(int key, Qt::KeyboardModifiers modifiers);
    bool beginTyping(QKeyEvent &event);
    /// Where the move leads from a cell; nothing when Tab leaves the grid.
    std::optional<QPoint> target(Move move, QPoint from) const;
    QPoint pageTarget(QPoint from, int direction) const;
    std::optional<QPoint> tabTarget(QPoint from, int step) const;
    QPoint edgeTarget(QPoint from, QPoint step) const;
    QPoint stepped(QPoint cell, QPoint step) const;

    void editActive();
    void editEmpty();
    void clear();
    void selectColumns();
    void selectRows();
    void selectAll();
    void copy();
    void cut();
    void paste();
    void undo();
    void redo();
    void fillDown();
    void fillRight();
    void fillSelection();
    void fillSeries();
    void zoomIn();
    void zoomOut();
    void zoomBack();

    SpreadView &m_grid;
    SpreadModel &m_model;
    SpreadSelection &m_selection;
};
