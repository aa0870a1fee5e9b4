#include "tests/support/QtPrinters.h"
#include "tests/tool/ToolProcess.h"
#include "tool/DocumentXlsx.h"

#include <QFile>
#include <QMap>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

/// The cells of one sheet by their names, as texts; a number is in parentheses.
using Cells = QMap<QString, QString>;

/// A workbook as a spreadsheet reads it.
class Xlsx : public ToolProcess
{
protected:
    /// Converts the file with these further arguments and takes the workbook apart.
    void convert(const QString &name, const QStringList &more = {})
    {
        const ToolRun result = run(QStringList{u"convert"_s, name, u"out.xlsx"_s} + more);
        ASSERT_EQ(result.status, 0) << result.err.constData();
        ASSERT_EQ(shell(u"rm -rf parts && python3 -m zipfile -e out.xlsx parts"_s).status, 0);
    }

    /// The texts of the elements of that name in a part, an element's own texts joined.
    QStringList texts(const QString &part, const QString &element) const
    {
        QXmlStreamReader xml(contentOf(u"parts/"_s + part));
        QStringList found;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == element) {
                found << xml.readElementText(QXmlStreamReader::IncludeChildElements);
            }
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        return found;
    }

    /// The values of an attribute of all elements of that name.
    QStringList attributes(const QString &part, const QString &element, const QString &attribute) const
    {
        QXmlStreamReader xml(contentOf(u"parts/"_s + part));
        QStringList found;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == element) {
                found << xml.attributes().value(attribute).toString();
            }
        }
        return found;
    }

    Cells cells(int sheet) const
    {
        const QStringList shared = texts(u"xl/sharedStrings.xml"_s, u"si"_s);
        QXmlStreamReader xml(contentOf(u"parts/"_s + sheetPart(sheet)));
        Cells found;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "c"_L1) {
                const QString name = xml.attributes().value("r"_L1).toString();
                const bool isText = xml.attributes().value("t"_L1) == "s"_L1;
                const QString value = xml.readElementText(QXmlStreamReader::IncludeChildElements);
                found[name] = isText ? shared.value(value.toInt()) : u'(' + value + u')';
            }
        }
        return found;
    }

    static QString sheetPart(int sheet) { return u"xl/worksheets/sheet%1.xml"_s.arg(sheet); }
};

TEST_F(Xlsx, hasTheEditorsTableWithItsHeadingInView)
{
    put(u"a.inv"_s, threeRows());
    convert(u"a.inv"_s);
    EXPECT_EQ(attributes(u"xl/workbook.xml"_s, u"sheet"_s, u"name"_s),
        QStringList({u"Parameters"_s, u"Machine information"_s}));
    const Cells table = cells(1);
    EXPECT_EQ(table[u"A1"_s], u"Pr"_s);
    EXPECT_EQ(table[u"M1"_s], u"Pr Read Condition"_s);
    EXPECT_EQ(table[u"A3"_s], u"(79)"_s);
    EXPECT_EQ(table[u"B3"_s], u"Operation mode"_s);
    EXPECT_EQ(table[u"C3"_s], u"0-7"_s);
    EXPECT_EQ(table[u"F3"_s], u"No"_s);
    EXPECT_EQ(table[u"K3"_s], u"0001"_s);
    EXPECT_EQ(table[u"M3"_s], u"MODE/1,1=1-3"_s);
    EXPECT_FALSE(table.contains(u"H3"_s)); // no unit
    EXPECT_FALSE(table.contains(u"A5"_s));
    EXPECT_EQ(attributes(sheetPart(1), u"pane"_s, u"state"_s), QStringList(u"frozen"_s));
    EXPECT_EQ(attributes(sheetPart(1), u"pane"_s, u"ySplit"_s), QStringList(u"1"_s));
    EXPECT_EQ(attributes(sheetPart(1), u"autoFilter"_s, u"ref"_s), QStringList(u"A1:M4"_s));
    const QStringList widths = attributes(sheetPart(1), u"col"_s, u"width"_s);
    EXPECT_EQ(widths.size(), 13);
    EXPECT_GT(widths[1].toDouble(), 14); // "Operation mode"
    EXPECT_LT(widths[0].toDouble(), 10);
}

TEST_F(Xlsx, hasTheMachineInformationOnItsOwnSheet)
{
    put(u"a.inv"_s, threeRows());
    convert(u"a.inv"_s);
    const Cells machine = cells(2);
    EXPECT_EQ(machine[u"A1"_s], u"Type"_s);
    EXPECT_EQ(machine[u"B1"_s], u"XT-200"_s);
    EXPECT_EQ(machine[u"B5"_s], u"1.00"_s);
    EXPECT_EQ(machine[u"B6"_s], u"1252"_s);
    EXPECT_EQ(machine[u"A9"_s], u"(0.4)"_s);
    EXPECT_EQ(machine[u"B9"_s], u"(2.5)"_s);
    EXPECT_EQ(machine[u"A12"_s], u"A"_s);
    convert(u"a.inv"_s, {u"--language"_s, u"ja"_s});
    EXPECT_EQ(attributes(u"xl/workbook.xml"_s, u"sheet"_s, u"name"_s), QStringList({u"パラメータ"_s, u"機種情報"_s}));
    EXPECT_EQ(cells(2)[u"A1"_s], u"ｲﾝﾊﾞｰﾀ形名"_s);
}

