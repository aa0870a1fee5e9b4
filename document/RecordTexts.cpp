#include "document/RecordTexts.h"

#include "document/ParameterColumns.h"

using namespace Qt::StringLiterals;

namespace {

/// The grid's text for a minimum step: a file says "-1" where there is none.
QStringView incrementText(const QString &stored)
{
    return stored == "-1"_L1 ? QStringView(u"No") : QStringView(stored);
}

} // namespace

RecordTexts::RecordTexts(const PrRecord &record)
{
    for (const ColumnInfo &column : parameterColumns) {
        const auto at = std::size_t(column.column - 1);
        if (column.shown != nullptr) {
            m_made[at] = column.shown(record);
            m_cells[at] = m_made[at];
        } else if (column.kind == ColumnKind::Increment) {
            m_cells[at] = incrementText(record.*column.field);
        } else {
            m_cells[at] = record.*column.field;
        }
    }
}
