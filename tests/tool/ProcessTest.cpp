#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"
#include "tests/tool/ToolProcess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

QByteArray replaced(const QByteArray &before, const QByteArray &after)
{
    QByteArray bytes = threeRows();
    EXPECT_TRUE(bytes.contains(before)) << before.constData();
    return bytes.replace(before, after);
}

/// Parameter 1 with a factory setting outside its range
QByteArray outside()
{
    return replaced(",6,3,1,1,0,30", ",31,3,1,1,0,30");
}

const QByteArray finding = "outside.inv:1:9: warning: Parameter 1, \"Factory Setting\": 31 is outside its ranges 0-30. "
                           "[factory-outside-ranges]\n";

TEST_F(ToolProcess, helpNamesEveryCommandAndEachHasItsOwn)
{
    const ToolRun help = run({u"--help"_s});
    EXPECT_EQ(help.status, 0);
    for (const QString &command : {u"check"_s, u"diff"_s, u"patch"_s, u"merge"_s, u"convert"_s, u"text"_s, u"format"_s,
             u"show"_s, u"git-setup"_s, u"help"_s}) {
        EXPECT_TRUE(help.out.contains("\n  " + command.toUtf8() + " ")) << command.toStdString();
        const ToolRun own = run({command, u"--help"_s});
        EXPECT_EQ(own.status, 0);
        EXPECT_TRUE(own.out.startsWith("Usage: tabrix-tool " + command.toUtf8() + " [OPTION...]"))
            << own.out.constData();
        EXPECT_TRUE(own.out.contains("--code-page")) << own.out.constData();
    }
    EXPECT_TRUE(run({u"--version"_s}).out.startsWith("tabrix-tool "));
}

TEST_F(ToolProcess, wrongArgumentsAreStatusTwoAndNameTheHelp)
{
    const QString file = put(u"a.inv"_s, threeRows());
    const QList<QStringList> wrong = {{}, {u"chek"_s, file}, {u"check"_s, u"--bar"_s, file}, {u"check"_s},
        {u"check"_s, u"--severity"_s, u"bad"_s, file}, {u"check"_s, u"--code-page"_s, u"437"_s, file},
        {u"check"_s, u"--select"_s, u"no-such-id"_s, file}, {u"check"_s, u"--language"_s, u"fr"_s, file},
        {u"diff"_s, file}, {u"diff"_s, u"--fields"_s, u"colour"_s, file, file}, {u"format"_s, file, file},
        {u"merge"_s, file, file}, {u"patch"_s, file}};
    for (const QStringList &arguments : wrong) {
        EXPECT_EQ(run(arguments).status, 2) << arguments.join(u' ').toStdString();
    }
}

TEST_F(ToolProcess, checkNamesRowColumnAndIdAndEndsWithOne)
{
    put(u"outside.inv"_s, outside());
    put(u"fine.inv"_s, threeRows());
    const ToolRun fine = run({u"check"_s, u"fine.inv"_s});
    EXPECT_EQ(fine.status, 0) << fine.out.constData();
    EXPECT_EQ(fine.out, "");
    const ToolRun found = run({u"check"_s, u"outside.inv"_s});
    EXPECT_EQ(found.status, 1);
    EXPECT_EQ(found.out, finding);
    const ToolRun quiet = run({u"check"_s, u"--quiet"_s, u"outside.inv"_s});
    EXPECT_EQ(quiet.status, 1);
    EXPECT_EQ(quiet.out, "");
    EXPECT_EQ(run({u"check"_s, u"--severity"_s, u"error"_s, u"outside.inv"_s}).status, 0);
    EXPECT_EQ(run({u"check"_s, u"--ignore"_s, u"factory-outside-ranges"_s, u"outside.inv"_s}).status, 0);
    EXPECT_EQ(run({u"check"_s, u"--select"_s, u"number-twice"_s, u"outside.inv"_s}).status, 0);
    EXPECT_TRUE(run({u"check"_s, u"--language=ja"_s, u"outside.inv"_s}).out.contains("設定範囲 0-30 の外"));
}

TEST_F(ToolProcess, checkReadsStandardInput)
{
    const ToolRun fromInput = run({u"check"_s, u"-"_s}, outside());
    EXPECT_EQ(fromInput.status, 1);
    EXPECT_EQ(fromInput.out, QByteArray(finding).replace("outside.inv", "-"));
}