TEST_F(Xlsx, keepsTextsThatSpreadsheetsWouldReadAsSomethingElse)
{
    const QByteArray name = "=1+1 & <b> _x0041_ \x01";
    put(u"a.inv"_s, threeRows().replace("Torque boost", name));
    convert(u"a.inv"_s);
    EXPECT_EQ(cells(1)[u"B2"_s], u"=1+1 & <b> _x005F_x0041_ _x0001_"_s);
    EXPECT_TRUE(texts(sheetPart(1), u"f"_s).isEmpty()); // no formula
}

TEST_F(Xlsx, isTheSameForTheSameContent)
{
    put(u"a.inv"_s, threeRows());
    convert(u"a.inv"_s);
    const QByteArray first = contentOf(u"out.xlsx"_s);
    convert(u"a.inv"_s);
    EXPECT_EQ(contentOf(u"out.xlsx"_s), first);
    ASSERT_EQ(shell(u"SOURCE_DATE_EPOCH=1700000000 $TOOL convert a.inv out.xlsx"_s).status, 0);
    EXPECT_NE(contentOf(u"out.xlsx"_s), first);
    ASSERT_EQ(shell(u"python3 -m zipfile -e out.xlsx parts"_s).status, 0);
    EXPECT_EQ(texts(u"docProps/core.xml"_s, u"created"_s), QStringList(u"2023-11-14T22:13:20Z"_s));
}

TEST_F(Xlsx, isNotWrittenInPart)
{
    put(u"a.inv"_s, threeRows());
    put(u"bad.csv"_s, "number\r\n");
    EXPECT_EQ(run({u"convert"_s, u"bad.csv"_s, u"bad.xlsx"_s}).status, 2);
    EXPECT_FALSE(QFile::exists(path(u"bad.xlsx"_s)));
    const ToolRun read = run({u"convert"_s, u"a.xlsx"_s, u"b.inv"_s});
    EXPECT_EQ(read.status, 2);
    EXPECT_EQ(read.err,
        "tabrix-tool: a.xlsx: neither the ending nor an option tells the format, which is one of inv, json, csv.\n");
}

// A limit on files' sizes is met as a full disk is, but by this process alone.
TEST_F(Xlsx, tellsOfAFullDisk)
{
    put(u"a.inv"_s, threeRows());
    put(u"out.xlsx"_s, "earlier");
    const ToolRun full = shell(u"trap '' XFSZ; ulimit -f 1; $TOOL convert a.inv out.xlsx"_s);
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.err, "tabrix-tool: out.xlsx cannot be written: File too large\n");
    EXPECT_EQ(contentOf(u"out.xlsx"_s), "earlier");
    if (QFile::exists(u"/dev/full"_s)) {
        const ToolRun stream = shell(u"$TOOL convert --to xlsx a.inv - > /dev/full"_s);
        EXPECT_EQ(stream.status, 2);
        EXPECT_TRUE(stream.err.startsWith("tabrix-tool: The output cannot be written: ")) << stream.err.constData();
    }
}

TEST(Workbook, hasANumberWhereItIsShownByTheSameText)
{
    const std::pair<QString, bool> cases[] = {{u"0"_s, true}, {u"-1"_s, true}, {u"0.4"_s, true}, {u"30000"_s, true},
        {u"-0.25"_s, true}, {u"99999999999"_s, true}, {u""_s, false}, {u"007"_s, false}, {u"1.0"_s, false},
        {u"1."_s, false}, {u".5"_s, false}, {u"-0"_s, false}, {u"-0.0"_s, false}, {u"+1"_s, false}, {u" 1"_s, false},
        {u"1e3"_s, false}, {u"1,5"_s, false}, {u"999999999999"_s, false}, {u"No"_s, false}};
    for (const auto &[text, isNumber] : cases) {
        Document document;
        document.rows.resize(1);
        document.rows[0].factorySetting = text;
        document.rows[0].name = text;
        const WorkbookRow row = workbookOf(document).sheets[0].rows[1];
        EXPECT_EQ(row.cells[8], (WorkbookCell{text, isNumber})) << text.toStdString();
        EXPECT_EQ(row.cells[1], (WorkbookCell{text, false})) << text.toStdString();
    }
}

} // namespace
