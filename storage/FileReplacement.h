#pragma once

#include "runtime/FileFailure.h"

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

/// The one way in which a document's file is replaced: its earlier content is kept as a version first. Where that
/// cannot be, and may not be done without, question is what to ask the user, and nothing was touched. Otherwise the new
/// content is on the disk when this returns nothing. What a failed save or a part leaves in the file never pushes a
/// version out.
std::optional<FileFailure> replaceFile(
    const QString &fileName, const NewContent &content, std::optional<FileFailure> &question);
