#pragma once

#include <QString>

/// The PDF file that a document is printed to unless the user names another: beside it, with its name. title is the
/// window's caption.
QString pdfFileName(const QString &title);
