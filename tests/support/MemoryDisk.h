#pragma once

#include <QByteArray>
#include <QString>

/// Disks in memory that a test mounts for itself. They are seen by its process, and by those that it starts, only.
namespace MemoryDisk {

/// To be called once, first in main, while the process has one thread. Whether the system lets the test mount disks: as
/// root or, where that is allowed, as root of a user space of its own.
bool prepare();

/// Mounts a disk on a folder. options: the system's, such as "size=64k,mode=0777". kind: "ramfs" has no bound, and
/// notes changes by a clock that goes in steps of some milliseconds. False when it is not mounted.
bool mount(const QString &folder, const QByteArray &options, const char *kind = "tmpfs");

/// Lets a file take every byte that is free on its disk.
void fill(const QString &fileName);

} // namespace MemoryDisk
