#include "tool/CheckReport.h"

#include "runtime/FileName.h"
#include "tool/Wording.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QString oneLine(QString text)
{
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

QJsonObject asJson(const RatedFinding &rated)
{
    const Finding &finding = rated.finding;
    QJsonObject object{{u"id"_s, checkInfo(finding.id).name}, {u"severity"_s, severityName(rated.severity)},
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

} // namespace

QByteArray reportAsText(const QString &fileName, const RatedFindings &findings)
{
    QString text;
    for (const RatedFinding &rated : findings) {
        const CellPosition place = rated.finding.place;
        text += u"%1:%2:%3: "_s.arg(shownFileName(fileName)).arg(place.row).arg(place.column)
            + severityName(rated.severity) + u": "_s + oneLine(messageOf(rated.finding)) + u" ["_s
            + checkInfo(rated.finding.id).name + u"]\n"_s;
    }
    return text.toUtf8();
}

QByteArray reportAsJson(const QString &fileName, const RatedFindings &findings)
{
    QJsonArray list;
    for (const RatedFinding &rated : findings) {
        list.append(asJson(rated));
    }
    const QJsonObject object{{u"file"_s, shownFileName(fileName)}, {u"findings"_s, list}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}
