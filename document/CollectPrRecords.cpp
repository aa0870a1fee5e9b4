#include "document/CollectPrRecords.h"

#include "document/DocumentTables.h"
#include "document/RecordCollector.h"

std::optional<RunTimeError> CollectPrRecords(const PrGrid &grid)
{
    PrRecords.resize(grid.rowCount());
    RecordCollector collector(grid);
    for (int i = 0; i < PrRecords.size(); ++i) {
        if (const auto error = collector.collect(i + 1, PrRecords[i])) {
            return error;
        }
    }
    return std::nullopt;
}
