#include "grid/SpreadGrid.h"
#include "print/GridPrinter.h"
#include "print/PrintJob.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPrinter>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Columns = 13;
constexpr int Rows = 32767;

/// As many rows as a document can have, with texts as long as parameters have them.
void fill(SpreadGrid &grid)
{
    grid.setColumnCount(Columns);
    grid.setRowCount(Rows);
    grid.setWidthInCharacters(2, 25);
    for (int row = 1; row <= Rows; ++row) {
        for (int column = 1; column <= Columns; ++column) {
            grid.setText(column, row, column == 2 ? u"Acceleration time %1"_s.arg(row) : u"0.1-%1"_s.arg(row % 400));
        }
    }
}

GridPrintOptions pages(int from, int to)
{
    GridPrintOptions options;
    options.type = GridPrintType::PageRange;
    options.pageFrom = from;
    options.pageTo = to;
    options.header.addCodes(u"/l").addText(u"File name:bench.inv"_s).addCodes(u"/n");
    options.footer.addCodes(u"/c /p");
    return options;
}

/// Prints that many pages from the first on. The time with one page is mostly that of finding the page breaks.
void printPages(benchmark::State &state)
{
    SpreadGrid grid;
    fill(grid);
    const QTemporaryDir folder;
    int printed = 0;
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(u"bench.pdf"_s));
        PrintJob job(printer, u"bench"_s);
        printGrid(grid, pages(1, int(state.range(0))), job, nullptr);
        printed += job.pageCount();
    }
    state.counters["perPage"] = benchmark::Counter(printed, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(printPages)->Arg(1)->Arg(100)->Arg(800)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
