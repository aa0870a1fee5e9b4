// Other programs with the same rows: from their start until cells are on the screen of an X server of their own, and to
// a PDF file.

#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QStandardPaths>
#include <QThread>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int peerRuns = 3; // they take seconds

/// Whether a part of the screen that a table covers shows cells with texts: light, and not empty.
bool showsCells(const QImage &picture)
{
    constexpr int light = 200;
    constexpr int dark = 100;
    int lights = 0;
    int darks = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int value = qGray(picture.pixel(x, y));
            lights += value > light ? 1 : 0;
            darks += value < dark ? 1 : 0;
        }
    }
    const int all = picture.width() * picture.height();
    return lights > all / 2 && darks > all / 100;
}

QString program(const char *name)
{
    return QStandardPaths::findExecutable(QString::fromLatin1(name));
}

/// The milliseconds that a program takes under an X server until cells are on its screen.
double pictureTime(const QStringList &command)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program("xvfb-run"),
        QStringList{u"-a"_s, u"-s"_s, u"-screen 0 1280x1024x24"_s, u"env"_s, u"QT_QPA_PLATFORM=xcb"_s,
            QApplication::applicationFilePath(), u"picture"_s}
            + command);
    process.waitForFinished(-1);
    const double time = process.readAllStandardOutput().trimmed().toDouble();
    if (time <= 0) {
        qFatal("%s showed no cells", qPrintable(command.first()));
    }
    return time;
}

struct Peer
{
    const char *name;
    const char *program;
    QStringList options;
    double min; ///< how many times faster Tabrix has to be
};

void addPicture(SpeedTable &table, const Peer &peer, const QString &document, const QString &csv)
{
    const std::string what = "32,767 rows, from start to cells on the screen";
    const std::string against = std::string(peer.name) + " with the same rows as CSV";
    if (program(peer.program).isEmpty() || program("xvfb-run").isEmpty()) {
        table.addSkipped(what, std::string(peer.name) + " or an X server is not installed");
        return;
    }
    const QStringList own{QApplication::applicationFilePath(), u"show"_s, document};
    const QStringList other = QStringList(program(peer.program)) + peer.options + QStringList(csv);
    table.addFaster(what, against,
        sideBySide([&] { return pictureTime(own); }, [&] { return pictureTime(other); }, peerRuns), peer.min);
}

int pagesOf(const QString &pdf)
{
    QFile file(pdf);
    if (!file.open(QFile::ReadOnly)) {
        qFatal("%s was not made", qPrintable(pdf));
    }
    static const QRegularExpression page(u"/Type ?/Page\\b"_s);
    return int(QString::fromLatin1(file.readAll()).count(page));
}

/// Milliseconds a page, from start to exit.
double convert(const QStringList &options, const QString &csv, const QString &folder)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program("soffice"),
        QStringList{u"--headless"_s, u"--convert-to"_s, u"pdf"_s, u"--outdir"_s, folder} + options + QStringList(csv));
    process.waitForFinished(-1);
    const auto taken = double(timer.nsecsElapsed());
    return taken / 1e6 / pagesOf(folder + u"/cells.pdf"_s);
}

void addConversion(SpeedTable &table, const QStringList &options, const QString &csv, const QString &folder)
{
    const std::string what = "a page of 32,767 rows to PDF";
    if (program("soffice").isEmpty()) {
        table.addSkipped(what, "Calc is not installed");
        return;
    }
    const Desk desk(maxRows);
    const auto own = [&desk] {
        const Printed printed = printRows(desk);
        return printed.milliseconds / printed.pages;
    };
    table.addFaster(what, "Calc's conversion of the same rows, from start to exit",
        sideBySide(
            own, [&] { return convert(options, csv, folder); }, peerRuns),
        6);
}

} // namespace

int printPictureTime(const QStringList &command)
{
    constexpr QRect insideOfTables(120, 260, 300, 160);
    constexpr int patience = 60'000;
    constexpr int pause = 5; // ms
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(command.first(), command.mid(1));
    const QRect part = insideOfTables;
    while (timer.elapsed() < patience) {
        const QPixmap picture =
            QApplication::primaryScreen()->grabWindow(0, part.x(), part.y(), part.width(), part.height());
        if (showsCells(picture.toImage())) {
            std::printf("%f\n", double(timer.nsecsElapsed()) / 1e6);
            break;
        }
        QThread::msleep(pause);
    }
    process.kill();
    process.waitForFinished();
    return 0;
}

void addPeerRows(SpeedTable &table)
{
    const QTemporaryDir folder(benchFolderTemplate());
    const QString csv = folder.filePath(u"cells.csv"_s);
    const QStringList asCsv{u"--infilter=CSV:44,34,76,1"_s}; // by commas, quoted, as UTF-8: nothing is asked then
    {
        const BenchDocument document(maxRows);
        document.writeCells(csv, ',');
        addPicture(table, {"Gnumeric", "gnumeric", {u"--no-splash"_s}, 50}, document.fileName(), csv);
        addPicture(table, {"Calc", "soffice", QStringList{u"--calc"_s, u"--nologo"_s, u"--norestore"_s} + asCsv, 15},
            document.fileName(), csv);
    }
    addConversion(table, asCsv, csv, folder.path());
}
