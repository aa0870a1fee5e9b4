#include "tool/MergeCommand.h"

#include "runtime/FileName.h"
#include "tool/EntryTexts.h"
#include "tool/Files.h"
#include "tool/SheetMerge.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString conflictText(const MergeConflict &conflict)
{
    const QString part = partCaption(conflict.part);
    const QString key = keyText(conflict.key);
    switch (conflict.kind) {
    case MergeConflict::Kind::RemovedByUs:
        return toolText(ToolText::ConflictRemovedByUs, {part, key});
    case MergeConflict::Kind::RemovedByThem:
        return toolText(ToolText::ConflictRemovedByThem, {part, key});
    case MergeConflict::Kind::Order:
        return toolText(ToolText::ConflictOrder, {part, key});
    case MergeConflict::Kind::Value:
        break;
    }
    const SheetPartInfo &info = sheetPart(conflict.part);
    const auto shown = [&info, &conflict](const QString &value) {
        return value.isNull() ? toolText(ToolText::NoValue) : shownValue(info, conflict.field, value);
    };
    return toolText(ToolText::ConflictValue,
        {part, key, fieldCaption(info, conflict.field, conflict.key), shown(conflict.base), shown(conflict.ours),
            shown(conflict.theirs)});
}

/// The three sheets; std::nullopt if one cannot be read, which the user has been told then.
std::optional<std::array<Sheet, 3>> readSheets(const QStringList &names, Session &session)
{
    std::array<Sheet, 3> sheets;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const QString &name = names[qsizetype(i)];
        const InputDocument input = decodeInput(readInput(name), session.codePage);
        if (input.failure) {
            session.say(ToolText::CannotRead, {shownFileName(name), *input.failure});
            return std::nullopt;
        }
        sheets.at(i) = sheetOf(input.document);
    }
    return sheets;
}

int runMerge(const QCommandLineParser &parser, Session &session)
{
    const auto sheets = readSheets(parser.positionalArguments(), session);
    if (!sheets) {
        return Failed;
    }
    const auto &[base, ours, theirs] = *sheets;
    const MergedSheet merged = mergeSheets(base, ours, theirs);
    const OutputBytes output = encodeOutput(documentOf(merged.sheet));
    if (output.failure) {
        session.say(*output.failure);
        return Failed;
    }
    const QString name = parser.value(u"name"_s);
    for (const MergeConflict &conflict : merged.conflicts) {
        session.say((name.isEmpty() ? QString() : shownFileName(name) + u": "_s) + conflictText(conflict));
    }
    const int status = deliver(parser, session, output.bytes);
    return status == Fine && !merged.conflicts.isEmpty() ? Found : status;
}

void addMergeOptions(OptionList &options)
{
    addValueOption(options, u"name"_s, ToolText::MergeNameOption, u"NAME"_s);
    addOutputOption(options);
}

} // namespace

const Command mergeCommand{"merge"_L1, ToolText::MergeSummary, ToolText::MergeArguments, "BASE OURS THEIRS"_L1, 3, 3,
    addMergeOptions, runMerge};
