#pragma once

#include <QtGlobal>

/// What reading a document found out about its file: whether something of it may be missing.
struct ReadFindings
{
    int rowsAnnounced = 0; ///< what the file says
    int rowsFound = 0; ///< the rows that begin in the file, the cut one included
    int cutRow = 0; ///< the row, from 1, in which the file ends; 0 if the last one has its end
    qint64 cutRowAt = 0; ///< the byte, from 0, that the cut row begins with
    qint64 bytesUnread = 0; ///< what follows the error that ended the reading
    qint64 bytesUndecoded =
        0; ///< bytes of the rows that are not a character of the code page; they are kept as they are

    /// Whether the file has all rows that it announces, each to its end, and was read to its own.
    bool isWhole() const { return rowsFound >= rowsAnnounced && cutRow == 0 && bytesUnread == 0; }
    bool operator==(const ReadFindings &) const = default;
};
