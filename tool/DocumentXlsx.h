#pragma once

#include "document/Document.h"
#include "tool/xlsx/Workbook.h"

#include <QByteArray>

#include <optional>

/// A document as a workbook for review, titles in the interface's language: the editor's columns, then the machine
/// information. A cell of a column of numbers is a number where a spreadsheet shows it by the same text.
Workbook workbookOf(const Document &document);

/// A document's workbook as an .xlsx file, or why there is none: a sentence.
struct XlsxBytes
{
    QByteArray bytes;
    std::optional<QString> failure;
};
XlsxBytes documentAsXlsx(const Document &document);
