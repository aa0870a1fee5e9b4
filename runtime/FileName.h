#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class QUrl;

// File names as the program holds them. Where names are bytes, a byte that is not part of a UTF-8 character becomes one
// of the private characters U+10FE80 to U+10FEFF, which settings, recovery copies and Qt keep as they are; so a file
// can be opened, saved and remembered whatever the code page was that its name was given in.

/// The name of these bytes. fileNameBytes() gives the same bytes back, whatever they are.
QString fileNameFromBytes(QByteArrayView bytes);

/// What the system calls the file; to be used for each call that takes a name.
QByteArray fileNameBytes(const QString &name);

/// A name that Qt gives (from a dialog, say) as the program holds it: one with such a private character differs, and on
/// Windows the separators are its own.
QString fileNameFromQt(const QString &name);

/// The local file that the address means, the system's separator between the folders; it may hold bytes that are not
/// UTF-8.
QString fileNameFromUrl(const QUrl &url);

/// What tells files apart by their full names. On Windows, which takes no notice of case, it is in small letters:
/// it is compared and remembered, and neither opened nor shown.
QString fileNameKey(const QString &fullName);

/// The name as a user is shown it: U+FFFD for each byte that is not part of a character.
QString shownFileName(const QString &name);