TEST_F(ToolProcess, checkGivesJson)
{
    put(u"outside.inv"_s, outside());
    put(u"fine.inv"_s, threeRows());
    const ToolRun found = run({u"check"_s, u"--format"_s, u"json"_s, u"outside.inv"_s, u"fine.inv"_s});
    EXPECT_EQ(found.status, 1);
    const QJsonArray files = QJsonDocument::fromJson(found.out)["files"_L1].toArray();
    ASSERT_EQ(files.size(), 2) << found.out.constData();
    EXPECT_EQ(files[1]["findings"_L1].toArray().size(), 0);
    const QJsonValue one = files[0]["findings"_L1][0];
    EXPECT_EQ(one["id"_L1].toString(), u"factory-outside-ranges"_s);
    EXPECT_EQ(one["severity"_L1].toString(), u"warning"_s);
    EXPECT_EQ(one["row"_L1].toInt(), 1);
    EXPECT_EQ(one["column"_L1].toInt(), 9);
    EXPECT_EQ(one["field"_L1].toString(), u"factorySetting"_s);
    EXPECT_EQ(one["parameter"_L1].toString(), u"1"_s);
}

TEST_F(ToolProcess, manyFilesComeInOrderAndOneBadFileDoesNotStopTheRest)
{
    QStringList names = {u"check"_s};
    QByteArray expected;
    for (int i = 0; i < 40; ++i) {
        const QString name = u"%1.inv"_s.arg(i);
        put(name, outside());
        names << name;
        expected += QByteArray(finding).replace("outside.inv", name.toUtf8());
    }
    names.insert(7, u"missing.inv"_s);
    const ToolRun found = run(names);
    EXPECT_EQ(found.status, 2);
    EXPECT_EQ(found.out, expected);
    EXPECT_EQ(QString::fromUtf8(found.err), u"tabrix-tool: missing.inv: %1\n"_s.arg(ThisSystem::words(ENOENT)));
}

TEST_F(ToolProcess, unreadableFilesAreStatusTwo)
{
    EXPECT_EQ(run({u"check"_s, path(u"."_s)}).status, 2);
    EXPECT_EQ(run({u"show"_s, u"missing.inv"_s}).status, 2);
    put(u"broken.inv"_s, replaced("[Paramater]", "[paramater]"));
    const ToolRun show = run({u"show"_s, u"broken.inv"_s});
    EXPECT_EQ(show.status, 2);
    EXPECT_EQ(show.err, "tabrix-tool: broken.inv: There is no line \"[Paramater]\".\n");
    QFile closed(put(u"closed.inv"_s, threeRows()));
    closed.setPermissions({});
    if (!closed.open(QFile::ReadOnly)) { // root may read anything
        EXPECT_EQ(run({u"check"_s, u"closed.inv"_s}).status, 2);
    }
}

TEST_F(ToolProcess, diffTellsWhatDiffersByNumber)
{
    put(u"old.inv"_s, threeRows());
    put(u"new.inv"_s, replaced("Torque boost,%,0.1,-1,-1,6,", "Boost,%,0.1,-1,-1,06,"));
    const ToolRun same = run({u"diff"_s, u"old.inv"_s, u"old.inv"_s});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out, "");
    const ToolRun diff = run({u"diff"_s, u"old.inv"_s, u"new.inv"_s});
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "--- old.inv\n+++ new.inv\n! Parameter 1, Name: \"Torque boost\" -> \"Boost\"\n");
    const ToolRun exact = run({u"diff"_s, u"--exact"_s, u"old.inv"_s, u"new.inv"_s});
    EXPECT_TRUE(exact.out.contains("! Parameter 1, Factory Setting: \"6\" -> \"06\"\n")) << exact.out.constData();
    EXPECT_EQ(run({u"diff"_s, u"--fields"_s, u"unit,ranges"_s, u"old.inv"_s, u"new.inv"_s}).status, 0);
    EXPECT_EQ(run({u"diff"_s, u"--summary"_s, u"old.inv"_s, u"new.inv"_s}).out,
        "changed: 1, added: 0, removed: 0, moved: 0\n");
    EXPECT_EQ(run({u"diff"_s, u"--quiet"_s, u"old.inv"_s, u"new.inv"_s}).out, "");
    EXPECT_EQ(run({u"diff"_s, u"old.inv"_s, u"missing.inv"_s}).status, 2);
}

