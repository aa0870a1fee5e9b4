#include "tool/ListTexts.h"

#include "document/FieldText.h"
#include "document/PrCondText.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QString compact(const QJsonArray &array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QJsonArray arrayOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

bool isArray(const QString &text)
{
    return text.startsWith(u'[');
}

} // namespace

QString rangesAsText(const QList<SettingRange> &ranges)
{
    QString text = rangesToText({ranges.constData(), std::size_t(ranges.size())});
    const auto back = rangesFromText(text);
    if (back && *back == ranges) {
        return text;
    }
    QJsonArray array;
    for (const SettingRange &range : ranges) {
        array.append(QJsonArray{double(range.lower), double(range.upper)});
    }
    return compact(array);
}

QString conditionsAsText(const QList<PrCondition> &conditions)
{
    QString text = conditionsToText({conditions.constData(), std::size_t(conditions.size())});
    if (conditionsFromText(text) == conditions) {
        return text;
    }
    QJsonArray array;
    for (const PrCondition &condition : conditions) {
        array.append(QJsonArray{condition.subject, int(condition.kind), condition.value1, condition.value2});
    }
    return compact(array);
}

QList<SettingRange> rangesOfText(const QString &text)
{
    if (!isArray(text)) {
        return rangesFromText(text).valueOr({});
    }
    QList<SettingRange> ranges;
    for (const QJsonValue pair : arrayOf(text)) {
        ranges.append({.upper = float(pair[1].toDouble()), .lower = float(pair[0].toDouble())});
    }
    return ranges;
}

QList<PrCondition> conditionsOfText(const QString &text)
{
    if (!isArray(text)) {
        return conditionsFromText(text);
    }
    QList<PrCondition> conditions;
    for (const QJsonValue fields : arrayOf(text)) {
        conditions.append(
            {fields[0].toString(), quint8(fields[1].toInt()), fields[2].toString(), fields[3].toString()});
    }
    return conditions;
}
