#pragma once

#include "tool/Files.h"
#include "tool/SheetDiff.h"

#include <vector>

/// A parameter file whose rows are all plain and have small numbers, so that it can be compared by its bytes.
struct PlainFile
{
    QByteArray bytes; ///< what rows are views of
    Document document; ///< without rows
    std::vector<QByteArrayView> rows;
    std::vector<int> numbers; ///< by row
};

/// std::nullopt for any other file, which has to be decoded.
std::optional<PlainFile> plainFile(const InputFile &input, std::optional<int> codePage);

/// What diffDocuments() finds in the two files; only rows that differ are decoded. Both are of the same code page.
SheetDiff diffPlainFiles(const PlainFile &before, const PlainFile &after, const DiffOptions &options);
