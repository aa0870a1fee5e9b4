#include "tool/CheckSarif.h"

#include "runtime/FileName.h"
#include "tool/ToolTexts.h"
#include "tool/Wording.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QJsonObject objectOf(const QString &key, const QJsonValue &value)
{
    QJsonObject object;
    object.insert(key, value);
    return object;
}

QJsonObject textObject(const QString &text)
{
    return objectOf(u"text"_s, text);
}

/// The address of a file as it was named: relative ones stay so.
QString uriOf(const QString &fileName)
{
    const QString name = QDir::fromNativeSeparators(fileName);
    const bool isFull = QDir::isAbsolutePath(name);
    // What is before a colon in a relative address would be its scheme.
    const QString address = QString::fromLatin1(fileNameBytes(name).toPercentEncoding(isFull ? "/:" : "/"));
    return isFull ? (name.startsWith(u'/') ? u"file://"_s : u"file:///"_s) + address : address;
}

/// Row and column of the table, from 1. What is about the file as a whole has no region.
QJsonObject locationOf(const QString &fileName, const CellPosition &place)
{
    QJsonObject physical = objectOf(u"artifactLocation"_s, objectOf(u"uri"_s, uriOf(fileName)));
    if (place.row > 0) {
        QJsonObject region{{u"startLine"_s, place.row}};
        if (place.column > 0) {
            region.insert(u"startColumn"_s, place.column);
        }
        physical.insert(u"region"_s, region);
    }
    return objectOf(u"physicalLocation"_s, physical);
}

QJsonObject ruleOf(CheckId id)
{
    const CheckInfo &info = checkInfo(id);
    const CheckText &text = checkTextOf(id);
    return {{u"id"_s, info.name}, {u"fullDescription"_s, textObject(text.explanation.toString())},
        {u"help"_s, textObject(text.remedy.toString())},
        {u"defaultConfiguration"_s, objectOf(u"level"_s, severityName(info.severity))}};
}

} // namespace

int SarifLog::ruleIndex(CheckId id)
{
    if (!m_rules.contains(id)) {
        m_rules.append(id);
    }
    return int(m_rules.indexOf(id));
}

void SarifLog::add(const QString &fileName, const RatedFindings &findings)
{
    for (const RatedFinding &rated : findings) {
        const Finding &finding = rated.finding;
        m_results.append(QJsonObject{{u"ruleId"_s, checkInfo(finding.id).name}, {u"ruleIndex"_s, ruleIndex(finding.id)},
            {u"level"_s, severityName(rated.severity)}, {u"message"_s, textObject(messageOf(finding))},
            {u"locations"_s, QJsonArray{locationOf(fileName, finding.place)}}});
    }
}

QByteArray SarifLog::bytes(bool isComplete) const
{
    QJsonArray rules;
    for (const CheckId id : m_rules) {
        rules.append(ruleOf(id));
    }
    const QJsonObject driver{
        {u"name"_s, u"tabrix-tool"_s}, {u"version"_s, QCoreApplication::applicationVersion()}, {u"rules"_s, rules}};
    const QJsonObject run{{u"tool"_s, objectOf(u"driver"_s, driver)}, {u"language"_s, isJapanese() ? u"ja"_s : u"en"_s},
        {u"invocations"_s, QJsonArray{objectOf(u"executionSuccessful"_s, isComplete)}}, {u"results"_s, m_results}};
    const QJsonObject log{
        {u"$schema"_s, u"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json"_s},
        {u"version"_s, u"2.1.0"_s}, {u"runs"_s, QJsonArray{run}}};
    return QJsonDocument(log).toJson(QJsonDocument::Compact) + '\n';
}
