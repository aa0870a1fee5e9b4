// A running program that a test kills: it edits a document by keyboard and says on its output how far it has come.

#include "app/MDIfrmTabrix.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int nameColumn = 2;

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

/// Types a text over that of a cell, and leaves the cell's editor open.
void beginTyping(SpreadGrid &grid, int row, const QString &text)
{
    grid.setActiveCell(nameColumn, row);
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_F2);
    QWidget *editor = QApplication::focusWidget();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
}

} // namespace

// Arguments: the interval of the copies in ms, what to do, the file to open (none: an untitled document).
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    const QStringList arguments = QApplication::arguments();
    MDIfrmTabrix frame;
    frame.recovery().setInterval(std::chrono::milliseconds(arguments.value(1).toInt()));
    frame.load(arguments.value(3));
    frame.show();
    if (!QTest::qWaitForWindowActive(&frame, patience)) {
        return 1;
    }
    SpreadGrid &grid = frame.activeEditor()->vaspdParam();
    QTimer timer;
    int edits = 0;
    if (arguments.value(2) == "edit"_L1) {
        QObject::connect(&timer, &QTimer::timeout, &frame, [&] {
            ++edits;
            beginTyping(grid, 1, u"edit %1"_s.arg(edits));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            say(QString::number(edits));
        });
        timer.start(std::chrono::milliseconds(5));
    } else {
        beginTyping(grid, 1, u"unfinished"_s);
        say(u"typed"_s);
    }
    return QApplication::exec();
}
