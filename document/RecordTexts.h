#pragma once

#include "document/ParameterColumn.h"
#include "document/PrRecord.h"

#include <QString>
#include <QStringView>

#include <array>

/// The cell texts of a record as the grid shows it, by column from 0. RowCollector is the way back.
class RecordTexts
{
public:
    /// record must outlive the texts.
    explicit RecordTexts(const PrRecord &record);
    Q_DISABLE_COPY_MOVE(RecordTexts)

    /// Without a copy; valid as long as this object.
    const std::array<QStringView, ParameterColumn::Count> &cells() const { return m_cells; }

private:
    std::array<QString, ParameterColumn::Count> m_made; ///< those that are not in the record as they are shown
    std::array<QStringView, ParameterColumn::Count> m_cells;
};
