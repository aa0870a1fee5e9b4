#pragma once

#include <QString>

/// What the program last copied: the shape of the text on the clipboard. One for all editor windows.
struct ClipboardRecord
{
    enum Kind : qint16 { Nothing = 0, OneCell = 1, Block = 2, WholeRows = 3 };

    qint16 kind = Nothing;
    qint16 width = 0; ///< Block: last column minus first
    qint16 height = 0; ///< Block, WholeRows: last row minus first

    bool operator==(const ClipboardRecord &) const = default;
};

/// The record of this run of the program. It fits what stands on the clipboard only after readClipboard().
ClipboardRecord &clipboardRecord();

/// Puts a copied text on the clipboard and keeps its shape as the record.
void fillClipboard(const QString &text, const ClipboardRecord &shape);

/// The clipboard's text; empty when it holds none. Once it is no longer the text that fillClipboard() put there, the
/// record is void: what others copied has no shape.
QString readClipboard();
