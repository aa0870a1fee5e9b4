// Reading and writing beside the least that any program must do with the same bytes.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"

#include <QFileInfo>

namespace {

constexpr double milliseconds = 1000;

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

struct ReadAndSave
{
    double read;
    double save;
    qint64 bytes;
};

ReadAndSave measureDocument(int rows, int nameLength)
{
    const BenchDocument document(rows, nameLength);
    const auto nothing = [] { return 0.0; };
    const auto read = [&] { return milliseconds * secondsOf([&] { document.read(true); }); };
    const auto save = [&] { return milliseconds * secondsOf([&] { document.save(true); }); };
    return {sideBySide(read, nothing).own, sideBySide(save, nothing).own, QFileInfo(document.fileName()).size()};
}

/// 1 MB of texts in 100 rows, and the same bytes in ordinary rows.
void addManyBytesRows(SpeedTable &table)
{
    constexpr int longRows = 100;
    constexpr int nameLength = 10'000;
    const ReadAndSave typical = measureDocument(typicalRows, 0);
    const ReadAndSave few = measureDocument(longRows, nameLength);
    const ReadAndSave many = measureDocument(int(few.bytes * typicalRows / typical.bytes), 0);
    table.add("read 1 MB of texts in 100 rows", "the same bytes in ordinary rows", "ms", {few.read, many.read}, 2);
    table.add("save 1 MB of texts in 100 rows", "the same bytes in ordinary rows", "ms", {few.save, many.save}, 2);
}

} // namespace

void addCoreRows(SpeedTable &table)
{
    const auto typical = std::make_unique<BenchDocument>(typicalRows);
    const Measured readTypical = measureRead(*typical, true);
    const Measured saveTypical = measureSave(*typical, true);
    const BenchDocument largest(maxRows);
    const Measured read = measureRead(largest, true);
    const Measured save = measureSave(largest, true);
    table.add("read 32,767 rows, events after each", "decode, split, as many empty event passes", "ms", read, 1.3);
    table.add(
        "collect and write 32,767 rows", "join, encode, write, flush, as many empty event passes", "ms", save, 1.2);
    table.add("collect and write, no events", "join, encode, write, flush", "ms", measureSave(largest, false), 1.2);
    table.add("read 32,767 rows, no events", "decode, split", "ms", measureRead(largest, false), 0.8);
    table.addGrowth("read", read.own, readTypical.own);
    table.addGrowth("collect and write", save.own, saveTypical.own);
    addManyBytesRows(table);
}
