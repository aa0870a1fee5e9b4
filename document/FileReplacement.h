#pragma once

#include "document/FileFailure.h"

#include <QByteArrayView>
#include <QString>

class FileHost;

/// What a file is to hold: a document, or what of it can be written.
enum class Extent { Whole, Part };

/// The one way in which a document's file is replaced: its earlier content is kept as a version first; where that
/// cannot be, the user decides. The new content is on the disk when this returns nothing. What a failed save or a part
/// leaves in the file never pushes a version out. Silent when the user did not want to save: then nothing was touched.
std::optional<FileFailure> replaceFile(const QString &fileName, QByteArrayView bytes, Extent extent, FileHost &host);
