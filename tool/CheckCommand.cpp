#include "tool/CheckCommand.h"

#include "check/FileCheck.h"
#include "runtime/AnsiText.h"
#include "runtime/FileName.h"
#include "tool/CheckReport.h"
#include "tool/CheckSarif.h"
#include "tool/FamilyRules.h"
#include "tool/FileWork.h"
#include "tool/Wording.h"

using namespace Qt::StringLiterals;

namespace {

/// Which findings count, by the command line.
struct Filter
{
    Severity least = Severity::Note;
    QStringList selected; ///< empty: all
    QStringList ignored;

    /// What a finding counts as; std::nullopt if it does not. A check that is named here is on whatever the rules say.
    std::optional<Severity> severityOf(CheckId id, const CheckRules &rules) const;
};

std::optional<Severity> Filter::severityOf(CheckId id, const CheckRules &rules) const
{
    const CheckInfo &info = checkInfo(id);
    const bool isSelected = selected.contains(info.name);
    if (ignored.contains(info.name) || (!selected.isEmpty() && !isSelected)) {
        return std::nullopt;
    }
    std::optional<Severity> severity = rules.severityOf(id);
    if (!severity && isSelected) {
        severity = info.severity;
    }
    return severity && *severity >= least ? severity : std::nullopt;
}

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
QString nameOf(const QString &file, const QString &nameOfInput)
{
    return file != "-"_L1 || nameOfInput.isEmpty() ? file : nameOfInput;
}

RatedFindings findingsOf(
    const InputFile &input, std::optional<int> codePage, const Filter &filter, const CheckRules &rules)
{
    RatedFindings rated;
    for (const Finding &finding : checkFile(input.bytes, pageOfInput(input.bytes, codePage), input.name)) {
        if (const auto severity = filter.severityOf(finding.id, rules)) {
            rated.append({finding, *severity});
        }
    }
    return rated;
}

/// What the rules for a file say about a check.
QString ruleText(CheckId id, const QString &fileName, const CheckRules &rules)
{
    const QString shown = shownFileName(fileName);
    const CheckRule *rule = rules.ruleOf(id);
    if (rule == nullptr) {
        return toolText(ToolText::RuleNone, {shown});
    }
    const QStringList said = {shown, shownFileName(rule->fileName), rule->reason};
    return rule->severity ? toolText(ToolText::RuleSeverity, said + QStringList(severityName(*rule->severity)))
                          : toolText(ToolText::RuleOff, said);
}

void explain(CheckId id, const QStringList &files, const FamilyRules &families, Session &session)
{
    session.out.put(explanationOf(id));
    for (const QString &file : files) {
        if (const CheckRules *rules = families.of(file)) {
            session.out.put(u'\n' + ruleText(id, file, *rules) + u'\n');
        }
    }
}

int runExplain(const QCommandLineParser &parser, const FamilyRules &families, Session &session)
{
    const QString name = parser.value(u"explain"_s);
    const QStringList files = parser.positionalArguments();
    if (name != "all"_L1) {
        explain(*checkNamed(name), files, families, session);
        return Fine;
    }
    for (const CheckInfo &info : checkInfos()) {
        explain(info.id, files, families, session);
        session.out.put(u"\n");
    }
    return Fine;
}

/// Checks the files and writes what was found, in one of the forms.
class CheckRun
{
public:
    CheckRun(const QCommandLineParser &parser, const FamilyRules &families, Session &session)
        : m_parser(parser), m_families(families), m_session(session)
    {
    }

    int run();

private:
    FileResult work(const InputFile &given);
    FileResult report(const InputFile &input, const RatedFindings &findings);

    const QCommandLineParser &m_parser;
    const FamilyRules &m_families;
    Session &m_session;
    Filter m_filter = filterOf(m_parser);
    QString m_name = m_parser.value(u"name"_s);
    bool m_isJson = !m_session.isQuiet && m_parser.value(u"format"_s) == "json"_L1;
    bool m_isSarif = !m_session.isQuiet && m_parser.value(u"format"_s) == "sarif"_L1;
    Painter m_paint = m_session.painter();
    SarifLog m_log;
};

FileResult CheckRun::report(const InputFile &input, const RatedFindings &findings)
{
    FileResult result{.output = {}, .status = findings.isEmpty() ? Fine : Found};
    if (m_isSarif) {
        result.inTurn = [this, name = input.name, findings] { m_log.add(name, findings); };
    } else if (!m_session.isQuiet) {
        result.output = m_isJson ? reportAsJson(input.name, findings) : reportAsText(input.name, findings, m_paint);
    }
    return result;
}

FileResult CheckRun::work(const InputFile &given)
{
    const InputFile input{nameOf(given.name, m_name), given.bytes, given.failure};
    const CheckRules *rules = m_families.of(input.name);
    if (rules == nullptr) {
        return {.output = {}, .status = Failed};
    }
    return report(input, findingsOf(input, m_session.codePage, m_filter, *rules));
}

int CheckRun::run()
{
    Output &out = m_session.out;
    out.put(QByteArrayView(m_isJson ? "{\"files\":[\n" : ""));
    const int status = workOnFiles(
        m_parser.positionalArguments(), [this](const InputFile &input) { return work(input); }, m_session,
        m_isJson ? ",\n" : "");
    out.put(QByteArrayView(m_isJson ? "\n]}\n" : ""));
    if (m_isSarif) {
        out.put(m_log.bytes(status != Failed));
    }
    return status;
}

/// The files, standard input by the name that it was given.
QStringList namedFiles(const QCommandLineParser &parser)
{
    QStringList names;
    for (const QString &name : parser.positionalArguments()) {
        names << nameOf(name, parser.value(u"name"_s));
    }
    return names;
}

int runCheck(const QCommandLineParser &parser, Session &session)
{
    const bool isExplaining = parser.isSet(u"explain"_s);
    if (parser.positionalArguments().isEmpty() && !isExplaining) {
        session.say(ToolText::NoFile);
        return Failed;
    }
    const FamilyRules families(namedFiles(parser));
    for (const QString &failure : families.failures()) {
        session.say(failure);
    }
    const int status = isExplaining ? runExplain(parser, families, session) : CheckRun(parser, families, session).run();
    return families.failures().isEmpty() ? status : Failed;
}

void addCheckOptions(OptionList &options)
{
    const QStringList ids = allNames();
    addChoice(
        options, u"format"_s, ToolText::CheckFormatOption, u"FORMAT"_s, {u"text"_s, u"json"_s, u"sarif"_s}, u"text"_s);
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
