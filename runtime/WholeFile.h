#pragma once

#include "runtime/FileError.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// No larger file is read into memory: 256 MiB. The largest document, 32,767 rows, has a few megabytes.
constexpr qint64 largestFile = qint64(256) * 1024 * 1024;

/// Reads a file at once. Returns what went wrong (bytes is empty then); nothing when all went well. Only regular files
/// are read: a device or a pipe might never end. A file that another program is changing is read again; it fails when
/// that does not end. A file larger than most fails before it takes memory.
std::optional<FileError> readWholeFile(const QString &fileName, QByteArray &bytes, qint64 most = largestFile);

/// Replaces the content of a file, or creates it, and waits until the disk has it. Returns what went wrong (the file
/// may then hold a part); nothing when all went well.
std::optional<FileError> writeWholeFile(const QString &fileName, QByteArrayView bytes);
