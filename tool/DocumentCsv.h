#pragma once

#include "document/Document.h"

#include <QByteArray>

#include <optional>

/// A document as CSV: a line with the names of the editor's columns, a line for each parameter with the texts of its
/// cells, an empty line, then the machine information, a key and its value a line.
QByteArray documentAsCsv(const Document &document);

/// A document that was read from CSV, or why it could not be: a sentence that names the line.
struct ReadDocument
{
    Document document;
    std::optional<QString> failure;
};

/// What documentAsCsv() wrote, with the columns in any order; cells are taken as if they had been typed into the
/// editor.
ReadDocument documentFromCsv(const QByteArray &bytes);
