#include "app/EditorSaveHost.h"

#include "app/services/Messages.h"
#include "editor/EditorFrame.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

OwnText cellText(ReadBackFault fault)
{
    switch (fault) {
    case ReadBackFault::Comma:
        return OwnText::CellHasComma;
    case ReadBackFault::LineEnd:
        return OwnText::CellHasLineEnd;
    case ReadBackFault::LeadingQuote:
        return OwnText::CellHasLeadingQuote;
    case ReadBackFault::EdgeSpaces:
        return OwnText::CellHasEdgeSpaces;
    case ReadBackFault::BoundDigits:
        return OwnText::CellHasLongBound;
    default:
        return OwnText::CellHasOtherCharacter;
    }
}

OwnText valueText(ReadBackFault fault)
{
    switch (fault) {
    case ReadBackFault::LineEnd:
        return OwnText::ValueHasLineEnd;
    case ReadBackFault::EdgeSpaces:
        return OwnText::ValueHasEdgeSpaces;
    case ReadBackFault::TooLong:
        return OwnText::ValueIsTooLong;
    case ReadBackFault::EnclosingQuotes:
        return OwnText::ValueHasEnclosingQuotes;
    case ReadBackFault::EmptyEntry:
        return OwnText::ValueIsEmpty;
    case ReadBackFault::ModelNameMissing:
        return OwnText::ModelNameMissing;
    case ReadBackFault::CurrentMissing:
        return OwnText::CurrentMissing;
    case ReadBackFault::CapacityMissing:
        return OwnText::CapacityMissing;
    default:
        return OwnText::ValueHasOtherCharacter;
    }
}

/// On one line and short enough for a list; a dash if it is empty.
QString shortened(const QString &text)
{
    constexpr qsizetype maxLength = 20;
    const QString line = text.simplified();
    if (line.isEmpty()) {
        return u"\u2013"_s;
    }
    return line.size() > maxLength ? line.first(maxLength) + u'…' : line;
}

} // namespace

bool EditorSaveHost::askYesNo(const QString &question, const QString &title)
{
    const bool isYes = m_host.askYesNo(question, title);
    m_isDeclined = m_isDeclined || !isYes;
    return isYes;
}

bool EditorSaveHost::askToReplace(const Failure &obstacle, const QString &title)
{
    return askYesNo(failureText(obstacle), title);
}

bool EditorSaveHost::askToWrite(const QList<ReadBackFinding> &findings, const QString &title)
{
    constexpr qsizetype maxLines = 5;
    QStringList lines;
    for (const ReadBackFinding &finding : findings.first(std::min(findings.size(), maxLines))) {
        lines << u"\u2022 "_s + line(finding);
    }
    const bool isAll = lines.size() == findings.size();
    return askYesNo(ownText(isAll ? OwnText::ReadBackQuestion : OwnText::ReadBackQuestionOfMany,
                        {QString::number(findings.size()), lines.join(u'\n')}),
        title);
}

QString EditorSaveHost::line(const ReadBackFinding &finding) const
{
    const CellPosition &cell = finding.cell;
    if (cell.row == 0) {
        return ownText(valueText(finding.fault), {finding.name});
    }
    const QString caption = m_editor.vaspdParam().text(cell.column, 0);
    return ownText(cellText(finding.fault), {QString::number(cell.row), shortened(finding.name), caption});
}

/// A hidden column's cell is shown by its row's number.
void EditorSaveHost::showCell(const CellPosition &cell)
{
    m_frame.makeActive(m_editor);
    SpreadGrid &grid = m_editor.vaspdParam();
    if (cell.row > 0) {
        grid.setActiveCell(grid.isColumnShown(cell.column) ? cell.column : int(ParameterColumn::Number), cell.row);
    }
    grid.setFocus();
}
