#pragma once

#include "check/CheckRules.h"

#include <QHash>
#include <QStringList>

#include <memory>

/// The rules for many files, read once for each of their folders.
class FamilyRules
{
public:
    explicit FamilyRules(const QStringList &names);

    /// The rules for one of those files; nullptr if they cannot be read, which failures() tells.
    const CheckRules *of(const QString &name) const;

    /// Why rules could not be read, each once, in the interface's language.
    const QStringList &failures() const { return m_failures; }

private:
    QHash<QString, std::shared_ptr<const CheckRules>> m_rules; ///< by folder
    QStringList m_failures;
};
