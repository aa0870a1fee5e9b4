#pragma once

#include "runtime/Result.h"

#include <QByteArrayView>
#include <QString>
#include <QtGlobal>

/// A regular file, by the system's own calls: these say why they fail, and take names of any bytes. A call that a
/// signal interrupts is made again.
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
    Result<> openToRead(const QString &fileName);
    /// Creates the file, or empties it. A device is written to as it is; a pipe, which might never take it, fails.
    Result<> openToReplace(const QString &fileName);
    /// Creates the file for the user alone; fails when something of that name is there.
    Result<> openOwn(const QString &fileName);

    Result<State> state() const;
    /// Reads up to maxBytes and returns their number, which is 0 at the end of the file only.
    Result<qint64> read(char *bytes, qint64 maxBytes) const;
    Result<> write(QByteArrayView bytes) const;
    /// Waits until the disk has what was written. What is on no disk cannot wait for one.
    Result<> sync() const;
    /// Some systems say only here that the disk is full.
    Result<> close();

private:
    qintptr m_handle = -1; ///< the system's; -1: none
};

/// Whether the name is that of a regular file, or a link to one. False also when the system cannot tell.
bool isRegularFile(const QString &fileName);
