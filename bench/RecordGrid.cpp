#include "bench/RecordGrid.h"

#include "document/RecordTexts.h"

RecordGrid::RecordGrid(const QList<PrRecord> &records, int count)
{
    for (const PrRecord &record : records.first(count)) {
        m_rows.emplace_back(RecordTexts(record).cells());
    }
}

CellTexts RecordGrid::rowTexts(int row) const
{
    CellTexts texts;
    m_rows[size_t(row - 1)].copyTexts(texts);
    return texts;
}
