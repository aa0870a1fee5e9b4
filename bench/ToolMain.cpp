// bench_tool [rows]: prints the table of how fast the command-line tool is, beside what its users would use instead.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/DocumentGenerator.h"
#include "bench/SpeedTable.h"
#include "check/FileCheck.h"
#include "document/FieldText.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int maxRows = 32767;
constexpr int releaseFiles = 200;
constexpr int releaseRows = 429;
constexpr double milliseconds = 1000;

QString sibling(const QString &name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QFile::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(fileName));
    }
    return file.readAll();
}

void put(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(fileName));
    }
}

/// The milliseconds of a process from start to exit; its status may say that something was found.
double wall(const QString &program, const QStringList &arguments, const QString &output = QProcess::nullDevice())
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(output);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() > 1) {
        qFatal("%s failed", qPrintable(program));
    }
    return double(timer.nsecsElapsed()) / 1e6;
}

double tool(const QStringList &arguments)
{
    return wall(sibling(u"tabrix-tool"_s), arguments);
}

void addStart(SpeedTable &table)
{
    table.add("start of tabrix-tool to its exit", "a bare program on Qt Core", "ms",
        sideBySide([] { return tool({u"--version"_s}); }, [] { return wall(sibling(u"bench_bare_core"_s), {}); }), 1.5);
}

void addCheck(SpeedTable &table, const QString &fileName)
{
    const AnsiCodePage &page = AnsiCodePage::page(1252);
    const auto check = [&] {
        return milliseconds * secondsOf([&] { checkFile(contentOf(fileName), page, fileName); });
    };
    const auto floor = [&] { return milliseconds * secondsOf([&] { baselines::splitFile(fileName); }); };
    table.add("check of 32,767 rows", "decode, split", "ms", sideBySide(check, floor), 2);
}

/// A file in which next to nothing is wrong, as one that is checked before each release.
void writeSound(int rows, quint32 seed, const QString &fileName)
{
    DecodedPrFile decoded = decodePrFile(DocumentGenerator(seed).file(rows), AnsiCodePage::page(1252));
    Document &document = decoded.document;
    document.rows.resize(rows);
    constexpr qsizetype maxPrintedName = 25;
    for (int row = 0; row < rows; ++row) {
        PrRecord &record = document.rows[row];
        record.number = QString::number(row + 1);
        record.helpId = record.number;
        record.name = record.name.first(std::min(record.name.size(), maxPrintedName)).trimmed();
        record.functionCode = u"1"_s;
        record.factorySetting = record.ranges.isEmpty() ? u"0"_s : SingleToText(record.ranges.first().lower);
        record.rangeCheck = record.ranges.isEmpty() ? u"0"_s : u"1"_s;
        for (PrCondition &condition : record.conditions) {
            condition = {u"MODE"_s, 0, u"1"_s, {}};
        }
    }
    const QByteArray bytes = encodePrFile(document).bytes;
    if (checkFile(bytes, AnsiCodePage::page(1252), fileName).size() > rows / 100) {
        qFatal("too much is wrong in the generated file");
    }
    put(fileName, bytes);
}

/// One file after the other, by one thread.
void readAll(const QStringList &names)
{
    for (const QString &name : names) {
        decodePrFile(contentOf(name), AnsiCodePage::page(1252));
    }
}

void addDirectory(SpeedTable &table, const QTemporaryDir &folder)
{
    QStringList names;
    for (int i = 0; i < releaseFiles; ++i) {
        names << folder.filePath(u"%1.inv"_s.arg(i));
        writeSound(releaseRows, quint32(i + 1), names.last());
    }
    const auto check = [&] { return tool(QStringList{u"check"_s, u"--quiet"_s} + names); };
    const auto read = [&] {
        QElapsedTimer timer;
        timer.start();
        readAll(names);
        return double(timer.nsecsElapsed()) / 1e6 / QThread::idealThreadCount();
    };
    table.add("check of 200 files of 429 rows, start to exit", "reading them, by the number of cores", "ms",
        sideBySide(check, read), 1.2);
}

/// A file that differs from the other in the name of every hundredth parameter.
void writeChanged(const QString &from, const QString &to)
{
    constexpr qsizetype nameField = 3;
    QList<QByteArray> lines = contentOf(from).split('\n');
    for (qsizetype i = 100; i < lines.size(); i += 100) {
        QList<QByteArray> fields = lines[i].split(',');
        fields[std::min<qsizetype>(nameField, fields.size() - 1)] += 'x';
        lines[i] = fields.join(',');
    }
    put(to, lines.join('\n'));
}

void addDiff(SpeedTable &table, const QTemporaryDir &folder, const QString &old)
{
    const QString changed = folder.filePath(u"changed.inv"_s);
    writeChanged(old, changed);
    const auto diff = [&] { return tool({u"diff"_s, old, changed}); };
    const QString what = u"diff of 32,767 rows, start to exit"_s;
    const QString git = QStandardPaths::findExecutable(u"git"_s);
    const auto wordDiff = [&] { return wall(git, {u"diff"_s, u"--no-index"_s, u"--word-diff"_s, old, changed}); };
    table.addFaster(what.toStdString(), "git diff --no-index --word-diff", sideBySide(diff, wordDiff), 1);
    const QString python = QStandardPaths::findExecutable(u"python3"_s);
    const QStringList csv = {folder.filePath(u"old.csv"_s), folder.filePath(u"changed.csv"_s)};
    tool({u"convert"_s, old, csv[0]});
    tool({u"convert"_s, changed, csv[1]});
    for (const QString &name : csv) { // the table alone, without the machine information after it
        put(name, contentOf(name).split('\n').first(maxRows + 1).join('\n'));
    }
    const auto script = [&] { return wall(python, QStringList{QStringLiteral(COMPARE_CSV)} + csv); };
    table.addFaster(
        what.toStdString(), "a Python script that compares them as CSV by key", sideBySide(diff, script), 10);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(benchFolderTemplate());
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        qputenv(name, folder.path().toLocal8Bit());
    }
    if (argc < 2) { // otherwise the rows go into a table that has begun
        std::printf("| what | against | tabrix-tool | yardstick | ratio | target | |\n|---|---|---|---|---|---|---|\n");
    }
    const QString largest = folder.filePath(u"largest.inv"_s);
    writeSound(maxRows, 1, largest);
    SpeedTable table;
    addStart(table);
    addCheck(table, largest);
    addDirectory(table, folder);
    addDiff(table, folder, largest);
    return 0;
}
