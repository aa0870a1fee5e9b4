#include "tests/check/CheckedFiles.h"

#include <algorithm>

QByteArray TestFile::bytes() const
{
    return "[Inverter]\r\nName=" + name + "\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\n" + machine
        + "SoftWareVersion=1\r\nParamater=" + QByteArray::number(count) + "\r\n[Paramater]\r\n" + rows;
}

QByteArray testRow(const QByteArray &number, const QByteArray &rest, const QByteArray &conditions)
{
    const QByteArray count = QByteArray::number(conditions.isEmpty() ? 0 : conditions.count(';') + 1);
    const QByteArray list = conditions.isEmpty() ? QByteArray() : "," + QByteArray(conditions).replace(';', ',');
    return count + "," + number + ",10" + number + ",Name " + number + ",%,0.1,-1,-1," + rest + list + "\r\n";
}

QList<CheckId> idsOf(const Findings &findings)
{
    QList<CheckId> ids;
    std::ranges::transform(findings, std::back_inserter(ids), &Finding::id);
    return ids;
}

QByteArray namesOf(const Findings &findings)
{
    QByteArray names;
    for (const Finding &finding : findings) {
        names += checkInfo(finding.id).name.data() + QByteArray(" in row ") + QByteArray::number(finding.place.row)
            + ", " + finding.name.toUtf8() + " " + finding.arguments.join(u'|').toUtf8() + "\n";
    }
    return names;
}
