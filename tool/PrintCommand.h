#pragma once

#include "document/Document.h"
#include "tool/Command.h"

#include <QByteArray>

extern const Command printCommand;

/// What the command is told to print, and how.
struct PrintRequest
{
    QString title; ///< what the pages are headed with: the file's full path, as in the editor
    QStringList columns; ///< names of the fields to print; empty: the columns that the editor shows
    QString paper; ///< one of paperNames(); empty: the editor's
    bool printsMachine = true;
    bool printsParameters = true;
    bool isLandscape = false;
};

/// The names of the papers that --paper takes.
const QStringList &paperNames();

/// A document as PDF, or why there is none: a sentence.
struct PdfBytes
{
    QByteArray bytes;
    std::optional<QString> failure;
};

/// Makes the command print by that routine. A program without one hands the command over to tabrix-print, which has it
/// and, unlike the others, needs the windows' libraries.
using PrintRoutine = PdfBytes (*)(const PrintRequest &request, const Document &document);
void setPrintRoutine(PrintRoutine routine);