TEST_F(ToolProcess, diffTellsWhatWasAddedRemovedAndMoved)
{
    const QByteArray first = "0,1,1001,Torque boost,%,0.1,-1,-1,6,3,1,1,0,30\r\n";
    put(u"old.inv"_s, threeRows());
    put(u"moved.inv"_s, replaced(first, "").append(first));
    EXPECT_EQ(run({u"diff"_s, u"old.inv"_s, u"moved.inv"_s}).out,
        "--- old.inv\n+++ moved.inv\n~ Parameter 1: moved after 990\n");
    put(u"less.inv"_s, replaced(first, "").replace("Paramater=3", "Paramater=2"));
    EXPECT_TRUE(run({u"diff"_s, u"old.inv"_s, u"less.inv"_s}).out.contains("\n- Parameter 1: "));
    EXPECT_TRUE(run({u"diff"_s, u"less.inv"_s, u"old.inv"_s}).out.contains("\n+ Parameter 1: "));
}

TEST_F(ToolProcess, diffGivesAPageOfItsOwn)
{
    put(u"old.inv"_s, threeRows());
    put(u"new.inv"_s, replaced("Torque boost", "<b>&"));
    const ToolRun page =
        run({u"diff"_s, u"--format"_s, u"html"_s, u"-o"_s, u"page.html"_s, u"old.inv"_s, u"new.inv"_s});
    EXPECT_EQ(page.status, 1);
    EXPECT_EQ(page.out, "");
    const QByteArray html = contentOf(u"page.html"_s);
    EXPECT_TRUE(html.startsWith("<!DOCTYPE html>"));
    EXPECT_TRUE(html.contains("<td class=\"after\">&lt;b&gt;&amp;</td>")) << html.constData();
    EXPECT_FALSE(html.contains("http")); // nothing is loaded from elsewhere
}

TEST_F(ToolProcess, textHasOneValueALine)
{
    put(u"a.inv"_s, threeRows());
    const ToolRun text = run({u"text"_s, u"a.inv"_s});
    EXPECT_EQ(text.status, 0);
    EXPECT_TRUE(text.out.startsWith("machine Name: XT-200\n")) << text.out.constData();
    EXPECT_TRUE(text.out.contains("\nparameters 79 conditions: MODE/1,1=1-3\n")) << text.out.constData();
    EXPECT_EQ(text.out.count('\n'), 5 + 1 + 1 + 3 * 11);
    EXPECT_EQ(run({u"text"_s, u"--language"_s, u"ja"_s, u"a.inv"_s}).out, text.out);
    EXPECT_EQ(run({u"text"_s, u"-"_s}, "no parameter file\r\n").out, "no parameter file\n");
}

TEST_F(ToolProcess, formatGivesWhatASaveGives)
{
    put(u"odd.inv"_s, replaced(",-1,6,3,", ",-1, 006 ,3,"));
    const ToolRun formatted = run({u"format"_s, u"odd.inv"_s});
    EXPECT_EQ(formatted.status, 0) << formatted.err.constData();
    EXPECT_EQ(formatted.out, threeRows());
    put(u"fine.inv"_s, threeRows());
    const ToolRun listed = run({u"format"_s, u"--check"_s, u"odd.inv"_s, u"fine.inv"_s});
    EXPECT_EQ(listed.status, 1);
    EXPECT_EQ(listed.out, "odd.inv\n");
    EXPECT_NE(contentOf(u"odd.inv"_s), threeRows());
    EXPECT_EQ(run({u"format"_s, u"--in-place"_s, u"odd.inv"_s, u"fine.inv"_s}).status, 0);
    EXPECT_EQ(contentOf(u"odd.inv"_s), threeRows());
    EXPECT_EQ(run({u"format"_s, u"--in-place"_s, u"-"_s}, threeRows()).status, 2);
}

TEST_F(ToolProcess, formatLosesNothingUnlessForced)
{
    const QByteArray lossy = replaced(",6,3,1,1,0,30", ",6,3,1,1,40,30");
    put(u"lossy.inv"_s, lossy);
    const ToolRun refused = run({u"format"_s, u"--in-place"_s, u"lossy.inv"_s});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.err.contains("lossy.inv would lose data (errors: 1)")) << refused.err.constData();
    EXPECT_EQ(contentOf(u"lossy.inv"_s), lossy);
    EXPECT_EQ(run({u"format"_s, u"--in-place"_s, u"--force"_s, u"lossy.inv"_s}).status, 0);
    EXPECT_EQ(contentOf(u"lossy.inv"_s), QByteArray(lossy).replace(",40,30\r\n", ",40,0\r\n"));
}

