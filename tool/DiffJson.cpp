#include "tool/DiffJson.h"

#include "tool/JsonInput.h"
#include "tool/ToolTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr auto formatName = "tabrix-diff"_L1;
constexpr int formatVersion = 1;

QJsonObject keyObject(const SheetPartInfo &part, const EntryKey &key)
{
    QJsonObject object{{part.keyName, key.text}};
    if (key.occurrence != 1) {
        object.insert(u"occurrence"_s, key.occurrence);
    }
    return object;
}

QLatin1StringView kindName(const EntryChange &change)
{
    switch (change.kind) {
    case EntryChange::Kind::Added:
        return "added"_L1;
    case EntryChange::Kind::Removed:
        return "removed"_L1;
    case EntryChange::Kind::Kept:
        break;
    }
    return change.isMoved ? "moved"_L1 : "changed"_L1;
}

QJsonObject changeObject(const SheetPartInfo &part, const EntryChange &change)
{
    QJsonObject object = keyObject(part, change.key);
    object.insert(u"change"_s, kindName(change));
    object.insert(u"row"_s, change.row);
    if (change.kind == EntryChange::Kind::Added || change.isMoved) {
        object.insert(u"after"_s, change.predecessor ? QJsonValue(keyObject(part, *change.predecessor)) : QJsonValue());
    }
    QJsonObject values;
    for (qsizetype field = 0; field < change.values.size(); ++field) {
        values.insert(part.fields[std::size_t(field)].name, change.values[field]);
    }
    for (const ValueChange &value : change.changes) {
        values.insert(
            part.fields[std::size_t(value.field)].name, QJsonObject{{u"old"_s, value.before}, {u"new"_s, value.after}});
    }
    if (!values.isEmpty()) {
        object.insert(u"values"_s, values);
    }
    return object;
}

/// Reads the changes of one file; the first thing that does not fit is the failure.
class DiffReader
{
public:
    void read(const SheetPartInfo &part, const QJsonValue &list);
    ReadDiff result;

private:
    EntryChange readChange(const SheetPartInfo &part, const QJsonObject &object);
    EntryKey readKey(const SheetPartInfo &part, const QJsonObject &object);
    void readValues(const SheetPartInfo &part, const QJsonObject &values, EntryChange &change);
    void fail(ToolText what, const QString &name);

    QString m_place;
};

void DiffReader::fail(ToolText what, const QString &name)
{
    if (!result.failure) {
        result.failure = toolText(what, {m_place, name});
    }
}

void DiffReader::read(const SheetPartInfo &part, const QJsonValue &list)
{
    m_place = part.name;
    if (!list.isArray() && !list.isUndefined()) {
        fail(ToolText::JsonNotAnArray, part.name);
    }
    const QJsonArray entries = list.toArray();
    for (qsizetype i = 0; i < entries.size(); ++i) {
        m_place = u"%1[%2]"_s.arg(part.name).arg(i);
        result.diff.parts.at(std::size_t(part.part)).append(readChange(part, entries[i].toObject()));
    }
}

EntryKey DiffReader::readKey(const SheetPartInfo &part, const QJsonObject &object)
{
    const QJsonValue key = object.value(part.keyName);
    const int occurrence = object.value("occurrence"_L1).toInt(1);
    if (!key.isString() || occurrence < 1) {
        fail(ToolText::JsonMissing, part.keyName);
    }
    return {key.toString(), occurrence};
}

EntryChange DiffReader::readChange(const SheetPartInfo &part, const QJsonObject &object)
{
    EntryChange change{.key = readKey(part, object), .row = object.value("row"_L1).toInt()};
    const QString kind = object.value("change"_L1).toString();
    if (kind == "added"_L1) {
        change.kind = EntryChange::Kind::Added;
    } else if (kind == "removed"_L1) {
        change.kind = EntryChange::Kind::Removed;
    } else if (kind == "moved"_L1) {
        change.isMoved = true;
    } else if (kind != "changed"_L1) {
        fail(ToolText::JsonBadChange, kind);
    }
    if (const QJsonValue after = object.value("after"_L1); after.isObject()) {
        change.predecessor = readKey(part, after.toObject());
    }
    readValues(part, object.value("values"_L1).toObject(), change);
    return change;
}

void DiffReader::readValues(const SheetPartInfo &part, const QJsonObject &values, EntryChange &change)
{
    for (int field = 0; field < int(part.fields.size()); ++field) {
        const QString name = part.fields[std::size_t(field)].name;
        const QJsonValue value = values.value(name);
        if (change.kind != EntryChange::Kind::Kept) {
            if (!value.isString()) {
                fail(ToolText::JsonMissing, name);
            }
            change.values.append(value.toString());
        } else if (!value.isUndefined()) {
            if (!value["old"_L1].isString() || !value["new"_L1].isString()) {
                fail(ToolText::JsonOldAndNew, name);
            }
            change.changes.append({field, value["old"_L1].toString(), value["new"_L1].toString()});
        }
    }
}

} // namespace

QByteArray diffAsJson(const SheetDiff &diff, const DiffNames &names)
{
    QJsonObject root{
        {u"format"_s, formatName}, {u"version"_s, formatVersion}, {u"old"_s, names.before}, {u"new"_s, names.after}};
    for (const SheetPartInfo &part : sheetParts()) {
        QJsonArray list;
        for (const EntryChange &change : diff.parts.at(std::size_t(part.part))) {
            list.append(changeObject(part, change));
        }
        root.insert(part.name, list);
    }
    return QJsonDocument(root).toJson();
}

ReadDiff diffFromJson(const QByteArray &bytes)
{
    const JsonInput input = readJson(bytes, formatName, formatVersion);
    DiffReader reader;
    reader.result.failure = input.failure;
    for (const SheetPartInfo &part : sheetParts()) {
        reader.read(part, input.root.value(part.name));
    }
    return reader.result;
}
