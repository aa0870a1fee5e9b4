#pragma once

#include <QString>

class QFont;
class QWidget;

/// Shows help files: contents tree, index and search, back and forward, links, printing.
namespace HelpWindow {

/// Opens the one help window of the program at the topic of contextId in helpFile (a help collection document of any
/// name). An unknown context opens the contents topic. Returns false, and shows nothing, when the file is missing or
/// unreadable.
bool showTopic(const QString &helpFile, int contextId, QWidget *owner);

/// Shows help in that font from now on, in a window that is open too.
void setFont(const QFont &font);

} // namespace HelpWindow
