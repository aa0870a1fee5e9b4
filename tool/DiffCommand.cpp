#include "tool/DiffCommand.h"

#include "runtime/FileName.h"
#include "tool/DiffJson.h"
#include "tool/DiffReport.h"
#include "tool/EntryTexts.h"
#include "tool/FileWork.h"
#include "tool/RawDiff.h"

using namespace Qt::StringLiterals;

namespace {

/// The file names of a comparison, and how they are to be called.
struct Pair
{
    QString before;
    QString after;
    DiffNames names;
};

/// git gives the path, then file, hash and mode of either side; of an unmerged path nothing but its name.
std::optional<Pair> pairOf(const QStringList &arguments, bool isFromGit)
{
    constexpr qsizetype oldFile = 1;
    constexpr qsizetype newFile = 4;
    if (!isFromGit) {
        return arguments.size() != 2 ? std::nullopt
                                     : std::optional(Pair{arguments[0], arguments[1],
                                         {shownFileName(arguments[0]), shownFileName(arguments[1])}});
    }
    if (arguments.size() <= newFile) {
        return std::nullopt;
    }
    const QString path = shownFileName(arguments[0]);
    return Pair{arguments[oldFile], arguments[newFile], {u"a/"_s + path, u"b/"_s + path}};
}

QStringList fieldNames()
{
    QStringList names;
    for (const SheetPartInfo &part : sheetParts()) {
        for (const SheetField &field : part.fields) {
            names << field.name;
        }
    }
    return names;
}

QByteArray reportOf(
    const SheetDiff &diff, const DiffNames &names, const QCommandLineParser &parser, const Session &session)
{
    const QString format = parser.value(u"format"_s);
    if (parser.isSet(u"summary"_s)) {
        return (countsText(countsOf(diff)) + u'\n').toUtf8();
    }
    if (format == "json"_L1) {
        return diffAsJson(diff, names);
    }
    return format == "html"_L1 ? diffAsHtml(diff, names)
                               : diffAsText(diff, names, session.painter(parser.value(u"output"_s)));
}

/// git would end at a failure of its external diff, so that it gets the reason in place of the differences.
bool sayFailure(const InputDocument &document, const QString &name, bool isFromGit, Session &session)
{
    if (document.failure && isFromGit) {
        session.out.put(toolText(ToolText::CannotRead, {name, *document.failure}) + u'\n');
    } else if (document.failure) {
        session.say(ToolText::CannotRead, {name, *document.failure});
    }
    return document.failure.has_value();
}

/// Reports what differs. Returns the exit status.
int report(const SheetDiff &diff, const Pair &pair, const QCommandLineParser &parser, Session &session)
{
    if (!session.isQuiet) {
        const QByteArray report = reportOf(diff, pair.names, parser, session);
        if (const int status = deliver(parser, session, report); status != Fine) {
            return status;
        }
    }
    return diff.isEmpty() || parser.isSet(u"git"_s) ? Fine : Found;
}

int compareDecoded(const InputFile &old, const InputFile &now, const Pair &pair, const DiffOptions &options,
    const QCommandLineParser &parser, Session &session)
{
    const bool isFromGit = parser.isSet(u"git"_s);
    const auto [before, after] = sideBySide(
        [&] { return decodeInput(old, session.codePage); }, [&] { return decodeInput(now, session.codePage); });
    const bool hasFailed = sayFailure(before, pair.names.before, isFromGit, session);
    if (sayFailure(after, pair.names.after, isFromGit, session) || hasFailed) {
        return isFromGit ? Fine : Failed;
    }
    return report(diffDocuments(before.document, after.document, options), pair, parser, session);
}

/// A file, and its rows if it can be compared by their bytes.
struct Side
{
    InputFile input;
    std::optional<RawFile> raw;
};

int compare(const Pair &pair, const DiffOptions &options, const QCommandLineParser &parser, Session &session)
{
    const auto sideOf = [&session](const QString &name) {
        Side side{readInput(name), {}};
        side.raw = rawFile(side.input, session.codePage);
        return side;
    };
    const auto [before, after] = sideBySide([&] { return sideOf(pair.before); }, [&] { return sideOf(pair.after); });
    if (before.raw && after.raw && before.raw->document.codePage == after.raw->document.codePage) {
        return report(diffRawFiles(*before.raw, *after.raw, options), pair, parser, session);
    }
    return compareDecoded(before.input, after.input, pair, options, parser, session);
}

int sayNoPair(const QCommandLineParser &parser, Session &session)
{
    if (!parser.isSet(u"git"_s)) {
        session.say(ToolText::DiffTwoFiles);
        return Failed;
    }
    session.out.put(toolText(ToolText::DiffUnmerged, {shownFileName(parser.positionalArguments().first())}) + u'\n');
    return Fine;
}

int runDiff(const QCommandLineParser &parser, Session &session)
{
    const auto pair = pairOf(parser.positionalArguments(), parser.isSet(u"git"_s));
    if (!pair) {
        return sayNoPair(parser, session);
    }
    return compare(
        *pair, {.isExact = parser.isSet(u"exact"_s), .fields = listIn(parser, u"fields"_s)}, parser, session);
}

void addDiffOptions(OptionList &options)
{
    addChoice(
        options, u"format"_s, ToolText::DiffFormatOption, u"FORMAT"_s, {u"text"_s, u"json"_s, u"html"_s}, u"text"_s);
    addList(options, u"fields"_s, ToolText::DiffFieldsOption, u"FIELDS"_s, fieldNames());
    addSwitch(options, u"summary"_s, ToolText::DiffSummaryOption);
    addSwitch(options, u"exact"_s, ToolText::DiffExactOption);
    addSwitch(options, u"git"_s, ToolText::DiffGitOption);
    addOutputOption(options);
}

} // namespace

const Command diffCommand{
    "diff"_L1, ToolText::DiffSummary, ToolText::DiffArguments, "OLD NEW"_L1, 1, manyFiles, addDiffOptions, runDiff};
