#include "tool/PatchCommand.h"

#include "runtime/FileName.h"
#include "tool/DiffJson.h"
#include "tool/EntryTexts.h"
#include "tool/Files.h"
#include "tool/SheetPatch.h"

using namespace Qt::StringLiterals;

namespace {

void sayRejection(const Rejection &rejection, Session &session)
{
    session.say(ToolText::PatchRejected,
        {partCaption(rejection.part), keyText(rejection.key), toolText(rejection.reason, rejection.arguments)});
}

int runPatch(const QCommandLineParser &parser, Session &session)
{
    const QString fileName = parser.positionalArguments()[0];
    const QString changesName = parser.positionalArguments()[1];
    const InputDocument input = decodeInput(readInput(fileName), session.codePage);
    if (input.failure) {
        session.say(ToolText::CannotRead, {shownFileName(fileName), *input.failure});
        return Failed;
    }
    const InputFile changes = readInput(changesName);
    const ReadDiff diff = changes.failure ? ReadDiff{{}, changes.failure} : diffFromJson(changes.bytes);
    if (diff.failure) {
        session.say(ToolText::PatchNotAChangeList, {shownFileName(changesName), *diff.failure});
        return Failed;
    }
    const PatchedSheet patched = patchSheet(sheetOf(input.document), diff.diff, parser.isSet(u"exact"_s));
    const OutputBytes output = encodeOutput(documentOf(patched.sheet));
    if (output.failure) {
        session.say(*output.failure);
        return Failed;
    }
    for (const Rejection &rejection : patched.rejections) {
        sayRejection(rejection, session);
    }
    const int status = deliver(parser, session, output.bytes);
    return status == Fine && !patched.rejections.isEmpty() ? Found : status;
}

void addPatchOptions(OptionList &options)
{
    addSwitch(options, u"exact"_s, ToolText::PatchExactOption);
    addOutputOption(options);
}

} // namespace

const Command patchCommand{
    "patch"_L1, ToolText::PatchSummary, ToolText::PatchArguments, "FILE CHANGES"_L1, 2, 2, addPatchOptions, runPatch};
