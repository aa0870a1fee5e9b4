#pragma once

#include "runtime/Result.h"

#include <QByteArrayView>
#include <QString>

/// What a file is to hold: a document, or what of it can be written.
enum class Extent { Whole, Part };

struct NewContent
{
    QByteArrayView bytes;
    Extent extent;
    bool mayLoseEarlier = false; ///< the user has agreed that no version is kept of what the file holds
};

/// The one way in which a document's file is replaced: its earlier content is kept as a version first. If that cannot
/// be, and may not be done without, this fails with VersionNotKept, and nothing was touched. After a success the new
/// content is on the disk. What a failed save or a part leaves in the file never pushes a version out.
Result<> replaceFile(const QString &fileName, const NewContent &content);
