#include "tool/CheckCommand.h"

#include "check/FileCheck.h"
#include "runtime/AnsiText.h"
#include "runtime/FileName.h"
#include "tool/FileWork.h"
#include "tool/Wording.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Which findings count.
struct Filter
{
    Severity least = Severity::Note;
    QStringList selected; ///< empty: all
    QStringList ignored;

    bool passes(const Finding &finding) const
    {
        const CheckInfo &info = checkInfo(finding.id);
        return info.severity >= least && (selected.isEmpty() || selected.contains(info.name))
            && !ignored.contains(info.name);
    }
};

QStringList allNames()
{
    QStringList names;
    for (const CheckInfo &info : checkInfos()) {
        names << info.name;
    }
    return names;
}

Filter filterOf(const QCommandLineParser &parser)
{
    return {*severityNamed(parser.value(u"severity"_s)), listIn(parser, u"select"_s), listIn(parser, u"ignore"_s)};
}

/// Standard input by the name that it was given.
InputFile named(const InputFile &input, const QString &name)
{
    return input.name != "-"_L1 || name.isEmpty() ? input : InputFile{name, input.bytes, input.failure};
}

Findings findingsOf(const InputFile &input, std::optional<int> codePage, const Filter &filter)
{
    Findings findings = checkFile(input.bytes, pageOfInput(input.bytes, codePage), input.name);
    findings.removeIf([&filter](const Finding &finding) { return !filter.passes(finding); });
    return findings;
}

QString oneLine(QString text)
{
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

QByteArray asText(const InputFile &input, const Findings &findings)
{
    QString text;
    for (const Finding &finding : findings) {
        const CheckInfo &info = checkInfo(finding.id);
        text += u"%1:%2:%3: "_s.arg(shownFileName(input.name)).arg(finding.place.row).arg(finding.place.column)
            + severityName(info.severity) + u": "_s + oneLine(messageOf(finding)) + u" ["_s + info.name + u"]\n"_s;
    }
    return text.toUtf8();
}

QJsonObject asJson(const Finding &finding)
{
    const CheckInfo &info = checkInfo(finding.id);
    QJsonObject object{{u"id"_s, info.name}, {u"severity"_s, severityName(info.severity)},
        {u"message"_s, messageOf(finding)}, {u"row"_s, finding.place.row}, {u"column"_s, finding.place.column},
        {u"arguments"_s, QJsonArray::fromStringList(finding.arguments)}};
    if (const QString field = fieldNameOf(finding); !field.isEmpty()) {
        object.insert(u"field"_s, field);
    }
    if (finding.place.column > 0) {
        object.insert(u"parameter"_s, finding.name);
    }
    return object;
}

QByteArray asJson(const InputFile &input, const Findings &findings)
{
    QJsonArray list;
    for (const Finding &finding : findings) {
        list.append(asJson(finding));
    }
    const QJsonObject object{{u"file"_s, shownFileName(input.name)}, {u"findings"_s, list}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

int explain(const QString &name, Session &session)
{
    if (name == "all"_L1) {
        for (const CheckInfo &info : checkInfos()) {
            session.out.put(explanationOf(info.id) + u'\n');
        }
        return Fine;
    }
    session.out.put(explanationOf(*checkNamed(name)));
    return Fine;
}

int runCheck(const QCommandLineParser &parser, Session &session)
{
    if (parser.isSet(u"explain"_s)) {
        return explain(parser.value(u"explain"_s), session);
    }
    if (parser.positionalArguments().isEmpty()) {
        session.say(ToolText::NoFile);
        return Failed;
    }
    const Filter filter = filterOf(parser);
    const bool isJson = parser.value(u"format"_s) == "json"_L1 && !session.isQuiet;
    const QString name = parser.value(u"name"_s);
    const auto work = [&session, &filter, &name, isJson](const InputFile &given) {
        const InputFile input = named(given, name);
        const Findings findings = findingsOf(input, session.codePage, filter);
        const QByteArray output = isJson ? asJson(input, findings) : asText(input, findings);
        return FileResult{session.isQuiet ? QByteArray() : output, {}, findings.isEmpty() ? Fine : Found};
    };
    session.out.put(QByteArrayView(isJson ? "{\"files\":[\n" : ""));
    const int status = workOnFiles(parser.positionalArguments(), work, session, isJson ? ",\n" : "");
    session.out.put(QByteArrayView(isJson ? "\n]}\n" : ""));
    return status;
}

void addCheckOptions(OptionList &options)
{
    const QStringList ids = allNames();
    addChoice(options, u"format"_s, ToolText::CheckFormatOption, u"FORMAT"_s, {u"text"_s, u"json"_s}, u"text"_s);
    addChoice(options, u"severity"_s, ToolText::CheckSeverityOption, u"SEVERITY"_s,
        {u"note"_s, u"warning"_s, u"error"_s}, u"warning"_s);
    addList(options, u"select"_s, ToolText::CheckSelectOption, u"IDS"_s, ids);
    addList(options, u"ignore"_s, ToolText::CheckIgnoreOption, u"IDS"_s, ids);
    addValueOption(options, u"name"_s, ToolText::CheckNameOption, u"NAME"_s);
    addChoice(options, u"explain"_s, ToolText::CheckExplainOption, u"ID"_s, QStringList(u"all"_s) + ids);
}

} // namespace

const Command checkCommand{
    "check"_L1, ToolText::CheckSummary, ToolText::ArgumentFiles, "FILE..."_L1, 0, manyFiles, addCheckOptions, runCheck};
