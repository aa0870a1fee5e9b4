// Whole processes. The program starts itself with a mode, and bench_bare and other programs beside it.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/DocumentGenerator.h"
#include "bench/ProcessMemory.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "editor/FindingMarks.h"
#include "editor/frmPrFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

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

/// Shows the active window, and waits until all of its rows are checked: marks take memory, too.
void letSettle(MDIfrmTabrix &frame)
{
    constexpr int patience = 30'000;
    QElapsedTimer timer;
    timer.start();
    while (!frame.activeEditor()->findings().isUpToDate()) {
        QApplication::processEvents();
        if (timer.elapsed() > patience) {
            qFatal("the rows are not checked");
        }
    }
}

/// Prints by how much each of so many documents makes the process grow, by how much each but the first one does, and
/// what the texts of the cells of one take as UTF-16.
int printGrowth(int rows)
{
    constexpr int documents = 10;
    const QTemporaryDir folder(benchFolderTemplate());
    const QString fileName = folder.filePath(u"a.inv"_s);
    DocumentGenerator(1).write(rows, fileName);
    MDIfrmTabrix frame;
    frame.load({});
    frame.show();
    QApplication::processEvents();
    const qint64 before = residentBytes();
    qint64 afterFirst = 0;
    for (int i = 0; i < documents; ++i) {
        if (!frame.documents().OpenPrFile(fileName)) {
            qFatal("the generated document cannot be opened");
        }
        letSettle(frame);
        afterFirst = i == 0 ? residentBytes() : afterFirst;
    }
    const qint64 after = residentBytes();
    qsizetype units = 0;
    for (const CellRow &row : frame.activeEditor()->vaspdParam().textRows()) {
        units += row.allTexts().size();
    }
    std::printf("%lld %lld %lld\n", (after - before) / documents, (after - afterFirst) / (documents - 1),
        static_cast<long long>(units) * static_cast<long long>(sizeof(char16_t)));
    return 0;
}

/// Reads a document once, so that a counting tool sees that and the start alone.
int readOnce(const QString &fileName)
{
    constexpr qint16 docNo = 1;
    growDocumentTables(docNo);
    BenchHost host(false);
    return ReadPrFile(fileName, docNo, host) ? 1 : 0;
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

/// The figures that a child prints.
QList<double> figuresOf(const QStringList &arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    QList<double> figures;
    for (const QByteArray &figure : process.readAllStandardOutput().simplified().split(' ')) {
        figures << figure.toDouble();
    }
    if (process.exitCode() != 0) {
        qFatal("no figures from %s", qPrintable(arguments.join(u' ')));
    }
    return figures;
}

void addFirstSaveRow(SpeedTable &table)
{
    QList<double> last;
    const auto own = [&last] {
        last = figuresOf({u"first-save"_s});
        return last[0];
    };
    table.add("the first save of a run", "join, encode, write, flush, for the first time", "ms",
        sideBySide(own, [&last] { return last[1]; }), 1.4);
}

void addMemoryRows(SpeedTable &table)
{
    constexpr double kilobyte = 1024;
    const auto growth = [](int rows) { return figuresOf({u"growth"_s, QString::number(rows)}); };
    const QList<double> typical = growth(typicalRows);
    const QList<double> largest = growth(maxRows);
    const double texts = largest[2] / kilobyte;
    table.add("resident growth by ten files of 32,767 rows, each", "the cells' texts as UTF-16", "KB",
        {largest[0] / kilobyte, texts}, 1.6);
    table.add("resident growth by nine more files, each", "the cells' texts as UTF-16", "KB",
        {largest[1] / kilobyte, texts}, 1.6);
    table.add("resident growth by nine more files, growth to 32,767 rows", "1,000 rows", "bytes a row",
        {largest[1] / maxRows, typical[1] / typicalRows}, 1.1);
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
    document.writeCells(cells, '\t');
    table.addFaster("32,767 rows, from start to the painted window", "a QTableWidget filled with the same fields",
        sideBySide(
            [&document] {
                return ownMilliseconds({u"open"_s, document.fileName()});
            },
            [&] {
                return wallMilliseconds(bare, {u"table"_s, cells});
            }),
        4);
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
    if (name == "count-read") {
        return readOnce(file);
    }
    if (name == "count-open") {
        return openOnce(file);
    }
    if (name == "show") {
        return showFile(file, [] {});
    }
    if (name == "picture") {
        return printPictureTime(QApplication::arguments().mid(2));
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
