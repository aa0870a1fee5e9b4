#include "tests/support/QtPrinters.h"
#include "tests/tool/ToolProcess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Parameter 1 with a factory setting outside its range
QByteArray outside()
{
    return threeRows().replace(",6,3,1,1,0,30", ",31,3,1,1,0,30");
}

const QByteArray rules = "[factory-outside-ranges]\nseverity=%1\nreason=The drive clips it.\n";

QByteArray ruled(const QByteArray &severity)
{
    return QByteArray(rules).replace("%1", severity);
}

/// The run of a log; everything that the format requires is there.
QJsonValue sarifRun(const QByteArray &bytes)
{
    const QJsonDocument log = QJsonDocument::fromJson(bytes);
    EXPECT_EQ(log["version"_L1].toString(), u"2.1.0"_s) << bytes.constData();
    EXPECT_TRUE(log["$schema"_L1].toString().contains(u"sarif-schema-2.1.0"_s));
    const QJsonArray runs = log["runs"_L1].toArray();
    EXPECT_EQ(runs.size(), 1);
    const QJsonValue run = runs[0];
    EXPECT_EQ(run["tool"_L1]["driver"_L1]["name"_L1].toString(), u"tabrix-tool"_s);
    EXPECT_TRUE(run["results"_L1].isArray());
    EXPECT_TRUE(run["invocations"_L1][0]["executionSuccessful"_L1].isBool());
    const QJsonValue ruleList = run["tool"_L1]["driver"_L1]["rules"_L1];
    for (const QJsonValue &result : run["results"_L1].toArray()) {
        EXPECT_FALSE(result["message"_L1]["text"_L1].toString().isEmpty());
        EXPECT_EQ(ruleList[result["ruleIndex"_L1].toInt(-1)]["id"_L1], result["ruleId"_L1]);
        EXPECT_TRUE(QStringList({u"error"_s, u"warning"_s, u"note"_s}).contains(result["level"_L1].toString()));
        const QJsonValue place = result["locations"_L1][0]["physicalLocation"_L1];
        EXPECT_FALSE(place["artifactLocation"_L1]["uri"_L1].toString().isEmpty());
        for (const QJsonValue &number : place["region"_L1].toObject()) {
            EXPECT_GE(number.toInt(), 1);
        }
    }
    return run;
}

TEST_F(ToolProcess, checkGivesSarif)
{
    put(u"a b.inv"_s, outside());
    put(u"nameless.inv"_s, outside().replace("Name=XT-200", "Name="));
    const ToolRun found =
        run({u"check"_s, u"--format"_s, u"sarif"_s, u"a b.inv"_s, u"nameless.inv"_s, path(u"a b.inv"_s)});
    EXPECT_EQ(found.status, 1);
    const QJsonValue log = sarifRun(found.out);
    const QJsonArray results = log["results"_L1].toArray();
    ASSERT_GE(results.size(), 3) << found.out.constData();
    const QJsonValue first = results[0];
    EXPECT_EQ(first["ruleId"_L1].toString(), u"factory-outside-ranges"_s);
    EXPECT_EQ(first["level"_L1].toString(), u"warning"_s);
    EXPECT_TRUE(first["message"_L1]["text"_L1].toString().contains(u"31 is outside its ranges 0-30"_s));
    const QJsonValue place = first["locations"_L1][0]["physicalLocation"_L1];
    EXPECT_EQ(place["artifactLocation"_L1]["uri"_L1].toString(), u"a%20b.inv"_s);
    EXPECT_EQ(place["region"_L1]["startLine"_L1].toInt(), 1);
    EXPECT_EQ(place["region"_L1]["startColumn"_L1].toInt(), 9);
    const QJsonValue whole = results[1]; // of the machine information, which has no row
    EXPECT_EQ(whole["ruleId"_L1].toString(), u"no-model-name"_s);
    EXPECT_EQ(whole["level"_L1].toString(), u"error"_s);
    EXPECT_TRUE(whole["locations"_L1][0]["physicalLocation"_L1]["region"_L1].isUndefined());
    EXPECT_EQ(results.last()["locations"_L1][0]["physicalLocation"_L1]["artifactLocation"_L1]["uri"_L1].toString(),
        QUrl::fromLocalFile(path(u"a b.inv"_s)).toString(QUrl::FullyEncoded));
    EXPECT_EQ(results.last()["ruleIndex"_L1].toInt(-1), 0); // a rule is listed once
    EXPECT_TRUE(log["invocations"_L1][0]["executionSuccessful"_L1].toBool());
}

TEST_F(ToolProcess, sarifOfFineAndMissingFilesIsWhole)
{
    put(u"fine.inv"_s, threeRows());
    const ToolRun fine = run({u"check"_s, u"--format=sarif"_s, u"fine.inv"_s});
    EXPECT_EQ(fine.status, 0);
    EXPECT_EQ(sarifRun(fine.out)["results"_L1].toArray().size(), 0);
    const ToolRun missing = run({u"check"_s, u"--format=sarif"_s, u"missing.inv"_s, u"fine.inv"_s});
    EXPECT_EQ(missing.status, 2);
    EXPECT_FALSE(sarifRun(missing.out)["invocations"_L1][0]["executionSuccessful"_L1].toBool(true));
}

