#include "tool/SheetJson.h"

#include "check/MachineKeys.h"
#include "document/ParameterColumn.h"
#include "tool/JsonInput.h"
#include "tool/ListTexts.h"
#include "tool/ToolTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto formatName = "tabrix-parameters"_L1;
constexpr int formatVersion = 1;

QJsonObject entryObject(const SheetPartInfo &part, const SheetEntry &entry)
{
    QJsonObject object{{part.keyName, entry.key.text}};
    for (qsizetype field = 0; field < entry.values.size(); ++field) {
        object.insert(part.fields[std::size_t(field)].name, entry.values[field]);
    }
    return object;
}

/// Reads the entries of one part.
class PartReader
{
public:
    explicit PartReader(const SheetPartInfo &part) : m_part(part) { }

    QList<SheetEntry> read(const QJsonValue &list);
    std::optional<QString> failure;

private:
    QString text(const QJsonObject &object, QLatin1StringView name);
    SheetEntry entry(const QJsonObject &object);
    void checkNames(const QJsonObject &object);
    void checkValues(const SheetEntry &entry);
    void checkList(QLatin1StringView name, const QString &text, const QString &back);
    void fail(ToolText what, const QString &name);

    const SheetPartInfo &m_part;
    QString m_place;
};

QList<SheetEntry> PartReader::read(const QJsonValue &list)
{
    m_place = m_part.name;
    if (!list.isArray()) {
        fail(ToolText::JsonNotAnArray, m_part.name);
    }
    QList<SheetEntry> entries;
    for (const QJsonValue value : list.toArray()) {
        m_place = u"%1[%2]"_s.arg(m_part.name).arg(entries.size());
        entries.append(entry(value.toObject()));
    }
    if (m_part.part == SheetPart::Parameters && entries.size() > std::numeric_limits<qint16>::max()) {
        fail(ToolText::JsonTooManyRows, m_part.name);
    }
    countOccurrences(entries);
    return entries;
}

QString PartReader::text(const QJsonObject &object, QLatin1StringView name)
{
    const QJsonValue value = object.value(name);
    if (!value.isString()) {
        fail(ToolText::JsonMissing, name);
    }
    return value.toString();
}

SheetEntry PartReader::entry(const QJsonObject &object)
{
    SheetEntry entry{{text(object, m_part.keyName)}, {}};
    for (const SheetField &field : m_part.fields) {
        entry.values.append(text(object, field.name));
    }
    checkNames(object);
    if (!failure) {
        checkValues(entry);
    }
    return entry;
}

/// A name that was mistyped must not be passed over.
void PartReader::checkNames(const QJsonObject &object)
{
    for (const QString &name : object.keys()) {
        const bool isField =
            std::ranges::any_of(m_part.fields, [&name](const SheetField &field) { return name == field.name; });
        if (!isField && name != m_part.keyName) {
            fail(ToolText::JsonUnknown, name);
        }
    }
}

/// Nothing that is given may be lost: neither a value that the machine information does not have, nor a part of a list.
void PartReader::checkValues(const SheetEntry &entry)
{
    const auto keys = machineTextKeys();
    if (m_part.part == SheetPart::Machine
        && std::ranges::find(keys, entry.key.text, &MachineTextKey::key) == keys.end()) {
        fail(ToolText::JsonUnknown, entry.key.text);
    }
    for (qsizetype i = 0; i < entry.values.size(); ++i) {
        const SheetField &field = m_part.fields[std::size_t(i)];
        const QString &text = entry.values[i];
        if (field.column == ParameterColumn::SettingRange) {
            checkList(field.name, text, rangesAsText(rangesOfText(text)));
        } else if (field.column == ParameterColumn::Condition) {
            checkList(field.name, text, conditionsAsText(conditionsOfText(text)));
        }
    }
}

/// back: the text again, from what was read of it.
void PartReader::checkList(QLatin1StringView name, const QString &text, const QString &back)
{
    if (!failure && text != back) {
        failure = toolText(ToolText::JsonBadList, {m_place, name, text});
    }
}

void PartReader::fail(ToolText what, const QString &name)
{
    if (!failure) {
        failure = toolText(what, {m_place, name});
    }
}

} // namespace

QByteArray sheetAsJson(const Sheet &sheet)
{
    QJsonObject root{{u"format"_s, formatName}, {u"version"_s, formatVersion}, {u"codePage"_s, sheet.codePage}};
    for (const SheetPartInfo &part : sheetParts()) {
        QJsonArray list;
        for (const SheetEntry &entry : sheet.part(part.part)) {
            list.append(entryObject(part, entry));
        }
        root.insert(part.name, list);
    }
    return QJsonDocument(root).toJson();
}

ReadSheet sheetFromJson(const QByteArray &bytes)
{
    const JsonInput input = readJson(bytes, formatName, formatVersion);
    ReadSheet read{{}, input.failure};
    read.sheet.codePage = input.root.value("codePage"_L1).toInt();
    if (!read.failure && read.sheet.codePage != 932 && read.sheet.codePage != 1252) {
        read.failure = toolText(ToolText::JsonCodePage);
    }
    for (const SheetPartInfo &part : sheetParts()) {
        PartReader reader(part);
        read.sheet.part(part.part) = reader.read(input.root.value(part.name));
        read.failure = read.failure ? read.failure : reader.failure;
    }
    return read;
}
