// The commands on a table, with their undo and redo, beside moving the same texts in memory.

#include "bench/Desk.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "bench/TimedCommands.h"

#include <QApplication>

namespace {

constexpr double milliseconds = 1000;
constexpr double frameTime = 8; // ms

/// The time of moving all rows by so many, as a command at the top of the table has to.
double moveSeconds(const PlainRows &texts, int by)
{
    PlainRows rows = texts;
    return secondsOf([&rows, by] { std::move_backward(rows.begin(), rows.end() - by, rows.end()); });
}

/// The milliseconds of a command, its undo or its redo, with and without the paint that follows.
struct ActTimes
{
    std::string name;
    std::vector<double> plain;
    std::vector<double> painted;

    void take(const auto &work)
    {
        plain.push_back(milliseconds * secondsOf(work));
        painted.push_back(plain.back() + milliseconds * secondsOf(paint));
    }
};

struct CommandTimes
{
    std::vector<ActTimes> acts; ///< each command, its undo and its redo
    std::vector<double> moves; ///< the yardstick, which is the same for all acts
};

/// All commands take turns with each other, so that they meet the same machine.
CommandTimes measureCommands(int rows)
{
    Desk desk(rows);
    const PlainRows texts = desk.plainRows();
    CommandTimes times;
    for (const TimedCommand &command : timedCommands()) {
        const std::string name = command.name;
        times.acts.insert(times.acts.end(), {{name, {}, {}}, {"undo of " + name, {}, {}}, {"redo of " + name, {}, {}}});
    }
    copyRows(desk);
    const auto turn = [&] {
        for (auto act = times.acts.begin(); const TimedCommand &command : timedCommands()) {
            prepare(command, desk);
            QApplication::processEvents();
            (act++)->take([&] { command.run(desk); });
            (act++)->take([&] { press(desk, Qt::Key_Z); });
            (act++)->take([&] { press(desk, Qt::Key_Y); });
            times.moves.push_back(milliseconds * moveSeconds(texts, commandRows(desk)));
        }
        return 0.0;
    };
    sideBySide(turn, [] { return 0.0; });
    desk.restore();
    return times;
}

} // namespace

void addCommandRows(SpeedTable &table)
{
    const CommandTimes typical = measureCommands(typicalRows);
    const CommandTimes largest = measureCommands(maxRows);
    const double moved = median(largest.moves);
    for (size_t i = 0; i < largest.acts.size(); ++i) {
        const ActTimes &act = largest.acts[i];
        table.add(act.name, "std::move of the same texts", "ms", {median(act.plain), moved}, 2);
        table.addLimit(act.name + ", with the paint that follows", "ms", median(act.painted), frameTime);
        table.addGrowth(act.name, median(act.plain), median(typical.acts[i].plain));
    }
}
