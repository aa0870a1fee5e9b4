#pragma once

#include <QString>

class QFontMetrics;
class QLabel;
class QWidget;

// Texts of files, and the names of files, as captions show them: what looks like a code to Qt is shown as it is, and
// U+FFFD stands for each byte of a name that is no part of a character.

/// As a window's title: "[*]" is no mark of a changed window.
QString plainTitle(const QString &text);

/// As a menu's caption: an ampersand is no access key, and no part of it stands where keys are named.
QString plainMenuText(const QString &text);

/// As a message box's text: a name without a blank is broken where the box ends instead of being cut, by blanks of no
/// width inside it. A name of more than 1,000 characters keeps its beginning and its end.
QString breakable(const QString &text, const QFontMetrics &metrics);

/// A label of that object name that shows its text as it is, also where the text looks like markup.
QLabel *newPlainLabel(const QString &name, QWidget *parent);
