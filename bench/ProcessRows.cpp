// Whole processes. The program starts itself with a mode, and bench_bare and other programs beside it.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/DocumentGenerator.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "editor/FindingMarks.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMdiArea>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Calls what ends the process after the first paint of a window's viewport.
class AtPaint : public QObject
{
public:
    AtPaint(QWidget &viewport, std::function<void()> end) : QObject(&viewport), m_end(std::move(end))
    {
        viewport.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, qApp, m_end);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_end;
};

void endAtOnce()
{
    std::_Exit(0);
}

int showFrame()
{
    MDIfrmTabrix frame;
    frame.load({});
    new AtPaint(*frame.findChild<QMdiArea *>()->viewport(), endAtOnce); // the viewport owns it
    frame.show();
    return QApplication::exec();
}

int showFile(const QString &fileName, const std::function<void()> &end)
{
    MDIfrmTabrix frame;
    frame.load(fileName);
    new AtPaint(*frame.activeEditor()->vaspdParam().viewport(), end); // the viewport owns it
    frame.show();
    return QApplication::exec();
}

qint64 residentBytes()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("the memory in use cannot be read");
    }
    return file.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Prints how the process grows with each of so many documents, the first one's transfer buffer aside, and what the
/// texts of the cells of one take as UTF-16.
int printGrowth(int rows)
{
    constexpr int documents = 9;
    Desk desk(rows);
    const qint64 before = residentBytes();
    for (int i = 0; i < documents; ++i) {
        desk.openAgain();
        while (!desk.editor().findings().isUpToDate()) {
            QApplication::processEvents();
        }
    }
    const qint64 after = residentBytes();
    qsizetype units = 0;
    for (const PlainRow &row : desk.plainRows()) {
        for (const QString &text : row) {
            units += text.size();
        }
    }
    std::printf("%lld %lld\n", static_cast<long long>((after - before) / documents),
        static_cast<long long>(units) * static_cast<long long>(sizeof(char16_t)));
    return 0;
}

/// Reads a document once, so that a counting tool sees that and the start alone.
int readOnce(const QString &fileName)
{
    constexpr qint16 docNo = 1;
    growDocumentTables(docNo);
    BenchHost host(false);
    std::vector<CellRow> rows;
    return ReadPrFile(fileName, docNo, rows, host) ? 1 : 0;
}

/// The same for opening it to the filled grid.
int openOnce(const QString &fileName)
{
    MDIfrmTabrix frame;
    frame.load(fileName);
    return 0;
}

/// Prints the milliseconds that the first save of a run takes, and the first joining of the same fields.
int printFirstSave()
{
    const BenchDocument document(maxRows);
    const QStringList fields = baselines::splitFile(document.fileName());
    const double save = secondsOf([&] { document.save(false); });
    const double join = secondsOf([&] { baselines::joinToFile(fields, document.joinedName()); });
    std::printf("%f %f\n", save * 1000, join * 1000);
    return 0;
}

QString siblingProgram(const QString &name)
{
    return QApplication::applicationDirPath() + u'/' + name;
}

double wallMilliseconds(const QString &program, const QStringList &arguments)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qFatal("%s failed", qPrintable(program));
    }
    return double(timer.nsecsElapsed()) / 1e6;
}

double ownMilliseconds(const QStringList &arguments)
{
    return wallMilliseconds(QApplication::applicationFilePath(), arguments);
}

/// The cells of a generated document as text, with separator between them.
void writeCells(const QString &fileName, const BenchDocument &document, char separator)
{
    QByteArray bytes;
    for (int row = 1; row <= document.rowCount(); ++row) {
        for (int column = 1; column <= benchColumnCount; ++column) {
            QByteArray cell = document.grid().cellText(column, row).toUtf8();
            bytes += separator == ',' ? '"' + cell.replace('"', "\"\"") + '"' : cell;
            bytes += column < benchColumnCount ? separator : '\n';
        }
    }
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write the cells");
    }
}

