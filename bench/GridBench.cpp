// What the spread grid's work on a table of the greatest size costs, beside the cheapest thing that could do it: moving
// the same texts within a vector of rows, and painting the same cells as plain text.

#include "bench/PlainPage.h"
#include "bench/Stopwatch.h"
#include "grid/SpreadGrid.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>

#include <algorithm>
#include <array>
#include <cstdio>
#include <malloc.h>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 32767;
constexpr int columnCount = benchColumnCount;

PlainRow plainRow(int row)
{
    const QString number = QString::number(row % 1000);
    return {number, u"Acceleration time "_s + number, u"0-3600"_s, row % 3 ? u"1"_s : u"0"_s, u"0.1"_s, u"No"_s,
        u"No"_s, row % 2 ? u"Hz"_s : u"kW"_s, u"5.0"_s, QString::number(row % 32767), u"000A"_s,
        row % 4 ? u"0"_s : u"2"_s, row % 4 ? QString() : u"79=1-3,MODE=1"_s};
}

const PlainRows &plainRows()
{
    static const PlainRows rows = [] {
        PlainRows made;
        for (int row = 1; row <= rowCount; ++row) {
            made.push_back(plainRow(row));
        }
        return made;
    }();
    return rows;
}

qsizetype textBytes()
{
    qsizetype units = 0;
    for (const PlainRow &row : plainRows()) {
        for (const QString &text : row) {
            units += text.size();
        }
    }
    return units * qsizetype(sizeof(char16_t));
}

double medianSeconds(const auto &work)
{
    std::vector<double> times(11);
    std::ranges::generate(times, [&] { return secondsOf(work); });
    return median(times);
}

/// Measures work, with prepare before each run; says how many times the baseline it takes.
void measure(benchmark::State &state, double baseline, const auto &prepare, const auto &work)
{
    double total = 0;
    for (auto _ : state) {
        prepare();
        const double time = secondsOf(work);
        state.SetIterationTime(time);
        total += time;
    }
    if (baseline > 0) {
        state.counters["ratio"] = total / double(state.iterations()) / baseline;
    }
}

/// The seconds that moving all texts by one row takes.
double moveSeconds()
{
    static const double baseline = [] {
        PlainRows rows = plainRows();
        rows.emplace_back();
        return medianSeconds([&rows] { std::move_backward(rows.begin(), rows.end() - 1, rows.end()); });
    }();
    return baseline;
}

std::unique_ptr<SpreadGrid> emptyGrid()
{
    auto grid = std::make_unique<SpreadGrid>();
    grid->setColumnCount(columnCount);
    grid->setCellType(1, -1, CellType::integer(0, 1000));
    grid->setCellType(4, -1, CellType::checkBox());
    for (const int column : {5, 6, 7}) {
        grid->setCellType(column, -1, CellType::comboBox({u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s}));
    }
    grid->setFrozenColumns(1);
    for (int column = 1; column <= columnCount; ++column) {
        grid->setWidthInCharacters(column, column == 2 ? 25 : 7);
    }
    grid->resize(1000, 700);
    return grid;
}

void fill(SpreadGrid &grid)
{
    grid.setRedraw(false);
    grid.setRowCount(rowCount);
    int number = 0;
    for (const PlainRow &row : plainRows()) {
        std::array<QStringView, columnCount> texts;
        std::ranges::copy(row, texts.begin());
        grid.setRowTexts(++number, texts);
        grid.fitRowHeight(number);
    }
    grid.setRedraw(true);
}

std::unique_ptr<SpreadGrid> fullGrid()
{
    auto grid = emptyGrid();
    fill(*grid);
    grid->show();
    QApplication::processEvents();
    return grid;
}

} // namespace

constexpr auto nothing = [] {};
constexpr double noFloor = 0;

static void Fill(benchmark::State &state)
{
    std::unique_ptr<SpreadGrid> grid;
    measure(
        state, moveSeconds(), [&] { grid = emptyGrid(); }, [&] { fill(*grid); });
}

static void CopyAllRows(benchmark::State &state)
{
    const auto grid = fullGrid();
    measure(state, moveSeconds(), nothing, [&] {
        benchmark::DoNotOptimize(grid->blockText({0, 1, columnCount, rowCount}));
    });
}

static void PasteAllRows(benchmark::State &state)
{
    const auto grid = fullGrid();
    const GridBlock all{0, 1, columnCount, rowCount};
    const QString text = grid->blockText(all);
    measure(state, moveSeconds(), nothing, [&] {
        grid->setTextColour(all, QColor(128, 0, 0));
        grid->setBlockText(all, text);
    });
}

