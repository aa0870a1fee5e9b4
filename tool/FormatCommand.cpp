#include "tool/FormatCommand.h"

#include "app/services/Messages.h"
#include "check/FileCheck.h"
#include "check/SavedForm.h"
#include "runtime/FileName.h"
#include "tool/FileWork.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct FormatOptions
{
    bool isInPlace;
    bool isCheck;
    bool isForced;
};

FileResult failed(const InputFile &input, const QString &reason)
{
    return {{}, {toolText(ToolText::CannotRead, {shownFileName(input.name), reason})}, Failed};
}

qsizetype errorsIn(const InputFile &input, std::optional<int> codePage)
{
    const Findings findings = checkFile(input.bytes, pageOfInput(input.bytes, codePage), input.name);
    return std::ranges::count_if(
        findings, [](const Finding &finding) { return checkInfo(finding.id).severity == Severity::Error; });
}

/// The bytes that the file would have after an open and a save.
OutputBytes formatted(const InputFile &input, std::optional<int> codePage)
{
    const InputDocument decoded = decodeInput(input, codePage);
    if (decoded.failure) {
        return {{}, decoded.failure};
    }
    const auto saved = savedForm(decoded.document);
    return saved ? encodeOutput(*saved) : OutputBytes{{}, ownText(OwnText::Overflow)};
}

FileResult format(const InputFile &input, const FormatOptions &options, std::optional<int> codePage)
{
    const OutputBytes result = formatted(input, codePage);
    if (result.failure) {
        return failed(input, *result.failure);
    }
    const bool isSame = result.bytes == input.bytes;
    if (options.isCheck) {
        return {isSame ? QByteArray() : shownFileName(input.name).toUtf8() + '\n', {}, isSame ? Fine : Found};
    }
    if (const qsizetype errors = isSame || options.isForced ? 0 : errorsIn(input, codePage); errors > 0) {
        return {
            {}, {toolText(ToolText::FormatWouldLose, {shownFileName(input.name), QString::number(errors)})}, Failed};
    }
    if (!options.isInPlace) {
        return {result.bytes};
    }
    const auto failure = isSame ? std::nullopt : writeOutput(input.name, result.bytes);
    return failure ? FileResult{{}, {toolText(ToolText::CannotWrite, {shownFileName(input.name), *failure})}, Failed}
                   : FileResult();
}

int runFormat(const QCommandLineParser &parser, Session &session)
{
    const FormatOptions options{parser.isSet(u"in-place"_s), parser.isSet(u"check"_s), parser.isSet(u"force"_s)};
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1 && !options.isInPlace && !options.isCheck) {
        session.say(ToolText::FormatOneFile);
        return Failed;
    }
    if (options.isInPlace && files.contains(u"-"_s)) {
        session.say(ToolText::FormatNoInput);
        return Failed;
    }
    const auto work = [&options, &session](const InputFile &input) { return format(input, options, session.codePage); };
    return workOnFiles(files, work, session);
}

void addFormatOptions(OptionList &options)
{
    addSwitch(options, u"in-place"_s, ToolText::FormatInPlaceOption);
    addSwitch(options, u"check"_s, ToolText::FormatCheckOption);
    addSwitch(options, u"force"_s, ToolText::FormatForceOption);
}

} // namespace

const Command formatCommand{"format"_L1, ToolText::FormatSummary, ToolText::ArgumentFiles, "FILE..."_L1, 1, manyFiles,
    addFormatOptions, runFormat};
