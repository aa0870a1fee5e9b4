#include "grid/cells/CellRows.h"

#include "grid/cells/BlockText.h"
#include "runtime/NumberText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

using Texts = QVarLengthArray<QStringView, 16>;

Texts textsOf(const CellRow &row, int columns)
{
    Texts texts(columns);
    row.copyTexts(std::span(texts.data(), size_t(columns)));
    return texts;
}

CellRow rowOf(const Texts &texts)
{
    return CellRow(std::span(texts.constData(), size_t(texts.size())));
}

double sortNumber(const CellRow &row, int key)
{
    return numericValue(row.text(key)).value_or(std::numeric_limits<double>::infinity());
}

} // namespace

CellRow CellRows::replaced(const CellRow &row, int columns, int firstColumn, std::span<const QStringView> texts)
{
    if (firstColumn == 0 && texts.size() >= size_t(columns)) {
        return CellRow(texts.first(size_t(columns)));
    }
    Texts cells = textsOf(row, columns);
    const auto available = size_t(std::max(0, columns - firstColumn));
    std::ranges::copy(texts.first(std::min(texts.size(), available)), cells.begin() + firstColumn);
    return rowOf(cells);
}

QChar *CellRows::writeCells(QChar *out, const CellRow &row, int column1, int column2)
{
    for (int column = column1; column <= column2; ++column) {
        if (column > column1) {
            *out++ = BlockText::cellEnd;
        }
        out = std::ranges::copy(row.text(column), out).out;
    }
    return out;
}

std::vector<CellRow> CellRows::withBlockText(
    std::span<const CellRow> rows, int columns, int column1, int column2, int skippedCells, QStringView block)
{
    std::vector<CellRow> after(rows.begin(), rows.end());
    const auto width = size_t(std::max(0, column2 - column1 + 1));
    const QStringView emptyCell;
    BlockTextReader reader(block);
    for (size_t at = 0; at < after.size() && reader.nextRow(); ++at) {
        auto cells = reader.cells();
        cells = cells.subspan(std::min(size_t(skippedCells), cells.size()));
        after[at] = replaced(rows[at], columns, column1, cells.first(std::min(width, cells.size())));
        if (width == 1 && reader.isClosed() && at + 1 < after.size()) {
            after[at + 1] = replaced(rows[at + 1], columns, column1, std::span(&emptyCell, 1));
        }
    }
    return after;
}

std::vector<CellRow> CellRows::withTexts(std::span<const CellRow> rows, int columns, int column1, int column2,
    const std::function<QStringView(int, int)> &textOf)
{
    std::vector<CellRow> after;
    after.reserve(rows.size());
    for (const CellRow &row : rows) {
        Texts cells = textsOf(row, columns);
        bool same = true;
        for (int column = column1; column <= column2; ++column) {
            const QStringView text = textOf(column, int(after.size()));
            same = same && text == cells[column];
            cells[column] = text;
        }
        after.push_back(same ? row : rowOf(cells));
    }
    return after;
}

std::vector<size_t> CellRows::orderByNumber(std::span<const CellRow> rows, int key)
{
    std::vector<double> numbers(rows.size());
    std::ranges::transform(rows, numbers.begin(), [key](const CellRow &row) { return sortNumber(row, key); });
    std::vector<size_t> order(rows.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::ranges::stable_sort(order, {}, [&numbers](size_t at) { return numbers[at]; });
    return order;
}
