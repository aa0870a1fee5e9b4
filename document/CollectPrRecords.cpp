#include "document/CollectPrRecords.h"

#include "document/DocumentTables.h"
#include "document/ParameterColumns.h"
#include "document/RowCollector.h"
#include "document/TextPool.h"

#include <algorithm>

namespace {

template <typename Entry>
void assign(QList<Entry> &list, std::span<const Entry> entries)
{
    if (!std::ranges::equal(list, entries)) {
        list = QList<Entry>(entries.begin(), entries.end());
    }
}

/// Texts and lists that already are what the row says stay as they are: after an open that is nearly all of them.
void assign(PrRecord &record, const RowFields &fields, TextPool &pool)
{
    record.conditionCount = fields.conditionCount;
    for (std::size_t i = 0; i < fileTexts.size(); ++i) {
        QString &text = record.*fileTexts[i];
        if (text != fields.texts[i]) {
            text = pool.share(fields.texts[i]);
        }
    }
    record.rangeCount = fields.rangeCount;
    assign(record.ranges, fields.ranges);
    assign(record.conditions, fields.conditions);
}

} // namespace

Result<> CollectPrRecords(const PrGrid &grid)
{
    PrRecords.resize(grid.rowCount());
    RowCollector rows(grid);
    TextPool pool;
    for (int i = 0; i < PrRecords.size(); ++i) {
        if (auto collected = rows.collect(i + 1); !collected) {
            return collected;
        }
        assign(PrRecords[i], rows.fields(), pool);
    }
    return {};
}
