#pragma once

#include "document/PlainRow.h"
#include "document/PrRecord.h"
#include "runtime/CellRow.h"

#include <vector>

class AnsiCodePage;
class FieldReader;

/// Reads a file's rows as a grid shows them. A plain row goes from its bytes straight into the grid's buffer; every
/// other row becomes a record first, and is shown as that is (RecordTexts).
class GridRowReader
{
public:
    /// in: where the rows begin, or go on.
    GridRowReader(FieldReader &in, const AnsiCodePage &page);

    /// Reads the next row. After a failure, which in has then, it holds what was read before.
    CellRow read();

private:
    CellRow shown(const PlainRow &row);
    void put(QByteArrayView text);
    void put(char16_t unit) { *m_at++ = unit; }
    void putIncrement(QByteArrayView text);
    void putFunctionCode(QByteArrayView decimal);
    void putRanges(const PlainRow &row);
    void putConditions(const PlainRow &row);

    FieldReader &m_in;
    const AnsiCodePage &m_page;
    PlainRowReader m_plain;
    PrRecord m_record;
    std::vector<char16_t> m_units; ///< of the row's cells, one after another
    char16_t *m_at = nullptr; ///< where in it the next unit goes
};
