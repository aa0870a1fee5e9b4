#pragma once

#include <QString>

class QWidget;

/// An in-place editor: a widget that edits the text of one cell.
class CellEditor
{
public:
    virtual ~CellEditor() = default;
    virtual QWidget *widget() = 0;
    /// What the cell is to hold: what stands in the editor, a number in its usual form, a text with the line ends that
    /// it had.
    virtual QString text() const = 0;
    /// Whether the cell takes that text.
    virtual bool isAcceptable() const = 0;
    /// Whether the user left something other in it than there was.
    virtual bool isModified() const = 0;
    /// As the cell's text stands.
    virtual void alignText(Qt::Alignment alignment) = 0;
    /// Empties it, where an empty text can be typed.
    virtual void clearText() = 0;
    /// Goes on with what is there: the caret behind the text, or the list dropped down.
    virtual void goOn() = 0;
    /// Types again what Ctrl+Z took back.
    virtual void redoTyping() = 0;
    /// The pixels that it needs from top to bottom, however low the cell's row is.
    virtual int neededHeight() const = 0;
    /// Whether the key is the editor's own although it would end other edits (Enter, Tab, arrows, page keys).
    virtual bool needsKey(int key) const = 0;
};
