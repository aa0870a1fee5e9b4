// A text of a megabyte in a window, beside ordinary rows with as many bytes.

#include "bench/Desk.h"
#include "bench/DocumentGenerator.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "bench/TimedCommands.h"
#include "document/ParameterColumns.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

constexpr double milliseconds = 1000;

struct WindowTimes
{
    double open;
    double edit;
    double save;
    qint64 bytes;
};

void type(QWidget &target, Qt::Key key, const QString &text = {})
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&target, &event);
}

/// Types a letter at the end of the first name.
void editName(const Desk &desk)
{
    SpreadGrid &grid = desk.grid();
    const qsizetype size = grid.cellText(ParameterColumn::Name, 1).size();
    type(grid, Qt::Key_F2);
    auto *field = grid.viewport()->findChild<QLineEdit *>();
    type(*field, Qt::Key_End);
    type(*field, Qt::Key_X, QStringLiteral("x"));
    type(*field, Qt::Key_Return);
    if (grid.cellText(ParameterColumn::Name, 1).size() != size + 1) {
        qFatal("the name was not edited");
    }
}

WindowTimes measure(int rows, const DocumentGenerator &generator)
{
    Desk desk(rows, generator);
    const auto nothing = [] { return 0.0; };
    const auto open = [&desk] {
        const double seconds = secondsOf([&desk] {
            desk.openAgain();
            paint();
        });
        desk.closeActive();
        return milliseconds * seconds;
    };
    const auto edit = [&desk] {
        desk.grid().selectBlock({ParameterColumn::Name, 1, ParameterColumn::Name, 1});
        paint();
        return milliseconds * secondsOf([&desk] {
            editName(desk);
            paint();
        });
    };
    const auto save = [&desk, &edit] {
        edit();
        return milliseconds * secondsOf([&desk] { desk.save(); });
    };
    WindowTimes times{sideBySide(open, nothing).own, sideBySide(edit, nothing).own, sideBySide(save, nothing).own, 0};
    times.bytes = QFileInfo(desk.fileName()).size();
    return times;
}

} // namespace

void addLongTextRows(SpeedTable &table)
{
    constexpr int rowsAround = 100;
    constexpr int megabyte = 1'000'000;
    constexpr quint32 seed = 1;
    const qint64 typicalBytes = DocumentGenerator(seed).file(typicalRows).size();
    const WindowTimes one = measure(rowsAround, DocumentGenerator(seed, megabyte, 1));
    const WindowTimes many = measure(int(one.bytes * typicalRows / typicalBytes), DocumentGenerator(seed));
    const auto add = [&](const char *act, double WindowTimes::*time) {
        table.add(std::string(act) + " one text of 1 MB in 100 rows, in the window", "the same bytes in ordinary rows",
            "ms", {one.*time, many.*time}, 2);
    };
    add("open", &WindowTimes::open);
    add("edit", &WindowTimes::edit);
    add("save", &WindowTimes::save);
}
