#pragma once

#include "document/PrRecord.h"

#include <QStringView>

#include <array>
#include <span>

/// One row as a file has it, without a copy of its texts.
struct RowFields
{
    static constexpr int textCount = 10; ///< of a row's texts between its two counts

    qint16 conditionCount = 0;
    std::array<QStringView, textCount> texts; ///< in the order of the file
    qint16 rangeCount = 0;
    std::span<const SettingRange> ranges;
    std::span<const PrCondition> conditions;

    /// By position among the texts, from 1 (ColumnInfo::fileField).
    QStringView text(int field) const { return texts[std::size_t(field - 1)]; }
    QStringView &text(int field) { return texts[std::size_t(field - 1)]; }
};

/// What the columns' collectors fill: a row's fields, and storage for those that are not in the grid as they are in the
/// file.
struct CollectedRow
{
    RowFields fields;
    QString factorySetting;
    std::array<char16_t, 8> functionCode{};
    QList<SettingRange> ranges;
    QList<PrCondition> conditions;
};
