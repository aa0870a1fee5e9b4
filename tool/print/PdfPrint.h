#pragma once

#include "tool/PrintCommand.h"

/// The document's print-out as PDF: the same pages as the editor's, with the user's font and columns from the settings
/// where the request does not say otherwise. A QApplication has to be there.
PdfBytes printAsPdf(const PrintRequest &request, const Document &document);
