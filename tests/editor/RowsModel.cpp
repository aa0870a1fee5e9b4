#include "tests/editor/RowsModel.h"

#include "tests/editor/RowsFile.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int checkBoxColumn = 4;
constexpr int lastResetColumn = 12;

QStringList lines(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

} // namespace

RowsModel::RowsModel(std::vector<Row> rows) : m_rows(std::move(rows)), m_red(m_rows.size())
{
    if (m_rows.empty()) {
        m_selection = {0, 0, 0, 0};
        m_activeColumn = m_activeRow = 0;
    }
}

RowsModel RowsModel::asRecovered() const
{
    RowsModel copy(m_rows);
    copy.m_red = m_red;
    copy.m_changed = true;
    copy.m_savedNumber = -1; // no state is that of a file
    return copy;
}

void RowsModel::select(const GridBlock &block)
{
    if (!m_rows.empty()) {
        m_selection = block;
        m_activeColumn = std::max(block.column1, 1);
        m_activeRow = block.row1;
    }
}

// Acts

RowsModel::Act::Act(RowsModel &model) : m_model(model), m_before(model.state()), m_selection(model.m_selection)
{
    if (model.m_actDepth++ == 0) {
        model.m_touched.reset();
    }
}

RowsModel::Act::~Act()
{
    if (--m_model.m_actDepth == 0) {
        m_model.finishAct(std::move(m_before), m_selection);
    }
}

void RowsModel::finishAct(State before, const GridBlock &selection)
{
    if (before.rows == m_rows && before.red == m_red) {
        return;
    }
    Step step{std::move(before), selection, m_selection};
    if (step.other.rows.size() == m_rows.size()) {
        if (m_touched->column1 == 1 && m_touched->column2 == columnCount) {
            m_touched->column1 = -1;
        }
        step.selectedByUndo = step.selectedByRedo = *m_touched;
    }
    m_undo.push_back(std::move(step));
    m_redo.clear();
    m_stateNumber = ++m_lastNumber;
}

void RowsModel::undo()
{
    go(m_undo, m_redo, &Step::selectedByUndo);
}

void RowsModel::redo()
{
    go(m_redo, m_undo, &Step::selectedByRedo);
}

void RowsModel::go(std::vector<Step> &from, std::vector<Step> &to, GridBlock Step::*selected)
{
    if (from.empty()) {
        return;
    }
    Step step = std::move(from.back());
    from.pop_back();
    const State now = state();
    m_rows = step.other.rows;
    m_red = step.other.red;
    m_stateNumber = step.other.number;
    m_changed = m_stateNumber != m_savedNumber;
    if (m_rows.empty()) {
        m_selection = {0, 0, 0, 0};
        m_activeColumn = m_activeRow = 0;
    } else {
        select(step.*selected);
    }
    step.other = now;
    to.push_back(std::move(step));
}

void RowsModel::save()
{
    m_savedNumber = m_stateNumber;
    m_changed = false;
}

void RowsModel::redden(const GridBlock &block)
{
    for (int row = block.row1; row <= block.row2; ++row) {
        for (int column = block.column1; column <= block.column2; ++column) {
            m_red.at(size_t(row - 1)).at(size_t(column - 1)) = true;
        }
    }
    m_touched = block;
}

void RowsModel::takeForeignText(const QString &text)
{
    if (text != m_shared.text) {
        m_shared.copied = Copied::Nothing;
    }
    m_shared.text = text;
    m_shared.canPaste = !text.isEmpty();
    m_shared.canAddPaste = m_shared.canPaste && m_shared.copied == Copied::Rows;
}

void RowsModel::selectUpward(int row1, int row2)
{
    select({1, row2, 1, row2});
    m_selection.row1 = row1; // the active cell stays where it was begun
}

void RowsModel::forgetClipboard()
{
    m_shared.copied = Copied::Nothing;
    takeForeignText(QString());
}