TEST_F(ToolProcess, showAlignsWideCharacters)
{
    put(u"a.inv"_s, replaced("Torque boost", "\x93\x64\x88\xB3"));
    const ToolRun show = run({u"show"_s, u"--code-page"_s, u"932"_s, u"a.inv"_s});
    EXPECT_EQ(show.status, 0);
    EXPECT_TRUE(show.out.contains("\n1    電圧            0-30")) << show.out.constData();
    EXPECT_TRUE(show.out.contains("\n79   Operation mode  0-7 ")) << show.out.constData();
}

TEST_F(ToolProcess, patchAppliesWhatDiffWrote)
{
    put(u"old.inv"_s, threeRows());
    put(u"new.inv"_s, replaced("Torque boost", "Boost"));
    ASSERT_EQ(run({u"diff"_s, u"--format"_s, u"json"_s, u"-o"_s, u"c.json"_s, u"old.inv"_s, u"new.inv"_s}).status, 1);
    EXPECT_EQ(run({u"patch"_s, u"old.inv"_s, u"c.json"_s}).out, contentOf(u"new.inv"_s));
    const QByteArray third = replaced("Operation mode", "Mode");
    put(u"third.inv"_s, third);
    EXPECT_EQ(run({u"patch"_s, u"third.inv"_s, u"c.json"_s, u"-o"_s, u"third.inv"_s}).status, 0);
    EXPECT_EQ(contentOf(u"third.inv"_s), QByteArray(third).replace("Torque boost", "Boost"));
}

TEST_F(ToolProcess, patchListsWhatDoesNotFit)
{
    put(u"old.inv"_s, threeRows());
    put(u"new.inv"_s, replaced("Torque boost", "Boost"));
    run({u"diff"_s, u"--format"_s, u"json"_s, u"-o"_s, u"c.json"_s, u"old.inv"_s, u"new.inv"_s});
    put(u"other.inv"_s, replaced("Torque boost", "Else"));
    const ToolRun patched = run({u"patch"_s, u"other.inv"_s, u"c.json"_s});
    EXPECT_EQ(patched.status, 1);
    EXPECT_EQ(patched.out, contentOf(u"other.inv"_s));
    EXPECT_EQ(patched.err, "tabrix-tool: Parameter 1: name should be \"Torque boost\" but is \"Else\".\n");
    for (const QByteArray &bad : {QByteArray("{\n\"a\": }"), QByteArray("[]"), QByteArray("{\"format\":\"other\"}"),
             contentOf(u"c.json"_s).replace("\"old\"", "\"odl\""),
             contentOf(u"c.json"_s).replace("changed", "chnged")}) {
        put(u"bad.json"_s, bad);
        EXPECT_EQ(run({u"patch"_s, u"old.inv"_s, u"bad.json"_s, u"-o"_s, u"out.inv"_s}).status, 2) << bad.constData();
    }
    EXPECT_FALSE(QFile::exists(path(u"out.inv"_s)));
    put(u"bad.json"_s, "{\n\"a\": }");
    EXPECT_TRUE(run({u"patch"_s, u"old.inv"_s, u"bad.json"_s}).err.contains("Line 2, column 6: "));
}

TEST_F(ToolProcess, mergeTakesBothSidesAndListsConflicts)
{
    put(u"base.inv"_s, threeRows());
    put(u"ours.inv"_s, replaced("Torque boost", "Boost"));
    put(u"theirs.inv"_s, replaced("Buzzer control", "Buzzer"));
    const ToolRun merged = run({u"merge"_s, u"base.inv"_s, u"ours.inv"_s, u"theirs.inv"_s});
    EXPECT_EQ(merged.status, 0) << merged.err.constData();
    EXPECT_EQ(merged.out, replaced("Torque boost", "Boost").replace("Buzzer control", "Buzzer"));
    put(u"theirs.inv"_s, replaced("Torque boost", "Torque"));
    const ToolRun conflict = run(
        {u"merge"_s, u"--name"_s, u"x.inv"_s, u"-o"_s, u"out.inv"_s, u"base.inv"_s, u"ours.inv"_s, u"theirs.inv"_s});
    EXPECT_EQ(conflict.status, 1);
    EXPECT_EQ(conflict.err,
        "tabrix-tool: x.inv: Parameter 1, Name: base \"Torque boost\", ours \"Boost\", theirs \"Torque\". Ours was "
        "kept.\n");
    EXPECT_EQ(contentOf(u"out.inv"_s), contentOf(u"ours.inv"_s));
}

