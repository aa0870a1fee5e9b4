// Reading and writing beside the least that any program must do with the same bytes.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"

namespace {

constexpr double milliseconds = 1000;
constexpr double maxGrowth = 1.2;

Measured measureRead(const BenchDocument &document, bool events)
{
    const auto own = [&] { return milliseconds * secondsOf([&] { document.read(events); }); };
    const auto baseline = [&] {
        return milliseconds * secondsOf([&] {
            const QStringList fields = baselines::splitFile(document.fileName());
            baselines::passEvents(events ? document.rowCount() : 0);
        });
    };
    return sideBySide(own, baseline);
}

Measured measureSave(const BenchDocument &document, bool events)
{
    const QStringList fields = baselines::splitFile(document.fileName());
    const auto own = [&] { return milliseconds * secondsOf([&] { document.save(events); }); };
    const auto baseline = [&] {
        return milliseconds * secondsOf([&] {
            baselines::joinToFile(fields, document.joinedName());
            baselines::passEvents(events ? document.rowCount() : 0);
        });
    };
    return sideBySide(own, baseline);
}

Measured perRow(Measured measured, int rows)
{
    return {measured.own * 1000 / rows, measured.other * 1000 / rows};
}

} // namespace

void addCoreRows(SpeedTable &table)
{
    const auto typical = std::make_unique<BenchDocument>(typicalRows);
    const Measured readTypical = perRow(measureRead(*typical, true), typicalRows);
    const Measured saveTypical = perRow(measureSave(*typical, true), typicalRows);
    const BenchDocument largest(maxRows);
    const Measured read = measureRead(largest, true);
    const Measured save = measureSave(largest, true);
    table.add("read 32,767 rows, events after each", "decode, split, as many empty event passes", "ms", read, 1.3);
    table.add("collect and write 32,767 rows", "join, encode, write, as many empty event passes", "ms", save, 1.5);
    table.add("collect and write, no events", "join, encode, write", "ms", measureSave(largest, false), 1.5);
    table.add("read, growth to 32,767 rows", "1,000 rows", "us a row", {perRow(read, maxRows).own, readTypical.own},
        maxGrowth);
    table.add("collect and write, growth to 32,767 rows", "1,000 rows", "us a row",
        {perRow(save, maxRows).own, saveTypical.own}, maxGrowth);
}
