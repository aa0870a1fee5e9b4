#include "check/MachineKeys.h"
#include "document/ParameterColumns.h"
#include "tests/document/RandomDocument.h"
#include "tests/support/QtPrinters.h"
#include "tests/tool/ToolProcess.h"
#include "tool/SheetJson.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The published schema, beside what is read and written.
class Schema : public ToolProcess
{
protected:
    static QByteArray bytes()
    {
        QFile file(QStringLiteral(TABRIX_SCHEMA));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll();
    }
    static QJsonObject schema() { return QJsonDocument::fromJson(bytes()).object(); }
    static QJsonObject property(const QString &name) { return schema()["properties"_L1][name].toObject(); }

    /// The files of the folder that are not valid, by name, as another implementation of JSON Schema finds them.
    QStringList invalidFiles() const
    {
        put(u"schema.json"_s, bytes());
        put(u"validate.py"_s,
            "import json, pathlib, jsonschema\n"
            "schema = json.loads(pathlib.Path('schema.json').read_text(encoding='utf-8'))\n"
            "jsonschema.Draft202012Validator.check_schema(schema)\n"
            "validator = jsonschema.Draft202012Validator(schema)\n"
            "for path in sorted(pathlib.Path('files').iterdir()):\n"
            "    if not validator.is_valid(json.loads(path.read_text(encoding='utf-8'))):\n"
            "        print(path.name)\n"
            "print('all seen')\n");
        const ToolRun run = shell(u"python3 validate.py"_s);
        EXPECT_EQ(run.status, 0) << run.err.constData();
        QStringList names = QString::fromUtf8(run.out).split(u'\n', Qt::SkipEmptyParts);
        EXPECT_EQ(names.takeLast(), u"all seen"_s);
        return names;
    }
    void makeFolder() const { ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"files"_s)); }
};

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

QStringList textsOf(const QJsonValue &array)
{
    QStringList texts;
    for (const QJsonValue value : array.toArray()) {
        texts << value.toVariant().toString();
    }
    return sorted(texts);
}

TEST_F(Schema, hasEachFieldWithItsTypeAndNoOther)
{
    for (const SheetPartInfo &part : sheetParts()) {
        const QJsonObject list = property(part.name);
        const QJsonObject items = list["items"_L1].toObject();
        const QJsonObject properties = items["properties"_L1].toObject();
        QStringList names = {part.keyName};
        for (const SheetField &field : part.fields) {
            names << field.name;
        }
        EXPECT_EQ(list["type"_L1].toString(), u"array"_s);
        EXPECT_EQ(items["type"_L1].toString(), u"object"_s);
        EXPECT_EQ(items["additionalProperties"_L1], QJsonValue(false));
        EXPECT_EQ(sorted(properties.keys()), sorted(names));
        EXPECT_EQ(textsOf(items["required"_L1]), sorted(names));
        for (const QString &name : names) {
            const bool isKeyOfMachine = part.part == SheetPart::Machine && name == part.keyName;
            EXPECT_EQ(properties[name]["type"_L1].toString(), isKeyOfMachine ? QString() : u"string"_s)
                << name.toStdString();
        }
    }
}

TEST_F(Schema, hasEachColumnOfTheTable)
{
    const QJsonObject properties = property(u"parameters"_s)["items"_L1]["properties"_L1].toObject();
    for (const ColumnInfo &column : parameterColumns) {
        const bool isCount = column.collect == ColumnConversions::collectNothing; // which follows from a list
        EXPECT_EQ(properties.contains(fieldNameOfColumn(column.column)), !isCount) << column.column;
    }
    EXPECT_EQ(property(u"parameters"_s)["maxItems"_L1].toInt(), std::numeric_limits<qint16>::max());
}

