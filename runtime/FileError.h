#pragma once

#include <QString>

/// Why a file could not be read or written.
struct FileError
{
    enum class Kind {
        System, ///< what the system says is what the user needs
        NotAFile, ///< a pipe, a socket or a device
        TooLarge, ///< for the program, not for the disk
        Changing, ///< another program is at work on it
    };

    Kind kind = Kind::System;
    int code = 0; ///< the system's number of the error (errno); for every kind the one that comes nearest

    /// The error of the system call that has just failed. Call it before anything else is done.
    static FileError last();

    /// The system's description, never an empty or unknown one.
    QString reason() const;

    bool operator==(const FileError &) const = default;
};

/// The system's description of why its last call failed. Call it before anything else is done.
QString lastSystemReason();
