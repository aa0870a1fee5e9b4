#pragma once

#include "runtime/FileError.h"

#include <QByteArrayView>
#include <QString>
#include <QtGlobal>

#include <optional>

/// A regular file, by the system's own calls: these say why they fail, and take names of any bytes. A call that a
/// signal interrupts is made again. Each routine gives what went wrong, or nothing.
class SystemFile
{
public:
    /// What tells whether somebody has changed the file.
    struct State
    {
        qint64 size = 0;
        qint64 seconds = 0; ///< of the last change
        qint64 nanoseconds = 0;
        bool operator==(const State &) const = default;
    };

    SystemFile() = default;
    ~SystemFile();
    Q_DISABLE_COPY_MOVE(SystemFile)

    /// Fails for folders, pipes, sockets and devices without opening them: that might wait, or do something.
    std::optional<FileError> openToRead(const QString &fileName);
    /// Creates the file, or empties it. A device is written to as it is; a pipe, which might never take it, fails.
    std::optional<FileError> openToReplace(const QString &fileName);
    /// Creates the file for the user alone; fails when something of that name is there.
    std::optional<FileError> openOwn(const QString &fileName);

    std::optional<FileError> state(State &state) const;
    /// Reads up to room bytes; count is 0 at the end of the file only.
    std::optional<FileError> read(char *bytes, qint64 room, qint64 &count) const;
    std::optional<FileError> write(QByteArrayView bytes) const;
    /// Waits until the disk has what was written. What is on no disk cannot wait for one.
    std::optional<FileError> sync() const;
    /// Some systems say only here that there was no room.
    std::optional<FileError> close();

private:
    int m_handle = -1;
};

/// Whether the name stands for a regular file, or a link to one. False also when the system cannot tell.
bool isRegularFile(const QString &fileName);