/// The two figures that a child prints.
Measured figuresOf(const QStringList &arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    const QList<QByteArray> figures = process.readAllStandardOutput().simplified().split(' ');
    if (figures.size() != 2) {
        qFatal("no figures from %s", qPrintable(arguments.join(u' ')));
    }
    return {figures[0].toDouble(), figures[1].toDouble()};
}

/// The bytes by which a child grew, in kilobytes, and those of the texts.
Measured memoryGrowth(int rows)
{
    constexpr double kilobyte = 1024;
    const Measured bytes = figuresOf({u"growth"_s, QString::number(rows)});
    return {bytes.own / kilobyte, bytes.other / kilobyte};
}

void addFirstSaveRow(SpeedTable &table)
{
    Measured last{};
    const auto own = [&last] {
        last = figuresOf({u"first-save"_s});
        return last.own;
    };
    table.add("the first save of a run", "join, encode, write, flush, for the first time", "ms",
        sideBySide(own, [&last] { return last.other; }), 1.4);
}

void addMemoryRows(SpeedTable &table)
{
    const Measured typical = memoryGrowth(typicalRows);
    const Measured largest = memoryGrowth(maxRows);
    table.add(
        "resident growth for 32,767 rows, each of nine more files", "the cells' texts as UTF-16", "KB", largest, 1.6);
    table.add("resident growth, growth to 32,767 rows", "1,000 rows", "bytes a row",
        {largest.own * 1024 / maxRows, typical.own * 1024 / typicalRows}, 1.1);
}

/// Another program that does the same rows from start to exit, if it is installed.
void addPeer(SpeedTable &table, const QString &program, const QStringList &arguments, const QString &file, double min)
{
    const std::string what = "32,767 rows, from start to exit";
    const std::string against = program.toStdString() + " with the same rows as CSV";
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty()) {
        table.addSkipped(what, program.toStdString() + " is not installed");
        return;
    }
    table.addFaster(what, against,
        sideBySide(
            [&file] {
                return ownMilliseconds({u"open-and-exit"_s, file});
            },
            [&] { return wallMilliseconds(path, arguments); }),
        min);
}

} // namespace

void addProcessRows(SpeedTable &table)
{
    const QString bare = siblingProgram(u"bench_bare"_s);
    table.add("start to the first painted frame", "a bare window of documents with a table view", "ms",
        sideBySide(
            [] { return ownMilliseconds({u"frame"_s}); }, [&bare] { return wallMilliseconds(bare, {u"mdi"_s}); }),
        1.3);

    const QTemporaryDir folder(benchFolderTemplate());
    const BenchDocument document(maxRows);
    const QString cells = folder.filePath(u"cells.txt"_s);
    const QString csv = folder.filePath(u"cells.csv"_s);
    writeCells(cells, document, '\t');
    writeCells(csv, document, ',');
    table.addFaster("32,767 rows, from start to the painted window", "a QTableWidget filled with the same fields",
        sideBySide(
            [&document] {
                return ownMilliseconds({u"open"_s, document.fileName()});
            },
            [&] {
                return wallMilliseconds(bare, {u"table"_s, cells});
            }),
        4);
    addPeer(table, u"ssconvert"_s, {csv, folder.filePath(u"out.csv"_s)}, document.fileName(), 50);
    addPeer(table, u"soffice"_s,
        {u"--headless"_s, u"--convert-to"_s, u"csv"_s, u"--outdir"_s, folder.filePath(u"out"_s), csv},
        document.fileName(), 15);
    addMemoryRows(table);
    addFirstSaveRow(table);
}

int runAsChild(const char *mode, const char *argument)
{
    const QByteArrayView name(mode);
    const QString file = QString::fromLocal8Bit(argument);
    if (name == "frame") {
        return showFrame();
    }
    if (name == "open") {
        return showFile(file, endAtOnce);
    }
    if (name == "open-and-exit") {
        return showFile(file, [] { QApplication::quit(); });
    }
    if (name == "count-read") {
        return readOnce(file);
    }
    if (name == "count-open") {
        return openOnce(file);
    }
    if (name == "keys") {
        return printKeyTimes();
    }
    if (name == "first-save") {
        return printFirstSave();
    }
    if (name == "growth") {
        return printGrowth(file.toInt());
    }
    return -1;
}
