#include "document/CollectPrRecords.h"

#include "document/DocumentTables.h"
#include "document/RecordCollector.h"

Result<> CollectPrRecords(const PrGrid &grid)
{
    PrRecords.resize(grid.rowCount());
    RecordCollector collector(grid);
    for (int i = 0; i < PrRecords.size(); ++i) {
        if (auto collected = collector.collect(i + 1, PrRecords[i]); !collected) {
            return collected;
        }
    }
    return {};
}
