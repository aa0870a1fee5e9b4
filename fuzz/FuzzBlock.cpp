// Any text on the clipboard, pasted into any selection, after any copy.

#include "fuzz/Law.h"
#include "grid/cells/PasteTarget.h"
#include "grid/cells/SpreadModel.h"

#include <QStringList>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 13;
constexpr QStringView formerText = u"before";

/// Takes small numbers off the front of the input.
class Numbers
{
public:
    Numbers(const uint8_t *data, size_t size) : m_rest(data, qsizetype(size)) { }

    /// From first to last.
    int next(int first, int last)
    {
        if (m_rest.isEmpty()) {
            return first;
        }
        const int byte = static_cast<uchar>(m_rest.front());
        m_rest = m_rest.sliced(1);
        return first + byte % (last - first + 1);
    }
    QByteArrayView rest() const { return m_rest; }

private:
    QByteArrayView m_rest;
};

GridBlock selection(Numbers &in, int rows)
{
    const bool whole = in.next(0, 2) == 0;
    const int column = in.next(1, columns);
    const int row = in.next(1, rows);
    const int lastRow = std::min(rows, row + in.next(0, 4));
    return whole ? GridBlock{-1, row, columns, lastRow}
                 : GridBlock{column, row, std::min(columns, column + in.next(0, 4)), lastRow};
}

ClipboardRecord record(Numbers &in)
{
    const int kind = in.next(ClipboardRecord::Nothing, ClipboardRecord::WholeRows);
    const auto size = [&in] { return qint16(in.next(0, 12) == 12 ? 32767 : in.next(0, 6)); };
    return {.kind = qint16(kind), .width = size(), .height = size()};
}

/// Where the text goes, as Paste decides.
std::optional<GridBlock> target(const ClipboardRecord &copied, const GridBlock &selected, int rows)
{
    switch (copied.kind) {
    case ClipboardRecord::Block:
        return blockPasteTarget(copied, selected, columns, rows);
    case ClipboardRecord::WholeRows:
        return rowsPasteTarget(copied, selected, columns, rows);
    default:
        return selected;
    }
}

void fill(SpreadModel &model, int rows)
{
    model.setColumnCount(columns);
    model.setRowCount(rows);
    for (int row = 1; row <= rows; ++row) {
        model.setRowTexts(row, std::vector<QStringView>(columns, formerText));
    }
}

/// The rows of a block text, by cells.
QList<QStringList> parts(QString text)
{
    QList<QStringList> rows;
    for (const QString &row : text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n')) {
        rows << row.split(u'\t');
    }
    return rows;
}

bool isInside(const GridBlock &block, int column, int row)
{
    return column >= std::max(block.column1, 1) && column <= block.column2 && row >= block.row1 && row <= block.row2;
}

/// What the cell holds after the text was put into the block; nothing: what it held before.
std::optional<QString> pasted(const GridBlock &block, const QList<QStringList> &text, int column, int row)
{
    const int first = std::max(block.column1, 1);
    const qsizetype line = row - block.row1;
    const bool isLast = line == text.size() - 1;
    const bool isClosing = isLast && line > 0 && text.last() == QStringList(QString()) && first != block.column2;
    if (!isInside(block, column, row) || line >= text.size() || isClosing) {
        return std::nullopt;
    }
    const qsizetype cell = column - first + (block.column1 == 0 ? 1 : 0);
    return cell < text[line].size() ? std::optional(text[line][cell]) : std::nullopt;
}

void paste(const GridBlock &block, int rows, const QString &text)
{
    SpreadModel model;
    fill(model, rows);
    model.setBlockText(block, text);
    require(model.rowCount() == rows && model.columnCount() == columns, "a paste leaves the grid's size");
    const QList<QStringList> lines = parts(text);
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= columns; ++column) {
            const QString expected = pasted(block, lines, column, row).value_or(formerText.toString());
            require(model.text(column, row) == expected, "every cell takes its part of the text, the others stay");
        }
    }
    const QString copied = model.blockText(block);
    SpreadModel second;
    fill(second, rows);
    second.setBlockText(block, copied);
    require(second.blockText(block) == copied, "a copied block comes back");
}

} // namespace

// The input: the grid, the selection and what was copied in the first bytes, then the text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Numbers in(data, size);
    const int rows = in.next(1, 7);
    const GridBlock selected = selection(in, rows);
    const ClipboardRecord copied = record(in);
    if (const auto block = target(copied, selected, rows)) {
        paste(*block, rows, size % 2 != 0 ? QString::fromLatin1(in.rest()) : QString::fromUtf8(in.rest()));
    }
    return 0;
}
