#include "editor/GridFilling.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"
#include "document/ParameterColumns.h"
#include "editor/Clipboard.h"
#include "editor/FillLimits.h"
#include "editor/FillSeries.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "grid/RedrawOff.h"
#include "grid/SpreadGrid.h"
#include "grid/UndoStep.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Ranges and conditions are codes rather than numbers, and a count belongs to its conditions.
SeriesRule seriesRule(int column)
{
    using namespace ParameterColumn;
    switch (column) {
    case ParameterColumn::SettingRange:
    case ConditionCount:
    case Condition:
        return SeriesRule::RepeatsOne;
    case FuncCode:
        return SeriesRule::Hexadecimal;
    default:
        return SeriesRule::Counts;
    }
}

/// Most texts are copies of the same one.
bool isSame(const QString &one, const QString &other)
{
    return one.isSharedWith(other) || one == other;
}

/// What cells of one type take of a text. Most often the same text goes into many cells, and is adapted once.
class AdaptedText
{
public:
    explicit AdaptedText(CellType type) : m_type(std::move(type)) { }

    const QString &of(const QString &text)
    {
        if (!m_given || !isSame(text, *m_given)) {
            m_given = text;
            m_adapted = filledText(m_type, text);
            if (m_adapted == text) {
                m_adapted = text; // the same one, by which the many cells can tell
            }
        }
        return m_adapted;
    }

private:
    CellType m_type;
    std::optional<QString> m_given;
    QString m_adapted;
};

/// What an added row holds in the column.
QStringView newText(int column)
{
    return parameterColumns.at(size_t(column - 1)).newText;
}

} // namespace

GridFilling::GridFilling(SpreadGrid &grid, OpenDocument &document, QObject *parent)
    : QObject(parent), m_grid(grid), m_document(document)
{
}

void GridFilling::fill(SpreadGrid::Fill way)
{
    using Fill = SpreadGrid::Fill;
    if (way != Fill::Selection) { // an open editor holds the text that is filled in
        m_grid.commitEdit();
    }
    if (m_grid.activeRow() == 0) {
        return;
    }
    Filling filling = way == Fill::Down ? downward()
        : way == Fill::Right            ? rightward()
        : way == Fill::Series           ? series()
                                        : everywhere();
    if (filling.columns.empty()) {
        return;
    }
    adaptToCells(filling);
    const QString refusal = firstRefusal(filling);
    if (!refusal.isEmpty()) {
        MessageBox::showExclamation(&m_grid, refusal, ResString(Text::ProgramName));
        return;
    }
    m_grid.dropEdit();
    write(filling);
}

// What is selected

GridBlock GridFilling::selectedCells() const
{
    GridBlock cells = m_grid.selectedBlock();
    cells.column1 = std::max(cells.column1, 1);
    return cells;
}

