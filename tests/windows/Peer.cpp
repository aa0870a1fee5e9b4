// A program that a test starts and, mostly, kills: it holds a lock, saves a document or stores settings, and says on
// its output how far it has come.

#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "runtime/ProcessLock.h"
#include "tests/document/FakeGrid.h"
#include "tests/document/FakeHost.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

/// Takes the lock, and holds it until it is killed.
int hold(const QString &name)
{
    ProcessLock lock(name);
    say(lock.lock() ? u"held"_s : u"refused"_s);
    QThread::sleep(600);
    return 0;
}

/// Saves a document of so many rows so often. Returns how many saves failed.
int save(const QString &name, int rows, int times)
{
    constexpr qint16 docNo = 1;
    setAnsiCodePageNumber(1252);
    growDocumentTables(docNo);
    MachineInfos[docNo].Name = u"Machine with %1 rows"_s.arg(rows);
    FakeGrid grid;
    for (int row = 1; row <= rows; ++row) {
        grid.rows << FakeGrid::emptyRow();
        grid.rows.last()[0] = QString::number(row);
        grid.rows.last()[1] = MachineInfos[docNo].Name;
    }
    FakeHost host;
    host.answersYes = true; // others save the file as well
    int failures = 0;
    say(u"saving"_s);
    for (int i = 0; i < times; ++i) {
        failures += WritePrFile(name, {docNo, grid}, host) ? 1 : 0;
    }
    say(u"saved"_s);
    return failures;
}

/// Stores so many recent files with this beginning.
int store(const QString &beginning, int times)
{
    say(u"storing"_s);
    for (int i = 0; i < times; ++i) {
        StoreRecentFile(beginning + QString::number(i));
    }
    return 0;
}

} // namespace

// Arguments: "hold" and a lock; "save", a file, rows and times; "store", the beginning of the names and times.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString &action = arguments.value(1);
    const QString &name = arguments.value(2);
    if (action == "hold"_L1) {
        return hold(name);
    }
    return action == "save"_L1 ? save(name, arguments.value(3).toInt(), arguments.value(4).toInt())
                               : store(name, arguments.value(3).toInt());
}
