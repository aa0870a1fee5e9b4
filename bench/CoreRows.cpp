// Reading and writing beside the least that any program must do with the same bytes.

#include "bench/BenchDocument.h"
#include "bench/Floors.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "document/DocumentTables.h"

namespace {

constexpr double milliseconds = 1000;
constexpr double mostGrowth = 1.2;

Measured measureRead(const BenchDocument &document, bool events)
{
    const auto own = [&] { return milliseconds * secondsOf([&] { document.read(events); }); };
    const auto floor = [&] {
        return milliseconds * secondsOf([&] {
            const QStringList fields = floors::splitFile(document.fileName());
            floors::passEvents(events ? document.rowCount() : 0);
        });
    };
    return sideBySide(own, floor);
}

/// first: as in a program that has not saved yet, so that the records are made anew.
Measured measureSave(const BenchDocument &document, bool events, bool first)
{
    const QStringList fields = floors::splitFile(document.fileName());
    const auto own = [&] {
        if (first) {
            PrRecords = {};
        }
        return milliseconds * secondsOf([&] { document.save(events); });
    };
    const auto floor = [&] {
        return milliseconds * secondsOf([&] {
            floors::joinToFile(fields, document.savedName());
            floors::passEvents(events ? document.rowCount() : 0);
        });
    };
    return sideBySide(own, floor);
}

Measured perRow(Measured measured, int rows)
{
    return {measured.own * 1000 / rows, measured.other * 1000 / rows};
}

} // namespace

void addCoreRows(SpeedTable &table)
{
    const auto usual = std::make_unique<BenchDocument>(usualRows);
    const Measured readUsual = perRow(measureRead(*usual, true), usualRows);
    const Measured saveUsual = perRow(measureSave(*usual, true, false), usualRows);
    const BenchDocument most(mostRows);
    const Measured read = measureRead(most, true);
    const Measured save = measureSave(most, true, false);
    table.add("read 32,767 rows, events after each", "decode, split, as many empty event passes", "ms", read, 1.3);
    table.add("collect and write 32,767 rows", "join, encode, write, as many empty event passes", "ms", save, 1.5);
    table.add("collect and write, no events", "join, encode, write", "ms", measureSave(most, false, false), 1.5);
    table.add("the first save of a run, no events", "join, encode, write", "ms", measureSave(most, false, true), 1.5);
    table.add("read, growth to 32,767 rows", "1,000 rows", "us a row", {perRow(read, mostRows).own, readUsual.own},
        mostGrowth);
    table.add("collect and write, growth to 32,767 rows", "1,000 rows", "us a row",
        {perRow(save, mostRows).own, saveUsual.own}, mostGrowth);
}