QString RowsModel::joined(int column1, int row1, int column2, int row2) const
{
    QStringList rows;
    for (int row = row1; row <= row2; ++row) {
        QStringList cells;
        for (int column = column1; column <= column2; ++column) {
            cells << (column == 0 ? QString::number(row) : text(column, row));
        }
        rows << cells.join(u'\t');
    }
    return rows.join(u"\r\n"_s);
}

void RowsModel::copy()
{
    if (m_rows.empty()) {
        return;
    }
    const bool isRows = m_selection.column1 == -1;
    const bool isCell = m_selection.column1 == m_selection.column2 && m_selection.row1 == m_selection.row2;
    m_shared.copied = isRows ? Copied::Rows : isCell ? Copied::Cell : Copied::Block;
    m_shared.width = isRows ? 0 : m_selection.column2 - m_selection.column1;
    m_shared.height = m_selection.row2 - m_selection.row1;
    const int firstColumn = isRows ? 0 : m_selection.column1;
    m_shared.text = joined(firstColumn, m_selection.row1, m_selection.column2, m_selection.row2);
    m_shared.canPaste = true;
    m_shared.canAddPaste = m_shared.canAddPaste || isRows;
}

void RowsModel::cut()
{
    if (m_rows.empty()) {
        return;
    }
    const Act act(*this);
    copy();
    clearSelection();
    m_changed = true;
}

void RowsModel::clearSelection()
{
    if (m_rows.empty()) {
        return;
    }
    const Act act(*this);
    for (int row = m_selection.row1; row <= m_selection.row2; ++row) {
        for (int column = std::max(m_selection.column1, 1); column <= m_selection.column2; ++column) {
            change(column, row, column == checkBoxColumn ? u"0"_s : QString());
        }
    }
}

bool RowsModel::pasteIsRefused() const
{
    const bool isCell = m_selection.column1 == m_selection.column2 && m_selection.row1 == m_selection.row2;
    const bool fits = m_selection.column1 + m_shared.width == m_selection.column2
        && m_selection.row1 + m_shared.height == m_selection.row2;
    return !m_rows.empty() && m_shared.copied == Copied::Block && !m_shared.text.isEmpty() && !isCell && !fits;
}

void RowsModel::paste()
{
    if (m_rows.empty() || m_shared.text.isEmpty() || pasteIsRefused()) {
        return;
    }
    const Act act(*this);
    if (m_shared.copied == Copied::Block) {
        pasteBlock();
    } else if (m_shared.copied == Copied::Rows) {
        pasteRows();
    } else {
        redden({m_activeColumn, m_activeRow, m_activeColumn, m_activeRow});
        at(m_activeColumn, m_activeRow) = m_shared.copied == Copied::Cell ? m_shared.text : foreignText();
    }
    m_changed = true;
}

// The one line end that a spreadsheet puts after a single cell is not part of its text.
QString RowsModel::foreignText() const
{
    const QStringList parts = lines(m_shared.text);
    return parts.size() == 2 && parts.last().isEmpty() ? parts.first() : m_shared.text;
}

void RowsModel::pasteBlock()
{
    const int column2 = std::min(m_selection.column1 + m_shared.width, columnCount);
    const int row2 = std::min(m_selection.row1 + m_shared.height, rowCount());
    select({m_selection.column1, m_selection.row1, column2, row2});
    place(m_selection.column1, m_selection.row1, column2, row2, 0);
}

// The numbers before the copied rows are no cells.
void RowsModel::pasteRows()
{
    place(1, m_selection.row1, columnCount, std::min(m_selection.row1 + m_shared.height, rowCount()), 1);
}

