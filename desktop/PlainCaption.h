#pragma once

#include <QString>

class QFontMetrics;
class QLabel;
class QWidget;

// Texts from files and names of files, made ready for captions: Qt shows them as they are, not as codes, and each byte
// of a name that is not part of a character is shown as U+FFFD.

/// For a window's title: "[*]" is not taken for Qt's mark of a changed window.
QString plainTitle(const QString &text);

/// For a menu's caption: an ampersand does not make an access key, and a tab does not begin the name of a shortcut.
QString plainMenuText(const QString &text);

/// For a message box's text: zero-width spaces let a long name without spaces wrap at the box's edge instead of being
/// cut. A name of more than 1,000 characters keeps its beginning and its end.
QString breakable(const QString &text, const QFontMetrics &metrics);

/// A label of that object name that shows its text as it is, also where the text looks like markup.
QLabel *newPlainLabel(const QString &name, QWidget *parent);