TEST_F(ToolProcess, convertGoesByTheEndingsAndBack)
{
    put(u"a.INV"_s, threeRows());
    for (const QString &name : {u"a.csv"_s, u"a.json"_s}) {
        EXPECT_EQ(run({u"convert"_s, u"a.INV"_s, name}).status, 0);
        EXPECT_EQ(run({u"convert"_s, name, u"b.ine"_s}).status, 0);
        EXPECT_EQ(contentOf(u"b.ine"_s), threeRows()) << contentOf(name).constData();
    }
    EXPECT_TRUE(contentOf(u"a.csv"_s).startsWith("number,name,ranges,rangeCheck,min1,"));
    EXPECT_TRUE(
        contentOf(u"a.csv"_s).contains("\r\n79,Operation mode,0-7,1,1,No,No,,0,1079,0001,2,\"MODE/1,1=1-3\"\r\n"))
        << contentOf(u"a.csv"_s).constData();
    EXPECT_EQ(
        run({u"convert"_s, u"--from"_s, u"csv"_s, u"--to"_s, u"inv"_s, u"-"_s, u"-"_s}, contentOf(u"a.csv"_s)).out,
        threeRows());
}

TEST_F(ToolProcess, convertNamesTheLineAndWritesNothing)
{
    put(u"a.inv"_s, threeRows());
    ASSERT_EQ(run({u"convert"_s, u"a.inv"_s, u"a.csv"_s}).status, 0);
    ASSERT_EQ(run({u"convert"_s, u"a.inv"_s, u"a.json"_s}).status, 0);
    const QByteArray csv = contentOf(u"a.csv"_s);
    const QByteArray json = contentOf(u"a.json"_s);
    const QList<std::pair<QByteArray, QByteArray>> bad = {
        {QByteArray(csv).replace("79,Oper", "79,extra,Oper"), "Line 3, column 54: there are 14 fields instead of 13."},
        {QByteArray(csv).replace("79,Oper", "79Oper"), "Line 3, column 47: there are 12 fields instead of 13."},
        {QByteArray(csv).replace(",unit", ",units"), "Line 1, column 46: the columns have to be "},
        {QByteArray(csv).replace(",unit", ",name"), "Line 1, column 46: the columns have to be "},
        {QByteArray(csv).replace(",0001,", ",10001,"), "Line 3, column 41: the number is too large"},
        {QByteArray(csv).replace("TypeCode,", "Typecode,"), "Line 7, column 1: \"Typecode\""},
        {QByteArray(csv).replace("CodePage,1252", "CodePage,437"), "column 1: \"CodePage\""},
        {QByteArray(csv).replace("CodePage,1252\r\n", ""), "column 1: CodePage is missing"},
        {QByteArray(csv).replace("Torque", "\xE9"), "Line 2, column 3: the text is not UTF-8."},
        {QByteArray(json).replace("\"unit\"", "\"units\""), "parameters[0]: \"unit\" is missing"},
        {QByteArray(json).replace("\"options\"", "\"option\""), "options: this is not an array"},
        {QByteArray(json).replace("SoftWareVersion", "Version"), "machine[4]: \"Version\" is not known"},
        {QByteArray(json).replace("\"0-7\"", "\"0-7x\""), "parameters[1]: \"ranges\" is not in its form: 0-7x"},
        {QByteArray(json).replace("1=1-3", "1=1-"), "parameters[1]: \"conditions\" is not in its form"},
        {QByteArray(json).replace("1252", "437"), "\"codePage\""}, {"{\n \"a\" 1}", "Line 2, column 6: "}};
    for (const auto &[content, message] : bad) {
        const QString name = content.startsWith('{') ? u"bad.json"_s : u"bad.csv"_s;
        put(name, content);
        const ToolRun result = run({u"convert"_s, name, u"out.inv"_s});
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.contains(message)) << result.err.constData();
    }
    EXPECT_FALSE(QFile::exists(path(u"out.inv"_s)));
    EXPECT_EQ(run({u"convert"_s, u"a.inv"_s, u"a.xml"_s}).status, 2);
}

TEST_F(ToolProcess, aFailedWriteLeavesTheEarlierFile)
{
    put(u"base.inv"_s, threeRows());
    QDir(path(u"."_s)).mkdir(u"folder"_s);
    const ToolRun merged = run({u"merge"_s, u"-o"_s, u"folder"_s, u"base.inv"_s, u"base.inv"_s, u"base.inv"_s});
    EXPECT_EQ(merged.status, 2);
    EXPECT_FALSE(merged.err.isEmpty());
    const ToolRun missing = run({u"merge"_s, u"-o"_s, u"no/out.inv"_s, u"base.inv"_s, u"base.inv"_s, u"base.inv"_s});
    EXPECT_EQ(missing.status, 2);
}

} // namespace
