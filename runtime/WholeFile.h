#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Reads a file at once. Returns the system's description of what went wrong; nothing when all went well. Only
/// regular files are read: a device or a pipe might never end. A file that another program is changing is read again;
/// it fails as busy when that does not end.
std::optional<QString> readWholeFile(const QString &fileName, QByteArray &bytes);

/// Replaces the content of a file, or creates it, and waits until the disk has it. Returns the system's description of
/// what went wrong (the file may then hold a part); nothing when all went well.
std::optional<QString> writeWholeFile(const QString &fileName, QByteArrayView bytes);
