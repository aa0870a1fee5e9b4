// What the user of the long day does in the table.

#include "tests/longday/Day.h"

#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A click into these does no more than to go there.
constexpr std::array textColumns{1, 2, 3, 8, 9, 10, 11, 12, 13};
constexpr int maxRows = 40;

} // namespace

void Day::tool(int button)
{
    run({{u"do"_s, u"tool"_s}, {u"text"_s, u"ssrbnEdit(%1)"_s.arg(button)}});
}

void Day::click(int column, int row, bool extend)
{
    run({{u"do"_s, u"click"_s}, {u"column"_s, column}, {u"row"_s, row}, {u"extend"_s, extend}});
}

/// Column 4 to 7: from the next text cell by keys.
void Day::moveTo(int column, int row)
{
    const bool isText = std::ranges::find(textColumns, column) != textColumns.end();
    click(isText ? column : 3, row);
    for (int step = isText ? column : 3; step < column; ++step) {
        press(u"Right"_s);
    }
    window().rows.select({column, row, column, row});
}

bool Day::clickCell()
{
    if (!hasRows()) {
        return false;
    }
    moveTo(oneOf(textColumns), upTo(1, window().rows.rowCount()));
    return true;
}

bool Day::selectBlock()
{
    if (!clickCell()) {
        return false;
    }
    RowsModel &rows = window().rows;
    const int column = rows.activeColumn();
    const int row = rows.activeRow();
    const int last = std::min(RowsModel::columnCount, column + upTo(0, 4));
    const int below = std::min(rows.rowCount(), row + upTo(0, 4));
    for (int step = column; step < last; ++step) {
        press(u"Shift+Right"_s);
    }
    for (int step = row; step < below; ++step) {
        press(u"Shift+Down"_s);
    }
    rows.select({column, row, last, below});
    return true;
}

bool Day::selectRows()
{
    if (!hasRows()) {
        return false;
    }
    RowsModel &rows = window().rows;
    const int row = upTo(1, rows.rowCount());
    const int below = std::min(rows.rowCount(), row + upTo(0, 3));
    click(0, row);
    for (int step = row; step < below; ++step) {
        press(u"Shift+Down"_s);
    }
    rows.select({-1, row, RowsModel::columnCount, below});
    return true;
}

bool Day::selectRowsUpward()
{
    if (!hasRows()) {
        return false;
    }
    RowsModel &rows = window().rows;
    const int last = upTo(1, rows.rowCount());
    const int first = std::max(1, last - upTo(0, 3));
    moveTo(1, last);
    press(u"Shift+Space"_s);
    for (int step = last; step > first; --step) {
        press(u"Shift+Up"_s);
    }
    rows.select({-1, first, RowsModel::columnCount, last});
    return true;
}

/// A command to the active window's table.
template <typename Change>
bool Day::command(Change change)
{
    if (program().active == 0) {
        return false;
    }
    m_model.edit(m_front, change);
    return true;
}

/// What this program put on the clipboard, the other one finds there.
void Day::shareClipboard()
{
    m_model.takeForeignText(1 - m_front, program().clipboard.text);
}

bool Day::typeText()
{
    if (!hasRows()) {
        return false;
    }
    const int column = oneOf(textColumns);
    const int row = upTo(1, window().rows.rowCount());
    moveTo(column, row);
    const QString text = randomText(column);
    say(u"\"%1\" into column %2, row %3"_s.arg(text).arg(column).arg(row));
    run({{u"do"_s, u"type"_s}, {u"text"_s, text}});
    command([&](RowsModel &rows) { rows.type(text.isEmpty() ? rows.text(column, row) : text); });
    return true;
}

bool Day::chooseStep()
{
    if (!hasRows()) {
        return false;
    }
    moveTo(upTo(5, 7), upTo(1, window().rows.rowCount()));
    run({{u"do"_s, u"chooseLast"_s}});
    return command([](RowsModel &rows) { rows.choose(u"0.001"_s); });
}

bool Day::toggle()
{
    if (!hasRows()) {
        return false;
    }
    moveTo(4, upTo(1, window().rows.rowCount()));
    press(u"Space"_s);
    return command([](RowsModel &rows) { rows.toggleCheckBox(); });
}

bool Day::pressDelete()
{
    if (!hasRows()) {
        return false;
    }
    press(u"Del"_s);
    return command([](RowsModel &rows) { rows.clearSelection(); });
}

bool Day::pressEscape()
{
    if (!hasRows()) {
        return false;
    }
    press(u"Esc"_s);
    command([](RowsModel &rows) { rows.forgetClipboard(); });
    program().hasAllButtons = false;
    shareClipboard();
    return true;
}

bool Day::copy()
{
    if (!hasRows()) {
        return false;
    }
    press(u"Ctrl+C"_s);
    command([](RowsModel &rows) { rows.copy(); });
    shareClipboard();
    return true;
}

bool Day::cut()
{
    if (!hasRows()) {
        return false;
    }
    tool(0);
    command([](RowsModel &rows) { rows.cut(); });
    shareClipboard();
    return true;
}

bool Day::paste()
{
    if (!hasRows()) {
        return false;
    }
    window().rows.share(program().clipboard);
    QList<Expected> expected;
    if (window().rows.pasteIsRefused()) {
        say(u"which is refused"_s);
        expected << Expected{u"message"_s, u"Pr Read Condition"_s, u"OK"_s};
    }
    run({{u"do"_s, u"press"_s}, {u"text"_s, u"Ctrl+V"_s}}, expected);
    return command([](RowsModel &rows) { rows.paste(); });
}

bool Day::addPaste()
{
    if (!hasRows() || window().rows.rowCount() > maxRows) {
        return false;
    }
    tool(3);
    return command([](RowsModel &rows) { rows.addPaste(); });
}

bool Day::addLine()
{
    if (program().active == 0 || window().rows.rowCount() > maxRows) {
        return false;
    }
    tool(4);
    return command([](RowsModel &rows) { rows.addLines(1); });
}

bool Day::deleteLines()
{
    if (!hasRows()) {
        return false;
    }
    QList<Expected> expected;
    bool goesOn = true;
    if (window().rows.deletionIsAsked()) {
        goesOn = chance(50);
        expected << Expected{u"question"_s, {}, goesOn ? u"Yes"_s : u"No"_s};
        say(expected.last().answer + u" to all rows"_s);
    }
    run({{u"do"_s, u"tool"_s}, {u"text"_s, u"ssrbnEdit(5)"_s}}, expected);
    return !goesOn || command([](RowsModel &rows) { rows.deleteLines(); });
}

bool Day::undo()
{
    if (program().active == 0) {
        return false;
    }
    press(u"Ctrl+Z"_s);
    return command([](RowsModel &rows) { rows.undo(); });
}

bool Day::redo()
{
    if (program().active == 0) {
        return false;
    }
    press(u"Ctrl+Y"_s);
    return command([](RowsModel &rows) { rows.redo(); });
}

/// The last row of that number.
bool Day::jump()
{
    if (!hasRows()) {
        return false;
    }
    const QString number = randomText(1);
    say(number);
    run({{u"do"_s, u"jump"_s}, {u"text"_s, number}});
    RowsModel &rows = window().rows;
    int row = rows.rowCount();
    while (row > 0 && rows.text(1, row) != number) {
        --row;
    }
    if (row > 0) {
        rows.select({1, row, 1, row});
    }
    return true;
}
