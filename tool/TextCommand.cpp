#include "tool/TextCommand.h"

#include "runtime/AnsiText.h"
#include "tool/FileWork.h"
#include "tool/Sheet.h"

using namespace Qt::StringLiterals;

namespace {

/// A value stays in its line whatever is in it.
QString escaped(QString value)
{
    return value.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
}

/// "79", and "79#2" for the second of that number
QString lineKey(const EntryKey &key)
{
    const QString text = escaped(key.text);
    return key.occurrence == 1 ? text : text + u'#' + QString::number(key.occurrence);
}

QString linesOf(const SheetPartInfo &part, const SheetEntry &entry)
{
    const QString key = part.name + u' ' + lineKey(entry.key);
    if (part.fields.empty()) {
        return key + u'\n';
    }
    if (part.fields.size() == 1) {
        return key + u": "_s + escaped(entry.values[0]) + u'\n';
    }
    QString lines;
    for (std::size_t field = 0; field < part.fields.size(); ++field) {
        lines += key + u' ' + part.fields[field].name + u": "_s + escaped(entry.values[qsizetype(field)]) + u'\n';
    }
    return lines;
}

/// The names of parts, keys and fields are the same in every language, so that a comparison does not depend on it.
QByteArray textOf(const Document &document)
{
    const Sheet sheet = sheetOf(document);
    QString text;
    for (const SheetPartInfo &part : sheetParts()) {
        for (const SheetEntry &entry : sheet.part(part.part)) {
            text += linesOf(part, entry);
        }
    }
    return text.toUtf8();
}

/// What cannot be taken apart is given line by line: a comparison of versions must not end at one that is broken.
QByteArray rawTextOf(const InputFile &input, std::optional<int> codePage)
{
    QString text = pageOfInput(input.bytes, codePage).decode(input.bytes);
    return text.replace(u"\r\n"_s, u"\n"_s).toUtf8();
}

int runText(const QCommandLineParser &parser, Session &session)
{
    const auto work = [&session](const InputFile &input) -> FileResult {
        const InputDocument decoded = decodeInput(input, session.codePage);
        return {decoded.failure ? rawTextOf(input, session.codePage) : textOf(decoded.document)};
    };
    return workOnFiles(parser.positionalArguments(), work, session);
}

void addTextOptions(OptionList &)
{
}

} // namespace

const Command textCommand{
    "text"_L1, ToolText::TextSummary, ToolText::ArgumentFiles, "FILE..."_L1, 1, manyFiles, addTextOptions, runText};
