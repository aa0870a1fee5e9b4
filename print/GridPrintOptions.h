#pragma once

#include "grid/cells/GridBlock.h"
#include "print/PageText.h"

/// Which part of a grid is printed.
enum class GridPrintType : qint16 { All, Block, DisplayedPage, PageRange };

/// How a grid is printed.
struct GridPrintOptions
{
    GridPrintType type = GridPrintType::All;
    GridBlock block; ///< the block that Block prints; column1 -1 for whole rows
    int pageFrom = 0; ///< PageRange: see pagesInRange()
    int pageTo = 0;
    PageText header;
    PageText footer;
    QString abortText; ///< the text of the box that is open while pages are produced
    QString cancelText; ///< the caption of its button
};
