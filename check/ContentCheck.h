#pragma once

#include "check/Finding.h"
#include "document/FuncCodeText.h"
#include "document/PrRecord.h"

#include <QList>

class OtherRows;

/// What the content is judged by beside itself.
struct ContentBasis
{
    FunctionLabels labels; ///< the label set that the document's file name gives it
    int codePage; ///< of the document

    bool operator==(const ContentBasis &) const = default;
};

/// The width of the name's column in the grid and on paper, in half-width characters: a byte of a code page each.
inline constexpr qsizetype printedNameWidth = 25;

/// What is wrong in itself in a record: number, ranges, factory setting, conditions, function code, help topic.
/// row: from 0, its own among the others.
Findings checkContent(const PrRecord &record, int row, const OtherRows &others, const ContentBasis &basis);

/// The same for all rows of a document.
Findings checkContent(const QList<PrRecord> &rows, const ContentBasis &basis);
