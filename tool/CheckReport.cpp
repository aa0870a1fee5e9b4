#include "tool/CheckReport.h"

#include "runtime/FileName.h"
#include "tool/Wording.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

TextStyle styleOf(Severity severity)
{
    constexpr TextStyle styles[] = {TextStyle::Cyan, TextStyle::Yellow, TextStyle::Red};
    return styles[std::size_t(severity)];
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

QByteArray reportAsText(const QString &fileName, const RatedFindings &findings, const Painter &paint)
{
    const QString file = printable(shownFileName(fileName));
    QString text;
    for (const RatedFinding &rated : findings) {
        const CellPosition place = rated.finding.place;
        text += paint(TextStyle::Bold, u"%1:%2:%3:"_s.arg(file).arg(place.row).arg(place.column)) + u' '
            + paint(styleOf(rated.severity), severityName(rated.severity)) + u": "_s
            + printable(messageOf(rated.finding)) + u' '
            + paint(TextStyle::Dim, u'[' + checkInfo(rated.finding.id).name + u']') + u'\n';
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