TEST_F(ToolProcess, rulesDecideWhatAFindingCountsAs)
{
    put(u"a.inv"_s, outside());
    put(u"tabrix-check.ini"_s, ruled("off"));
    EXPECT_EQ(run({u"check"_s, u"a.inv"_s}).status, 0);
    put(u"tabrix-check.ini"_s, ruled("note"));
    EXPECT_EQ(run({u"check"_s, u"a.inv"_s}).status, 0);
    EXPECT_TRUE(run({u"check"_s, u"--severity"_s, u"note"_s, u"a.inv"_s}).out.contains(":1:9: note: "));
    put(u"tabrix-check.ini"_s, ruled("error"));
    const ToolRun strict = run({u"check"_s, u"--severity"_s, u"error"_s, u"a.inv"_s});
    EXPECT_EQ(strict.status, 1);
    EXPECT_TRUE(strict.out.contains(":1:9: error: ")) << strict.out.constData();
    const QByteArray json = run({u"check"_s, u"--format"_s, u"json"_s, u"a.inv"_s}).out;
    EXPECT_EQ(QJsonDocument::fromJson(json)["files"_L1][0]["findings"_L1][0]["severity"_L1].toString(), u"error"_s);
    const QJsonValue log = sarifRun(run({u"check"_s, u"--format"_s, u"sarif"_s, u"a.inv"_s}).out);
    EXPECT_EQ(log["results"_L1][0]["level"_L1].toString(), u"error"_s);
    EXPECT_EQ(
        log["tool"_L1]["driver"_L1]["rules"_L1][0]["defaultConfiguration"_L1]["level"_L1].toString(), u"warning"_s);
}

TEST_F(ToolProcess, theCommandLineComesBeforeTheRules)
{
    put(u"a.inv"_s, outside());
    put(u"tabrix-check.ini"_s, ruled("off"));
    const ToolRun selected = run({u"check"_s, u"--select"_s, u"factory-outside-ranges"_s, u"a.inv"_s});
    EXPECT_EQ(selected.status, 1);
    EXPECT_TRUE(selected.out.contains(": warning: ")) << selected.out.constData();
    put(u"tabrix-check.ini"_s, ruled("error"));
    EXPECT_EQ(run({u"check"_s, u"--ignore"_s, u"factory-outside-ranges"_s, u"a.inv"_s}).status, 0);
}

TEST_F(ToolProcess, rulesAreThoseOfEachFilesFolder)
{
    QDir(path(u"."_s)).mkdir(u"family"_s);
    put(u"a.inv"_s, outside());
    put(u"family/b.inv"_s, outside());
    put(u"family/tabrix-check.ini"_s, ruled("off"));
    const ToolRun found = run({u"check"_s, u"family/b.inv"_s, u"a.inv"_s, u"family/b.inv"_s});
    EXPECT_EQ(found.status, 1);
    EXPECT_TRUE(found.out.startsWith("a.inv:1:9: ")) << found.out.constData();
    EXPECT_EQ(found.out.count('\n'), 1);
    // Standard input is checked as the file whose name it is given.
    EXPECT_EQ(run({u"check"_s, u"-"_s}, outside()).status, 1);
    EXPECT_EQ(run({u"check"_s, u"--name"_s, u"family/c.inv"_s, u"-"_s}, outside()).status, 0);
}

TEST_F(ToolProcess, badRulesAreSaidOnceAndTheOtherFilesAreChecked)
{
    QDir(path(u"."_s)).mkdir(u"family"_s);
    put(u"a.inv"_s, outside());
    put(u"family/b.inv"_s, outside());
    put(u"family/tabrix-check.ini"_s, ruled("of"));
    const ToolRun found = run({u"check"_s, u"family/b.inv"_s, u"family/b.inv"_s, u"a.inv"_s});
    EXPECT_EQ(found.status, 2);
    EXPECT_EQ(found.out.count('\n'), 1);
    EXPECT_EQ(found.err.count('\n'), 1);
    EXPECT_TRUE(found.err.contains("family/tabrix-check.ini: the severity of [factory-outside-ranges] is \"of\""))
        << found.err.constData();
}

TEST_F(ToolProcess, explainTellsTheReasonThatApplies)
{
    put(u"tabrix-check.ini"_s, ruled("off"));
    const QString id = u"factory-outside-ranges"_s;
    const QByteArray plain = run({u"check"_s, u"--explain"_s, id}).out;
    EXPECT_TRUE(plain.startsWith("### factory-outside-ranges\n\nWarning. ")) << plain.constData();
    const QByteArray file = path(u"tabrix-check.ini"_s).toUtf8();
    EXPECT_EQ(run({u"check"_s, u"--explain"_s, id, u"a.inv"_s}).out,
        plain + "\nFor a.inv it is switched off by " + file + ": The drive clips it.\n");
    put(u"tabrix-check.ini"_s, ruled("error"));
    EXPECT_EQ(run({u"check"_s, u"--explain"_s, id, u"a.inv"_s}).out,
        plain + "\nFor a.inv it counts as \"error\" by " + file + ": The drive clips it.\n");
    EXPECT_TRUE(run({u"check"_s, u"--explain"_s, u"number-twice"_s, u"a.inv"_s})
                    .out.endsWith("\nFor a.inv no tabrix-check.ini changes it.\n"));
    EXPECT_EQ(run({u"check"_s, u"--explain"_s, u"no-such-id"_s}).status, 2);
    put(u"tabrix-check.ini"_s, "[nonsense]\nseverity=off\nreason=x\n");
    EXPECT_EQ(run({u"check"_s, u"--explain"_s, id, u"a.inv"_s}).status, 2);
}

} // namespace
