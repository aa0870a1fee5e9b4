#include "tool/ConvertCommand.h"

#include "app/services/Messages.h"
#include "check/SavedForm.h"
#include "runtime/FileName.h"
#include "tool/DocumentCsv.h"
#include "tool/DocumentXlsx.h"
#include "tool/Files.h"
#include "tool/SheetJson.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QStringList readFormats = {u"inv"_s, u"json"_s, u"csv"_s};
const QStringList writtenFormats = readFormats + QStringList{u"xlsx"_s};

/// The format that the option names, else the file's ending; std::nullopt if neither names one of those.
std::optional<QString> formatOf(const QString &option, const QString &fileName, const QStringList &formats)
{
    const QString ending = QFileInfo(fileName).suffix().toLower();
    const QString format = !option.isEmpty() ? option : ending == "ine"_L1 ? u"inv"_s : ending;
    return formats.contains(format) ? std::optional(format) : std::nullopt;
}

InputDocument read(const InputFile &input, const QString &format, std::optional<int> codePage)
{
    if (input.failure || format == "inv"_L1) {
        return decodeInput(input, codePage);
    }
    if (format == "csv"_L1) {
        const ReadDocument result = documentFromCsv(input.bytes);
        return {result.document, result.failure};
    }
    const ReadSheet result = sheetFromJson(input.bytes);
    return {documentOf(result.sheet), result.failure};
}

/// A parameter file is written as a save would write it.
OutputBytes written(const Document &document, const QString &format)
{
    if (format == "csv"_L1) {
        return {documentAsCsv(document), {}};
    }
    if (format == "json"_L1) {
        return {sheetAsJson(sheetOf(document)), {}};
    }
    if (format == "xlsx"_L1) {
        const XlsxBytes xlsx = documentAsXlsx(document);
        return {xlsx.bytes, xlsx.failure};
    }
    const auto saved = savedForm(document);
    return saved ? encodeOutput(*saved) : OutputBytes{{}, ownText(OwnText::Overflow)};
}

/// The formats of input and output; std::nullopt if one is not known, which the user has been told then.
std::optional<std::pair<QString, QString>> formatsOf(const QCommandLineParser &parser, Session &session)
{
    const QStringList names = parser.positionalArguments();
    const auto from = formatOf(parser.value(u"from"_s), names[0], readFormats);
    const auto to = formatOf(parser.value(u"to"_s), names[1], writtenFormats);
    if (!from || !to) {
        session.say(ToolText::ConvertUnknownFormat,
            {shownFileName(from ? names[1] : names[0]), (from ? writtenFormats : readFormats).join(u", "_s)});
        return std::nullopt;
    }
    return std::pair(*from, *to);
}

int runConvert(const QCommandLineParser &parser, Session &session)
{
    const auto chosen = formatsOf(parser, session);
    if (!chosen) {
        return Failed;
    }
    const QStringList names = parser.positionalArguments();
    const InputDocument input = read(readInput(names[0]), chosen->first, session.codePage);
    if (input.failure) {
        session.say(ToolText::CannotRead, {shownFileName(names[0]), *input.failure});
        return Failed;
    }
    const OutputBytes output = written(input.document, chosen->second);
    if (output.failure) {
        session.say(ToolText::CannotWrite, {shownFileName(names[1]), *output.failure});
        return Failed;
    }
    return deliverTo(names[1], session, output.bytes);
}

void addConvertOptions(OptionList &options)
{
    addChoice(options, u"from"_s, ToolText::ConvertFromOption, u"FORMAT"_s, readFormats);
    addChoice(options, u"to"_s, ToolText::ConvertToOption, u"FORMAT"_s, writtenFormats);
}

} // namespace

const Command convertCommand{"convert"_L1, ToolText::ConvertSummary, ToolText::ConvertArguments, "IN OUT"_L1, 2, 2,
    addConvertOptions, runConvert};
