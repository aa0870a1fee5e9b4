#pragma once

#include "tool/CheckReport.h"

#include <QJsonArray>

/// Findings of many files in the Static Analysis Results Interchange Format, version 2.1.0.
class SarifLog
{
public:
    void add(const QString &fileName, const RatedFindings &findings);

    /// isComplete: whether every file could be checked.
    QByteArray bytes(bool isComplete) const;

private:
    int ruleIndex(CheckId id);

    QList<CheckId> m_rules; ///< those that occur
    QJsonArray m_results;
};
