#include "tests/support/PrintedGrid.h"

#include "grid/SpreadGrid.h"
#include "print/PrintJob.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

void fillGrid(SpreadGrid &grid, int columns, int rows, double widthInCharacters)
{
    grid.setColumnCount(columns);
    grid.setRowCount(rows);
    for (int column = 1; column <= columns; ++column) {
        grid.setText(column, 0, u"h%1"_s.arg(column));
        grid.setWidthInCharacters(column, widthInCharacters);
        for (int row = 1; row <= rows; ++row) {
            grid.setText(column, row, u"c%1r%2"_s.arg(column).arg(row));
        }
    }
}

QStringList cellsOf(const PdfPage &page)
{
    return page.texts().filter(QRegularExpression(u"^c\\d+r\\d+$"_s));
}

QStringList cellsOf(const QList<PdfPage> &pages)
{
    QStringList cells;
    for (const PdfPage &page : pages) {
        cells << cellsOf(page);
    }
    return cells;
}

PrintedGrid::PrintedGrid()
{
    m_printer.setOutputFormat(QPrinter::PdfFormat);
    m_printer.setPageSize(QPageSize(QPageSize::A4));
    m_printer.setOutputFileName(fileName());
}

bool PrintedGrid::exists() const
{
    return QFile::exists(fileName());
}

QList<PdfPage> PrintedGrid::print(const SpreadGrid &grid, const GridPrintOptions &options)
{
    PrintJob job(m_printer, u"test job"_s);
    m_outcome = printGrid(grid, options, job, nullptr);
    m_pageCount = job.pageCount();
    job.end();
    return exists() ? readPdf(fileName()) : QList<PdfPage>{};
}

GridPrintOptions PrintedGrid::plainOptions(GridPrintType type)
{
    GridPrintOptions options;
    options.type = type;
    options.header.addCodes(u"/l").addText(u"Heading"_s).addCodes(u"/n");
    options.footer.addCodes(u"/c-/p-");
    options.abortText = u"Stop?"_s;
    options.cancelText = u"Cancel"_s;
    return options;
}
