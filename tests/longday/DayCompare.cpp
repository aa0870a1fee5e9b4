#include "tests/longday/DayCompare.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

QStringList texts(const QJsonValue &array)
{
    QStringList list;
    const QJsonArray values = array.toArray();
    for (const auto &text : values) {
        list << text.toString();
    }
    return list;
}

QString differs(const QString &what, const QString &shown, const QString &wanted)
{
    return shown == wanted ? QString() : u"%1 is \"%2\" instead of \"%3\""_s.arg(what, shown, wanted);
}

QString differs(const QString &what, bool shown, bool wanted)
{
    return differs(what, shown ? u"on"_s : u"off"_s, wanted ? u"on"_s : u"off"_s);
}

QString first(std::initializer_list<QString> differences)
{
    for (const QString &difference : differences) {
        if (!difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

QString colours(const RowsModel &rows, int row)
{
    QString colours;
    for (int column = 1; column <= RowsModel::columnCount; ++column) {
        colours += rows.isRed(column, row) ? u'1' : u'0';
    }
    return colours;
}

QString rowDifference(const RowsModel &rows, const QJsonObject &shown)
{
    const QJsonArray shownTexts = shown[u"rows"_s].toArray();
    if (shownTexts.size() != rows.rowCount()) {
        return u"%1 rows instead of %2"_s.arg(shownTexts.size()).arg(rows.rowCount());
    }
    for (int row = 1; row <= rows.rowCount(); ++row) {
        const QJsonArray cells = shownTexts[row - 1].toArray();
        for (int column = 1; column <= RowsModel::columnCount; ++column) {
            const QString cell = cells[column - 1].toString();
            if (cell != rows.text(column, row)) {
                return differs(u"column %1, row %2"_s.arg(column).arg(row), cell, rows.text(column, row));
            }
        }
        const QString red = differs(
            u"colours of row %1"_s.arg(row), shown[u"colours"_s].toArray()[row - 1].toString(), colours(rows, row));
        if (!red.isEmpty()) {
            return red;
        }
    }
    return {};
}

QString selectionText(const GridBlock &block, int column, int row)
{
    return u"%1,%2-%3,%4 at %5,%6"_s.arg(block.column1)
        .arg(block.row1)
        .arg(block.column2)
        .arg(block.row2)
        .arg(column)
        .arg(row);
}

QString selectionDifference(const RowsModel &rows, const QJsonObject &shown)
{
    const QJsonArray block = shown[u"selection"_s].toArray();
    const QJsonArray cell = shown[u"cell"_s].toArray();
    const GridBlock selection{block[0].toInt(), block[1].toInt(), block[2].toInt(), block[3].toInt()};
    return differs(u"the selection"_s, selectionText(selection, cell[0].toInt(), cell[1].toInt()),
        selectionText(rows.selection(), rows.activeColumn(), rows.activeRow()));
}

QString windowDifference(const DayWindow &window, const QJsonObject &shown)
{
    const QString difference = first({differs(u"the caption"_s, shown[u"caption"_s].toString(), window.caption),
        rowDifference(window.rows, shown), selectionDifference(window.rows, shown),
        differs(u"the changed mark"_s, shown[u"changed"_s].toBool(), window.rows.isChanged()),
        differs(u"its recent files"_s, texts(shown[u"recent"_s]).join(u" | "_s), window.recent.join(u" | "_s))});
    return difference.isEmpty() ? QString() : u"window %1: "_s.arg(window.number) + difference;
}

QString numbers(const DayProgram &program)
{
    QStringList list;
    for (const DayWindow &window : program.windows) {
        list << QString::number(window.number);
    }
    return list.join(u' ');
}

QString numbers(const QJsonArray &windows)
{
    QStringList list;
    for (const auto &window : windows) {
        list << QString::number(window.toObject()[u"number"_s].toInt());
    }
    return list.join(u' ');
}

QString activeNumber(const RowsModel &rows)
{
    return rows.rowCount() > 0 ? rows.text(1, rows.activeRow()) : QString();
}

/// What the frame shows of the active window; neither count nor number without one.
QString activeDifference(const DayProgram &program, const QJsonObject &shown, const QJsonObject &window)
{
    const auto active = std::ranges::find(program.windows, program.active, &DayWindow::number);
    if (active == program.windows.end()) {
        return first({differs(u"the count"_s, shown[u"count"_s].toString(), QString()),
            differs(u"the Pr box"_s, shown[u"pr"_s].toString(), QString())});
    }
    const RowsModel::Clipboard &clipboard = program.clipboard;
    return first({differs(u"the count"_s, shown[u"count"_s].toString(), QString::number(active->rows.rowCount())),
        differs(u"the Pr box"_s, shown[u"pr"_s].toString(), activeNumber(active->rows)),
        differs(u"Paste's button"_s, shown[u"paste"_s].toBool(), clipboard.canPaste || program.hasAllButtons),
        differs(u"Add-paste's button"_s, shown[u"addPaste"_s].toBool(), clipboard.canAddPaste || program.hasAllButtons),
        differs(u"Paste in the menu"_s, window[u"paste"_s].toBool(), clipboard.canPaste),
        differs(u"Add-paste in the menu"_s, window[u"addPaste"_s].toBool(), clipboard.canAddPaste)});
}

} // namespace

QString differenceFrom(const DayProgram &program, const QJsonObject &shown)
{
    const QJsonArray windows = shown[u"windows"_s].toArray();
    const QString frame = first({differs(u"the list of windows"_s, numbers(windows), numbers(program)),
        differs(u"the active window"_s, QString::number(shown[u"active"_s].toInt()), QString::number(program.active)),
        differs(u"being minimised"_s, shown[u"minimised"_s].toBool(), program.isMinimised),
        differs(
            u"the list of recent files"_s, texts(shown[u"recent"_s]).join(u" | "_s), program.recent.join(u" | "_s))});
    if (!frame.isEmpty()) {
        return frame;
    }
    for (size_t i = 0; i < program.windows.size(); ++i) {
        const QJsonObject window = windows[qsizetype(i)].toObject();
        const QString difference = program.windows[i].number == program.active
            ? first({windowDifference(program.windows[i], window), activeDifference(program, shown, window)})
            : windowDifference(program.windows[i], window);
        if (!difference.isEmpty()) {
            return difference;
        }
    }
    return {};
}

std::vector<RowsModel::Row> shownRows(const QJsonObject &window)
{
    std::vector<RowsModel::Row> rows;
    const QJsonArray shown = window[u"rows"_s].toArray();
    for (const auto &texts : shown) {
        RowsModel::Row row;
        for (size_t column = 0; column < row.size(); ++column) {
            row.at(column) = texts.toArray()[qsizetype(column)].toString();
        }
        rows.push_back(row);
    }
    return rows;
}

bool shows(const QJsonObject &window, const QString &caption, const RowsModel &rows)
{
    return window[u"caption"_s].toString() == caption && rowDifference(rows, window).isEmpty();
}
