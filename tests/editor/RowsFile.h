#pragma once

#include "tests/editor/RowsModel.h"

#include <QByteArray>

#include <optional>

/// What a document with rows of texts is as a file, made for the tests by means of its own. The numbers in the texts
/// are plain: digits with at most one point.
namespace RowsFile {

/// The whole file, of a machine that is always the same.
QByteArray bytes(const std::vector<RowsModel::Row> &rows);
/// The whole file of an untitled document, whose machine information is empty.
QByteArray untitledBytes(const std::vector<RowsModel::Row> &rows);

/// The rows of a file as a window shows them after an open; std::nullopt if it cannot be opened. For files as the above
/// write them.
std::optional<std::vector<RowsModel::Row>> rows(const QByteArray &bytes);

/// Whether a check box with that text shows a tick.
bool isTicked(const QString &text);

} // namespace RowsFile
