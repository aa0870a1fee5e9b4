#pragma once

#include "check/Finding.h"
#include "check/SettingIntervals.h"
#include "document/PrRecord.h"

#include <QHash>

/// The rows of a document by their parameters' numbers, and what these permit.
class ParameterIndex
{
public:
    /// rows must outlive the index.
    explicit ParameterIndex(const QList<PrRecord> &rows);

    /// The first row, from 0, of that parameter; -1 without one. "079" and "79" are the same number.
    int rowOf(const QString &number) const;
    QList<SettingInterval> intervals(int row) const { return settingIntervals(m_rows[row].ranges); }

private:
    const QList<PrRecord> &m_rows;
    QHash<QString, int> m_firstRows;
};

/// What is wrong in the read conditions of a record: those on parameters that are not there or on itself, on values
/// that cannot be, and those that always or never hold. row: from 1.
void checkConditions(const PrRecord &record, int row, const ParameterIndex &index, Findings &findings);