// A block of cells means the visible ones; whole rows are parameters, of which no column may be left out.
std::vector<int> GridFilling::selectedColumns() const
{
    const bool wholeRows = m_grid.selectedBlock().isWholeRows();
    const GridBlock cells = selectedCells();
    std::vector<int> columns;
    for (int column = cells.column1; column <= cells.column2; ++column) {
        if (wholeRows || m_grid.isColumnShown(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}

std::vector<QString> GridFilling::texts(int column, int row1, int row2) const
{
    std::vector<QString> texts;
    for (int row = std::max(row1, 1); row <= row2; ++row) {
        texts.push_back(m_grid.text(column, row));
    }
    return texts;
}

CellType GridFilling::cellType(int column) const
{
    return m_grid.cellType(column, selectedCells().row1);
}

// What cells are to hold

GridFilling::Filling GridFilling::downward() const
{
    const GridBlock cells = selectedCells();
    const int source = cells.row1 == cells.row2 ? cells.row1 - 1 : cells.row1;
    Filling filling{.row1 = source + 1, .columns = {}};
    if (source > 0) {
        for (const int column : selectedColumns()) {
            filling.columns[column].texts = Texts(size_t(cells.row2 - source), m_grid.text(column, source));
        }
    }
    return filling;
}

// The columns of a row have nothing in common that could be filled from the first one into all of them.
GridFilling::Filling GridFilling::rightward() const
{
    const GridBlock cells = selectedCells();
    std::vector<int> columns = selectedColumns();
    Filling filling{.row1 = cells.row1, .columns = {}};
    if (columns.empty() || m_grid.selectedBlock().isWholeRows()) {
        return filling;
    }
    int source = columns.front();
    if (columns.size() > 1) {
        columns.erase(columns.begin());
    } else {
        do {
            --source;
        } while (source > 0 && !m_grid.isColumnShown(source));
    }
    if (source > 0) {
        const std::vector<QString> sources = texts(source, cells.row1, cells.row2);
        for (const int column : columns) {
            filling.columns[column].texts = Texts(sources.begin(), sources.end());
        }
    }
    return filling;
}

// A text that another program copied goes into one cell at most.
GridFilling::Filling GridFilling::everywhere() const
{
    const GridBlock cells = selectedCells();
    Filling filling{.row1 = cells.row1, .columns = {}};
    std::optional<QString> text = m_grid.editorText();
    if (!text) {
        const QString copied = readClipboard();
        if (clipboardRecord().kind != ClipboardRecord::OneCell) {
            return filling;
        }
        text = copied;
    }
    for (const int column : selectedColumns()) {
        filling.columns[column].texts = Texts(size_t(cells.row2 - cells.row1 + 1), text);
    }
    return filling;
}

GridFilling::Filling GridFilling::series() const
{
    const GridBlock cells = selectedCells();
    Filling filling{.row1 = cells.row1, .columns = {}};
    for (const int column : selectedColumns()) {
        Texts texts = cells.row1 == cells.row2 ? textsFromAbove(column, cells.row1) : seriesTexts(column, cells);
        if (!texts.empty()) {
            filling.columns[column].texts = std::move(texts);
        }
    }
    return filling;
}

GridFilling::Texts GridFilling::seriesTexts(int column, const GridBlock &cells) const
{
    std::vector<QString> given = texts(column, cells.row1, cells.row2);
    const auto places = given.size();
    given.resize(size_t(givenTexts(given, newText(column))));
    if (given.empty()) {
        return {};
    }
    Texts filled(given.begin(), given.end());
    const FillSeries series(given, cellType(column), seriesRule(column));
    for (int place = 0; filled.size() < places; ++place) {
        filled.push_back(series.at(place));
    }
    return filled;
}

// The two cells above say how to continue; if they form no series, the one above alone does.
GridFilling::Texts GridFilling::textsFromAbove(int column, int row) const
{
    std::vector<QString> given = texts(column, row - 2, row - 1);
    if (given.empty() || given.back().isEmpty()) {
        return {};
    }
    const CellType type = cellType(column);
    const FillSeries ofTwo(given, type, seriesRule(column));
    if (ofTwo.counts()) {
        return {ofTwo.at(0)};
    }
    return {FillSeries({given.back()}, type, seriesRule(column)).at(0)};
}

// What they take

void GridFilling::adaptToCells(Filling &filling) const
{
    for (auto &[number, column] : filling.columns) {
        AdaptedText adapted(cellType(number));
        column.isNew.resize(column.texts.size());
        for (size_t at = 0; auto &text : column.texts) {
            const QStringView present = m_grid.cellText(number, filling.row1 + int(at));
            bool isNew = !text || *text != present;
            if (text && isNew) {
                const QString &taken = adapted.of(*text);
                if (!taken.isSharedWith(*text)) {
                    text = taken;
                    isNew = taken != present;
                }
            }
            column.isNew[at] = isNew;
            ++at;
        }
    }
}

QString GridFilling::refusalText(int column, int row, const std::optional<QString> &text) const
{
    QStringList arguments{QString::number(row), m_grid.text(column, 0)};
    if (!text) {
        return ownText(OwnText::FillSeriesEnd, arguments);
    }
    const CellType type = cellType(column);
    const auto refusal = fillRefusal(type, *text);
    if (!refusal) {
        return {};
    }
    switch (*refusal) {
    case FillRefusal::NotInRange:
        return ownText(
            OwnText::FillNotInRange, arguments << QString::number(type.minimum) << QString::number(type.maximum));
    case FillRefusal::TooLong:
        return ownText(OwnText::FillTooLong, arguments << QString::number(type.maxLength));
    case FillRefusal::NoChoice:
        return ownText(OwnText::FillNoChoice,
            arguments << (type.kind == CellType::Kind::CheckBox ? u"0, 1"_s
                                                                : (type.items + type.unlisted).join(u", "_s)));
    case FillRefusal::LineBreak:
        break;
    }
    return ownText(OwnText::FillLineBreak, arguments);
}

// A text that the cell has already is not refused.
QString GridFilling::firstRefusal(const Filling &filling) const
{
    for (const auto &[number, column] : filling.columns) {
        const QString *accepted = nullptr;
        for (size_t at = 0; at < column.texts.size(); ++at) {
            const auto &text = column.texts[at];
            if (column.isNew[at] && !(accepted && text && isSame(*text, *accepted))) {
                QString refusal = refusalText(number, filling.row1 + int(at), text);
                if (!refusal.isEmpty()) {
                    return refusal;
                }
                accepted = text ? &*text : nullptr;
            }
        }
    }
    return {};
}

// The cells take it

void GridFilling::write(const Filling &filling)
{
    const UndoStep step(m_grid.history());
    const RedrawOff redrawOff(m_grid);
    m_grid.history().keepSelection();
    if (!colourChanged(filling)) {
        return;
    }
    const int firstColumn = filling.columns.begin()->first;
    const int lastColumn = filling.columns.rbegin()->first;
    std::vector<const Texts *> columns(size_t(lastColumn - firstColumn + 1));
    for (const auto &[number, column] : filling.columns) {
        columns[size_t(number - firstColumn)] = &column.texts;
    }
    const int row2 = filling.row1 + int(columns.front()->size()) - 1;
    m_grid.setTexts({firstColumn, filling.row1, lastColumn, row2}, [&](int column, int row) -> QStringView {
        const Texts *texts = columns[size_t(column - firstColumn)];
        return texts ? QStringView(*(*texts)[size_t(row - filling.row1)]) : m_grid.cellText(column, row);
    });
    m_document.markChanged();
}

// Only cells whose text becomes another one: the colour is for finding changes.
bool GridFilling::colourChanged(const Filling &filling)
{
    bool any = false;
    for (const auto &[number, column] : filling.columns) {
        const auto &isNew = column.isNew;
        auto begin = std::ranges::find(isNew, true);
        while (begin != isNew.end()) {
            const auto end = std::find(begin, isNew.end(), false);
            const int row1 = filling.row1 + int(begin - isNew.begin());
            const int row2 = filling.row1 + int(end - isNew.begin()) - 1;
            m_grid.setTextColour({number, row1, number, row2}, QColor(changedCellColour));
            any = true;
            begin = std::find(end, isNew.end(), true);
        }
    }
    return any;
}
