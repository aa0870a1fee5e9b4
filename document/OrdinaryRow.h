#pragma once

#include "document/PrGrid.h"

#include <QtGlobal>

class AnsiCodePage;

/// The most bytes that encodeOrdinaryRow() writes for those cells.
qsizetype maxOrdinaryRowBytes(const CellTexts &cells);

/// Encodes a row whose cells have their texts in the form that a file gives them: most rows, all of an unedited file.
/// No number is converted and written again, and nothing of it has to be read back to see that it comes back. Returns
/// the end of the bytes written to out; nullptr, with out undefined, for every other row: RowCollector takes those.
char *encodeOrdinaryRow(const CellTexts &cells, const AnsiCodePage &page, char *out);
