#include "tool/SheetJson.h"

#include "tool/JsonInput.h"
#include "tool/ToolTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

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
