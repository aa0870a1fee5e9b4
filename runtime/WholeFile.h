#pragma once

#include "runtime/Result.h"

#include <QByteArray>
#include <QString>

/// No larger file is read into memory: 256 MiB. The largest document, 32,767 rows, has a few megabytes.
constexpr qint64 largestFile = qint64(256) * 1024 * 1024;

/// Reads a file at once. Only regular files are read: a device or a pipe might never end. A file that another program
/// is changing is read again; it fails if that does not end. A file larger than maxBytes fails before it takes memory.
Result<QByteArray> readWholeFile(const QString &fileName, qint64 maxBytes = largestFile);

/// Replaces the content of a file, or creates it, and waits until the disk has it. After a failure the file may hold a
/// part.
Result<> writeWholeFile(const QString &fileName, QByteArrayView bytes);
