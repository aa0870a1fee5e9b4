#pragma once

#include "print/GridPrintOptions.h"
#include "print/GridPrinter.h"
#include "tests/support/PdfText.h"

#include <QPageLayout>
#include <QPrinter>
#include <QStringList>
#include <QTemporaryDir>

class SpreadGrid;

/// Gives every data cell the text c<column>r<row>, every heading h<column>, and every column that width.
void fillGrid(SpreadGrid &grid, int columns, int rows, double widthInCharacters = 8);

/// The cells of a grid so filled that stand on the page, in its order; or on all pages together.
QStringList cellsOf(const PdfPage &page);
QStringList cellsOf(const QList<PdfPage> &pages);

/// Prints to PDF and reads the pages back.
class PrintedGrid
{
public:
    PrintedGrid();

    QPrinter &printer() { return m_printer; }
    QString fileName() const { return m_folder.filePath(QStringLiteral("out.pdf")); }
    bool exists() const;

    /// The pages of the print-out; none when no file was made.
    QList<PdfPage> print(const SpreadGrid &grid) { return print(grid, plainOptions()); }
    QList<PdfPage> print(const SpreadGrid &grid, const GridPrintOptions &options);
    PrintOutcome outcome() const { return m_outcome; }
    int pageCount() const { return m_pageCount; }

    static GridPrintOptions plainOptions(GridPrintType type = GridPrintType::All);

private:
    QTemporaryDir m_folder;
    QPrinter m_printer{QPrinter::HighResolution};
    PrintOutcome m_outcome = PrintOutcome::Done;
    int m_pageCount = 0;
};
