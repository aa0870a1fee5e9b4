#include "tool/print/PdfPrint.h"

#include "app/services/Common.h"
#include "app/services/Messages.h"
#include "app/services/Settings.h"
#include "dialogs/print/DocumentPrinter.h"
#include "dialogs/print/PrintSettings.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "print/GridPrinter.h"
#include "print/PdfFile.h"
#include "print/PrintJob.h"
#include "runtime/FileName.h"
#include "tool/SheetFields.h"

#include <QBuffer>
#include <QPrinter>

namespace {

void loadSettings(const PrintRequest &request)
{
    qint16 windowState = 0;
    LoadWindowSettings(windowState);
    LoadUserFont(UserFont.FontName, UserFont.FontSize, UserFont.FontItalic, UserFont.FontBold);
    if (!request.columns.isEmpty()) {
        for (int column = 1; column <= ParameterColumn::Count; ++column) {
            ListVisualState.at(std::size_t(column - 1)) = !request.columns.contains(fieldNameOfColumn(column));
        }
    }
    SharedPrintSettings = {};
    SharedPrintSettings.flags = {qint16(request.printsMachine ? 1 : 0), qint16(request.printsParameters ? 1 : 0)};
}

QPageLayout pageLayout(const PrintRequest &request)
{
    constexpr QPageSize::PageSizeId papers[] = {QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::JisB4,
        QPageSize::JisB5, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};
    QPageLayout layout = CurrentPrinter::printer().pageLayout();
    const auto chosen = paperNames().indexOf(request.paper);
    if (chosen >= 0) {
        layout.setPageSize(QPageSize(papers[chosen]), layout.minimumMargins());
    }
    if (request.isLandscape) {
        layout.setOrientation(QPageLayout::Landscape);
    }
    return layout;
}

/// The grid as the editor fills it.
void fill(SpreadGrid &grid, QWidget &window, const Document &document)
{
    ApplyUserFont(window);
    layOutParameterGrid(grid, int(document.rows.size()));
    PrRecords = document.rows;
    fillParameterGrid(grid);
}

} // namespace

PdfBytes printAsPdf(const PrintRequest &request, const Document &document)
{
    loadSettings(request);
    QWidget window;
    SpreadGrid grid(&window);
    fill(grid, window, document);
    QBuffer buffer;
    buffer.open(QBuffer::WriteOnly);
    QPdfWriter writer(&buffer);
    setUpPdf(writer, pageLayout(request));
    const DocumentPrinter printer(nullptr, grid, document.machine, request.title);
    const QString missing = printer.missingParameters(writer);
    if (!missing.isEmpty()) {
        return {{}, missing};
    }
    PrintJob job(writer, shownFileName(request.title));
    const PrintOutcome outcome = printer.print(job);
    if (!job.end() || outcome != PrintOutcome::Done) {
        return {{}, failureText({FailureCode::PrinterError})};
    }
    return {buffer.data(), {}};
}
