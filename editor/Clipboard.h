#pragma once

#include "grid/cells/PasteTarget.h"

#include <QString>

/// The record of what this run of the program last copied; one for all editor windows. It describes the clipboard's
/// text only after readClipboard().
ClipboardRecord &clipboardRecord();

/// Puts a copied text on the clipboard and keeps its shape as the record.
void fillClipboard(const QString &text, const ClipboardRecord &shape);

/// The clipboard's text; empty if it holds none. Clears the record if that is no longer the text that fillClipboard()
/// put there: what other programs copied has no shape.
QString readClipboard();
