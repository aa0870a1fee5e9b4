#include "bench/RecordGrid.h"

CellTexts RecordGrid::rowTexts(int row) const
{
    CellTexts texts;
    m_rows[size_t(row - 1)].copyTexts(texts);
    return texts;
}
