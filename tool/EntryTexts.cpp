#include "tool/EntryTexts.h"

#include "app/services/FindingTexts.h"
#include "document/FieldText.h"
#include "document/ParameterColumn.h"
#include "runtime/NumberText.h"
#include "tool/ToolTexts.h"

using namespace Qt::StringLiterals;

QString partCaption(SheetPart part)
{
    constexpr ToolText captions[] = {
        ToolText::PartMachine, ToolText::PartCapacity, ToolText::PartOption, ToolText::PartParameter};
    return toolText(captions[std::size_t(part)]);
}

QString keyText(const EntryKey &key)
{
    return key.occurrence == 1 ? key.text : key.text + u" #"_s + QString::number(key.occurrence);
}

QString fieldCaption(const SheetPartInfo &part, int field, const EntryKey &key)
{
    const SheetField &info = part.fields[std::size_t(field)];
    if (info.column > 0) {
        return columnCaption(info.column);
    }
    return part.part == SheetPart::Machine ? key.text : QString(info.name);
}

QString shownValue(const SheetPartInfo &part, int field, const QString &value)
{
    const bool isCode = part.fields[std::size_t(field)].column == ParameterColumn::FuncCode;
    return isCode && isNumeric(value) ? functionCodeText(storedFunctionCode(value)) : value;
}

QString shownValues(const SheetPartInfo &part, const EntryChange &change)
{
    QStringList pieces;
    for (int field = 0; field < change.values.size(); ++field) {
        if (!change.values[field].isEmpty()) {
            pieces << fieldCaption(part, field, change.key) + u'=' + shownValue(part, field, change.values[field]);
        }
    }
    return pieces.join(u", "_s);
}

QString movedText(const EntryChange &change)
{
    return change.predecessor ? toolText(ToolText::DiffMoved, {keyText(*change.predecessor)})
                              : toolText(ToolText::DiffMovedFirst);
}

DiffCounts countsOf(const SheetDiff &diff)
{
    DiffCounts counts;
    for (const auto &part : diff.parts) {
        for (const EntryChange &change : part) {
            counts.added += change.kind == EntryChange::Kind::Added ? 1 : 0;
            counts.removed += change.kind == EntryChange::Kind::Removed ? 1 : 0;
            counts.moved += change.isMoved ? 1 : 0;
            counts.changed += change.changes.isEmpty() ? 0 : 1;
        }
    }
    return counts;
}

QString countsText(const DiffCounts &counts)
{
    return toolText(ToolText::DiffCounts,
        {QString::number(counts.changed), QString::number(counts.added), QString::number(counts.removed),
            QString::number(counts.moved)});
}
