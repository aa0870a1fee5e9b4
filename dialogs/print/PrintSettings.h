#pragma once

#include "print/GridPrintOptions.h"

#include <array>

class SpreadGrid;

/// What to print, as the print dialog was last confirmed. It is kept until the program ends, so that a later print-out
/// without the dialog prints the same.
struct PrintSettings
{
    std::array<qint16, 2> flags{}; ///< 1 = print: [0] the machine information, [1] the parameters
    qint16 type = 0; ///< 0 all, 1 selected block, 2 displayed page, 3 page range
    qint16 pageFrom = 0; ///< of a page range; 0 for an empty box
    qint16 pageTo = 0;

    bool operator==(const PrintSettings &) const = default;
};

extern PrintSettings SharedPrintSettings;

/// How the grid of a document is printed with these settings. The block is the one that is selected now; title is the
/// editor window's caption.
GridPrintOptions gridPrintOptions(const SpreadGrid &grid, const PrintSettings &settings, const QString &title);
