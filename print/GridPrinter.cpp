#include "print/GridPrinter.h"

#include "desktop/PlainCaption.h"
#include "grid/SpreadGrid.h"
#include "print/GridPagePainter.h"
#include "print/PrintAbortBox.h"
#include "print/PrintJob.h"

#include <QPagedPaintDevice>

namespace {

PrintSpan chosenPages(const GridPrintOptions &options, int pageCount)
{
    if (options.type == GridPrintType::PageRange) {
        return pagesInRange(options.pageFrom, options.pageTo, pageCount);
    }
    return {1, pageCount};
}

} // namespace

int gridPageCount(const SpreadGrid &grid, const GridPrintOptions &options, QPagedPaintDevice &paper)
{
    return GridPrintLayout(grid, printArea(grid, options), options, paper).pages().count();
}

PrintOutcome printGrid(const SpreadGrid &grid, const GridPrintOptions &options, PrintJob &job, QWidget *owner)
{
    const GridPrintLayout layout(grid, printArea(grid, options), options, job.paper());
    const PrintSpan pages = chosenPages(options, layout.pages().count());
    if (pages.isEmpty()) {
        return PrintOutcome::Done;
    }
    PrintAbortBox abortBox(options.abortText, options.cancelText, grid.gridFont(), owner);
    abortBox.setWindowTitle(plainTitle(job.name()));
    abortBox.show();
    GridPagePainter painter(layout, options, job.painter());
    for (int page = pages.first; page <= pages.last; ++page) {
        abortBox.setProgress(page - pages.first, pages.last - pages.first + 1);
        if (abortBox.isCancelled()) {
            return PrintOutcome::Cancelled;
        }
        if (!job.startPage()) {
            return PrintOutcome::Failed;
        }
        painter.paintPage(page);
    }
    return PrintOutcome::Done;
}
