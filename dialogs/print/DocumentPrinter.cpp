#include "dialogs/print/DocumentPrinter.h"

#include "app/services/Messages.h"
#include "desktop/MessageBox.h"
#include "dialogs/print/MachineInfoPrinter.h"
#include "dialogs/print/PrintSettings.h"
#include "print/GridPrinter.h"
#include "print/PdfFile.h"
#include "print/PrintArea.h"
#include "print/PrintJob.h"
#include "runtime/FileName.h"

#include <QPrinter>

#include <limits>

DocumentPrinter::DocumentPrinter(QWidget *parent, SpreadGrid &grid, const MachineInfo &machine, const QString &title)
    : m_parent(parent), m_grid(grid), m_machine(machine), m_title(shownFileName(title))
{
}

QString DocumentPrinter::missingParameters(QPagedPaintDevice &paper) const
{
    if (SharedPrintSettings.flags[1] != 1) {
        return {};
    }
    const GridPrintOptions options = gridPrintOptions(m_grid, SharedPrintSettings, m_title);
    if (printArea(m_grid, options).columns.isEmpty()) {
        return ownText(OwnText::NoColumnToPrint);
    }
    if (options.type != GridPrintType::PageRange) {
        return {};
    }
    const int pages = gridPageCount(m_grid, options, paper);
    if (!pagesInRange(options.pageFrom, options.pageTo, pages).isEmpty()) {
        return {};
    }
    const PrintSpan range = pagesInRange(options.pageFrom, options.pageTo, std::numeric_limits<int>::max());
    return ownText(
        OwnText::NoPageToPrint, {QString::number(range.first), QString::number(range.last), QString::number(pages)});
}

PrintOutcome DocumentPrinter::printMachinePage(PrintJob &job) const
{
    if (SharedPrintSettings.flags[0] != 1) {
        return PrintOutcome::Done;
    }
    return printMachineInfo(job, m_machine, m_title) ? PrintOutcome::Done : PrintOutcome::Failed;
}

PrintOutcome DocumentPrinter::printParameters(PrintJob &job) const
{
    if (SharedPrintSettings.flags[1] != 1) {
        return PrintOutcome::Done;
    }
    return printGrid(m_grid, gridPrintOptions(m_grid, SharedPrintSettings, m_title), job, m_parent);
}

PrintOutcome DocumentPrinter::print(PrintJob &job) const
{
    const PrintOutcome outcome = printMachinePage(job);
    return outcome == PrintOutcome::Done ? printParameters(job) : outcome;
}

void DocumentPrinter::toPrinter(QPrinter &printer)
{
    // Two jobs, so that the machine page is printed while the parameters are still being produced.
    PrintOutcome outcome = runJob(printer, &DocumentPrinter::printMachinePage);
    if (outcome == PrintOutcome::Done) {
        outcome = runJob(printer, &DocumentPrinter::printParameters);
    }
    if (outcome == PrintOutcome::Failed) {
        report(failureText({FailureCode::PrinterError}));
    }
}

PrintOutcome DocumentPrinter::runJob(QPrinter &printer, Content content) const
{
    PrintJob job(printer, m_title);
    const PrintOutcome outcome = (this->*content)(job);
    if (outcome == PrintOutcome::Cancelled) {
        job.cancel();
    }
    return job.end() ? outcome : PrintOutcome::Failed;
}

void DocumentPrinter::toPdf(const QString &fileName, const QPageLayout &layout)
{
    PdfFile file(fileName, layout);
    if (!file.open()) {
        report(file.errorString());
        return;
    }
    PrintJob job(file.paper(), m_title);
    const PrintOutcome outcome = print(job);
    const bool isWhole = job.end() && outcome == PrintOutcome::Done;
    if (job.pageCount() == 0 || outcome == PrintOutcome::Cancelled) {
        return;
    }
    if (!isWhole || !file.commit()) {
        const QString reason = file.errorString();
        report(reason.isEmpty() ? failureText({FailureCode::PrinterError}) : reason);
    }
}

void DocumentPrinter::report(const QString &reason) const
{
    MessageBox::showExclamation(m_parent, reason, m_title);
}
