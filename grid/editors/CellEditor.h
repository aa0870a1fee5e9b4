#pragma once

#include <QString>

class QWidget;

/// An in-place editor: a widget that edits the text of one cell.
class CellEditor
{
public:
    virtual ~CellEditor() = default;
    virtual QWidget *widget() = 0;
    /// What the cell is to hold: the text in the editor, a number in its stored form, a text with the kind of line ends
    /// that it had.
    virtual QString text() const = 0;
    /// Whether the cell takes that text.
    virtual bool isAcceptable() const = 0;
    /// Whether the text differs from the one that the editor began with.
    virtual bool isModified() const = 0;
    /// Aligns the text as the cell does.
    virtual void alignText(Qt::Alignment alignment) = 0;
    /// Empties the editor, if an empty text can be typed.
    virtual void clearText() = 0;
    /// Prepares for editing the present text: puts the caret after it, or drops the list down.
    virtual void goOn() = 0;
    /// Redoes the typing that Ctrl+Z has undone.
    virtual void redoTyping() = 0;
    /// The height in pixels that it needs, however low the cell's row is.
    virtual int neededHeight() const = 0;
    /// Whether the editor itself needs the key, one of those that end an edit otherwise (Enter, Tab, arrows, page
    /// keys).
    virtual bool needsKey(int key) const = 0;
};
