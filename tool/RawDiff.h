#pragma once

#include "tool/Files.h"
#include "tool/SheetDiff.h"

#include <vector>

/// A parameter file whose parameters all have small numbers, so that it can be compared by its bytes.
struct RawFile
{
    QByteArray bytes; ///< what rows are views of
    Document document; ///< without rows
    std::vector<QByteArrayView> rows;
    std::vector<int> numbers; ///< by row
};

/// std::nullopt for any other file, which has to be decoded. So has one that cannot be read.
std::optional<RawFile> rawFile(const InputFile &input, std::optional<int> codePage);

/// What diffDocuments() finds in the two files; only rows that differ are decoded. Both are of the same code page.
SheetDiff diffRawFiles(const RawFile &before, const RawFile &after, const DiffOptions &options);