// A line end after the last row is a row of its own only if a row may be one empty cell.
void RowsModel::place(int column1, int row1, int column2, int row2, int dropped)
{
    redden({column1, row1, column2, row2});
    QStringList rows = lines(m_shared.text);
    if (rows.size() > 1 && rows.last().isEmpty() && column1 != column2) {
        rows.removeLast();
    }
    for (int row = row1; row <= row2 && row - row1 < rows.size(); ++row) {
        const QStringList cells = rows.at(row - row1).split(u'\t').mid(dropped);
        for (int column = column1; column <= column2 && column - column1 < cells.size(); ++column) {
            at(column, row) = cells.at(column - column1);
        }
    }
}

void RowsModel::addPaste()
{
    if (m_shared.copied != Copied::Rows || m_shared.text.isEmpty() || !m_shared.canAddPaste) {
        return;
    }
    const Act act(*this);
    addLines(m_shared.height + 1);
    paste();
}

void RowsModel::addLines(int lines)
{
    const Act act(*this);
    const std::vector<Row> before = m_rows;
    m_rows.resize(before.size() + size_t(lines));
    m_red.resize(m_rows.size());
    m_changed = true;
    if (before.empty()) {
        for (int row = 1; row <= lines; ++row) {
            clearRow(row);
        }
        select({1, 1, 1, 1});
        return;
    }
    for (size_t row = size_t(m_selection.row1 - 1); row < before.size(); ++row) {
        m_rows[row + size_t(lines)] = before[row];
    }
    clearRow(m_selection.row1);
}

// The read condition stays: it is that of the row that was here before.
void RowsModel::clearRow(int row)
{
    const QStringList texts{{}, {}, {}, u"0"_s, u"No"_s, u"No"_s, u"No"_s, {}, {}, u"0"_s, u"0000"_s, u"0"_s};
    for (int column = 1; column <= lastResetColumn; ++column) {
        at(column, row) = texts.at(column - 1);
    }
}

void RowsModel::deleteLines()
{
    if (rowCount() <= 2) {
        return;
    }
    const Act act(*this);
    m_rows.erase(m_rows.begin() + (m_selection.row1 - 1), m_rows.begin() + m_selection.row2);
    m_red.resize(m_rows.size()); // colours stay where they are
    m_changed = true;
    const int row = std::min(m_selection.row1, rowCount());
    if (row == 0) {
        m_selection = {0, 0, 0, 0};
        m_activeColumn = m_activeRow = 0;
    } else {
        select({m_activeColumn, row, m_activeColumn, row});
    }
}

void RowsModel::type(const QString &text)
{
    {
        const Act act(*this);
        change(m_activeColumn, m_activeRow, text);
    }
    const int below = std::min(m_activeRow + 1, rowCount());
    select({m_activeColumn, below, m_activeColumn, below});
}

void RowsModel::choose(const QString &text)
{
    const Act act(*this);
    change(m_activeColumn, m_activeRow, text);
}

void RowsModel::toggleCheckBox()
{
    const Act act(*this);
    const bool ticked = RowsFile::isTicked(text(m_activeColumn, m_activeRow));
    change(m_activeColumn, m_activeRow, ticked ? u"0"_s : u"1"_s);
}

void RowsModel::fillDown()
{
    const Act act(*this);
    const int source = m_selection.row1 == m_selection.row2 ? m_selection.row1 - 1 : m_selection.row1;
    for (int row = source + 1; source > 0 && row <= m_selection.row2; ++row) {
        for (int column = m_selection.column1; column <= m_selection.column2; ++column) {
            if (text(column, row) != text(column, source)) {
                at(column, row) = text(column, source);
                m_red.at(size_t(row - 1)).at(size_t(column - 1)) = true;
                m_changed = true;
            }
        }
    }
    m_touched = m_selection;
}

// The block around all changes of the action is red, with what is between them.
void RowsModel::change(int column, int row, const QString &text)
{
    QString &cell = at(column, row);
    if (cell != text) {
        const GridBlock block = m_touched.value_or(GridBlock{column, row, column, row});
        redden({std::min(block.column1, column), std::min(block.row1, row), std::max(block.column2, column),
            std::max(block.row2, row)});
        cell = text;
        m_changed = true;
    }
}
