#pragma once

#include <QString>

class QFont;
class QWidget;

/// Shows help files: contents tree, index and search, back and forward, links, printing.
namespace HelpWindow {

/// Opens the program's only help window at the topic of contextId in helpFile (a help file of any name). An unknown
/// context opens the contents topic. Returns false and shows nothing if the file does not exist or cannot be read.
bool showTopic(const QString &helpFile, int contextId, QWidget *owner);

/// Shows help in that font from now on, also in a window that is already open.
void setFont(const QFont &font);

} // namespace HelpWindow
