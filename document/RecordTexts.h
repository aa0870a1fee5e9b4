#pragma once

#include "document/PrRecord.h"

#include <QString>
#include <QStringView>

#include <array>

/// The cell texts of a record as the grid shows it, by column from 0. RecordCollector is the way back.
class RecordTexts
{
public:
    static constexpr int columnCount = 13;

    /// record must outlive the texts.
    explicit RecordTexts(const PrRecord &record);
    Q_DISABLE_COPY_MOVE(RecordTexts)

    /// Without a copy; valid as long as this object.
    const std::array<QStringView, columnCount> &cells() const { return m_cells; }

private:
    QString m_ranges;
    QString m_functionCode;
    QString m_conditionCount;
    QString m_conditions;
    std::array<QStringView, columnCount> m_cells;
};
