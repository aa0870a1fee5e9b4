#pragma once

#include <QtGlobal>

/// What the program last copied: the shape of the text on the clipboard. One for all editor windows.
struct ClipboardRecord
{
    enum Kind : qint16 { Nothing = 0, OneCell = 1, Block = 2, WholeRows = 3 };

    qint16 kind = Nothing;
    qint16 width = 0; ///< Block: last column minus first
    qint16 height = 0; ///< Block, WholeRows: last row minus first

    bool operator==(const ClipboardRecord &) const = default;
};

/// The record of this run of the program.
ClipboardRecord &clipboardRecord();
