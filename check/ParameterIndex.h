#pragma once

#include "check/OtherRows.h"
#include "document/PrRecord.h"

#include <QHash>

/// The rows of a document that stays as it is.
class ParameterIndex : public OtherRows
{
public:
    /// rows must outlive the index.
    explicit ParameterIndex(const QList<PrRecord> &rows);

    int rowOf(const QString &number) const override;
    int rowOfHelp(const QString &helpId) const override { return m_helpIds.value(helpId, -1); }
    QString number(int row) const override { return m_rows[row].number; }
    QString name(int row) const override { return m_rows[row].name; }
    QList<SettingInterval> intervals(int row) const override { return settingIntervals(m_rows[row].ranges); }

private:
    const QList<PrRecord> &m_rows;
    QHash<QString, int> m_numbers; ///< by numberKey()
    QHash<QString, int> m_helpIds;
};