TEST_F(Schema, hasTheKeysAndFormatsThatAreWritten)
{
    QStringList keys;
    for (const MachineTextKey &key : machineTextKeys()) {
        keys << key.key;
    }
    EXPECT_EQ(textsOf(property(u"machine"_s)["items"_L1]["properties"_L1]["key"_L1]["enum"_L1]), sorted(keys));
    EXPECT_EQ(textsOf(property(u"codePage"_s)["enum"_L1]), QStringList({u"1252"_s, u"932"_s}));
    const QJsonObject written = QJsonDocument::fromJson(sheetAsJson({})).object();
    EXPECT_EQ(property(u"format"_s)["const"_L1], written["format"_L1]);
    EXPECT_EQ(property(u"version"_s)["const"_L1], written["version"_L1]);
    EXPECT_EQ(sorted(schema()["properties"_L1].toObject().keys()), sorted(written.keys()));
    EXPECT_EQ(textsOf(schema()["required"_L1]), sorted(written.keys()));
}

TEST_F(Schema, isKeptByWhatConvertWrites)
{
    makeFolder();
    put(u"a.inv"_s, threeRows());
    ASSERT_EQ(run({u"convert"_s, u"a.inv"_s, u"files/a.json"_s}).status, 0);
    for (quint32 seed = 0; seed < 200; ++seed) {
        const int codePage = seed % 2 == 0 ? 932 : 1252;
        RandomDocument random(seed, codePage == 932);
        const Document document{random.machineInfo(), random.records(8), codePage};
        put(u"files/%1.json"_s.arg(seed), sheetAsJson(sheetOf(document)));
    }
    EXPECT_EQ(invalidFiles(), QStringList());
}

TEST_F(Schema, andTheReaderRefuseTheSameThings)
{
    makeFolder();
    put(u"a.inv"_s, threeRows());
    const QByteArray json = run({u"convert"_s, u"--to"_s, u"json"_s, u"a.inv"_s, u"-"_s}).out;
    const std::pair<QByteArray, QByteArray> faults[] = {{"\"tabrix-parameters\"", "\"other\""},
        {"\"version\": 1", "\"version\": 2"}, {"1252", "437"}, {"\"options\"", "\"option\""}, {"\"unit\"", "\"units\""},
        {"\"unit\": \"%\"", "\"unit\": 1"}, {"\"SoftWareVersion\"", "\"Version\""},
        {"\"capacity\": \"0.4\"", "\"capacity\": \"0.4\", \"power\": \"1\""}};
    QStringList names;
    for (const auto &[before, after] : faults) {
        const QByteArray faulty = QByteArray(json).replace(before, after);
        EXPECT_NE(faulty, json) << before.constData();
        EXPECT_TRUE(sheetFromJson(faulty).failure) << after.constData();
        names << u"%1.json"_s.arg(names.size());
        put(u"files/"_s + names.last(), faulty);
    }
    EXPECT_EQ(invalidFiles(), sorted(names));
}

TEST(SheetJson, takesNoMoreParametersThanAFileHas)
{
    QJsonObject root = QJsonDocument::fromJson(sheetAsJson({})).object();
    root["codePage"_L1] = 1252;
    Sheet sheet;
    sheet.codePage = 1252;
    const auto fieldCount = qsizetype(sheetPart(SheetPart::Parameters).fields.size());
    sheet.part(SheetPart::Parameters).append(SheetEntry{{u"1"_s}, QStringList(fieldCount, QString())});
    const QJsonValue row = QJsonDocument::fromJson(sheetAsJson(sheet)).object()["parameters"_L1].toArray().first();
    QJsonArray rows;
    for (int i = 0; i <= std::numeric_limits<qint16>::max(); ++i) {
        rows.append(row);
    }
    root["parameters"_L1] = rows;
    EXPECT_TRUE(sheetFromJson(QJsonDocument(root).toJson()).failure->contains(u"32767"));
    rows.removeLast();
    root["parameters"_L1] = rows;
    EXPECT_FALSE(sheetFromJson(QJsonDocument(root).toJson()).failure);
}

} // namespace