static void PasteLinesAtTheTop(benchmark::State &state)
{
    const auto grid = fullGrid();
    const GridBlock top{0, 1, columnCount, int(state.range(0))};
    const QString text = grid->blockText(top);
    measure(state, moveSeconds(), nothing, [&] {
        grid->setTextColour(top, QColor(128, 0, 0));
        grid->setBlockText(top, text);
    });
}

static void AddLinesAtTheTop(benchmark::State &state)
{
    const auto grid = fullGrid();
    const auto lines = int(state.range(0));
    measure(
        state, moveSeconds(), [&] { grid->setRowCount(rowCount); },
        [&] {
            grid->setRowCount(rowCount + lines);
            grid->moveRowTexts(1, rowCount, 1 + lines);
            grid->setBlockText({1, 1, 12, 1}, u"\t\t\t0\tNo\tNo\tNo\t\t\t0\t0000\t0");
        });
}

static void DeleteTheFirstLines(benchmark::State &state)
{
    const auto grid = fullGrid();
    const auto lines = int(state.range(0));
    measure(
        state, moveSeconds(), [&] { grid->setRowCount(rowCount); },
        [&] {
            grid->setRedraw(false);
            grid->moveRowTexts(1 + lines, rowCount, 1);
            grid->setRowCount(rowCount - lines);
            grid->setRedraw(true);
        });
}

static void FitColumn(benchmark::State &state)
{
    const auto grid = fullGrid();
    measure(state, noFloor, nothing, [&] { grid->fitColumnWidth(int(state.range(0))); });
}

static void ClearAllAndColour(benchmark::State &state)
{
    const auto grid = fullGrid();
    QObject::connect(grid.get(), &SpreadGrid::cellsEdited, grid.get(),
        [&grid](const GridBlock &block) { grid->setTextColour(block, QColor(128, 0, 0)); });
    measure(
        state, noFloor, [&] { fill(*grid); },
        [&] {
            grid->selectAll();
            grid->clearSelectedCells();
        });
}

static void SortRows(benchmark::State &state)
{
    const auto grid = fullGrid();
    measure(
        state, moveSeconds(), [&] { fill(*grid); }, [&] { grid->sortRows(1, rowCount, 1); });
}

static void FirstPaint(benchmark::State &state)
{
    std::unique_ptr<SpreadGrid> grid;
    const auto prepare = [&] {
        grid = emptyGrid();
        fill(*grid);
    };
    measure(state, noFloor, prepare, [&] {
        grid->show();
        QApplication::processEvents();
    });
}

static double plainPageSeconds(const SpreadGrid &grid)
{
    PlainPage page(grid, plainRows());
    page.show();
    QApplication::processEvents();
    int row = 1;
    return medianSeconds([&] {
        page.setTopRow(row = row % (rowCount - 100) + 30);
        page.repaint();
    });
}

static void RepaintAll(benchmark::State &state)
{
    const auto grid = fullGrid();
    if (state.range(0)) {
        grid->selectAll();
    }
    measure(state, plainPageSeconds(*grid), nothing, [&] {
        grid->viewport()->repaint();
        grid->horizontalHeader()->viewport()->repaint();
        grid->verticalHeader()->viewport()->repaint();
    });
}

static void ScrollPage(benchmark::State &state)
{
    const auto grid = fullGrid();
    const int page = grid->bottomRow() - grid->topRow();
    int row = 1;
    measure(state, plainPageSeconds(*grid), nothing, [&] {
        grid->setTopRow(row = row % (rowCount - 100) + page);
        QApplication::processEvents();
    });
}

static void MemoryOfTexts(benchmark::State &state)
{
    auto grid = emptyGrid();
    plainRows();
    const auto before = mallinfo2().uordblks + mallinfo2().hblkhd;
    measure(state, noFloor, nothing, [&] { fill(*grid); });
    const auto after = mallinfo2().uordblks + mallinfo2().hblkhd;
    state.counters["textBytes"] = double(textBytes());
    state.counters["ratio"] = double(after - before) / double(textBytes());
}

BENCHMARK(Fill)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(CopyAllRows)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(PasteAllRows)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(PasteLinesAtTheTop)->Arg(1000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(AddLinesAtTheTop)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(DeleteTheFirstLines)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(FitColumn)->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(ClearAllAndColour)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(SortRows)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(FirstPaint)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(RepaintAll)->ArgName("selected")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(ScrollPage)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(MemoryOfTexts)->Iterations(1)->Unit(benchmark::kMillisecond)->UseManualTime();

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    std::printf("moving the texts of %d rows: %.2f ms\n", rowCount, moveSeconds() * 1000);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
