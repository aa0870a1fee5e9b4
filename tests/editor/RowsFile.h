#pragma once

#include "tests/editor/RowsModel.h"

#include <QByteArray>

/// What a document with rows of texts is as a file, made for the tests by means of its own. The numbers in the texts
/// are plain: digits with at most one point.
namespace RowsFile {

/// The whole file, of a machine that is always the same.
QByteArray bytes(const std::vector<RowsModel::Row> &rows);

/// Whether a check box with that text shows a tick.
bool isTicked(const QString &text);

} // namespace RowsFile
