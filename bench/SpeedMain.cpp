// bench_speed: prints the table of what users feel. With a mode it is one of the processes that the table is made of.

#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"

#include <QApplication>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The command-line tool is measured by a program of its own.
void addToolRows(SpeedTable & /*table*/)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    process.start(QApplication::applicationDirPath() + u"/bench_tool"_s, {u"rows"_s});
    process.waitForFinished(-1);
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (argc > 1) {
        const QApplication application(argc, argv);
        return runAsChild(argv[1], argc > 2 ? argv[2] : "");
    }
    const QTemporaryDir home; // empty settings, and the user's own stay as they are
    for (const char *folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        qputenv(folder, home.path().toLocal8Bit());
    }
    const QApplication application(argc, argv);
    std::printf("| what | against | Tabrix | yardstick | ratio | target | |\n|---|---|---|---|---|---|---|\n");
    SpeedTable table;
    IdleCheck idle;
    for (void (*addRows)(SpeedTable &) : {addProcessRows, addCoreRows, addEditorRows, addCommandRows, addLongTextRows,
             addKeyRows, addToolRows, addPeerRows}) {
        idle.look();
        addRows(table);
    }
    idle.look();
    idle.print();
    return 0;
}
