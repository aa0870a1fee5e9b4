#pragma once

#include "check/FirstRows.h"
#include "check/OtherRows.h"
#include "document/PrRecord.h"

/// The rows of a document that stays as it is.
class ParameterIndex : public OtherRows
{
public:
    /// rows must outlive the index.
    explicit ParameterIndex(const QList<PrRecord> &rows);

    int rowOf(const QString &number) const override;
    int rowOfHelp(const QString &helpId) const override { return m_helpIds.rowOf(helpId); }
    QString number(int row) const override { return m_rows[row].number; }
    QString name(int row) const override { return m_rows[row].name; }
    QList<SettingInterval> intervals(int row) const override { return settingIntervals(m_rows[row].ranges); }

private:
    const QList<PrRecord> &m_rows;
    FirstRows m_numbers; ///< by numberKey()
    FirstRows m_helpIds;
};
