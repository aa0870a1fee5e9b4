#pragma once

#include "check/CheckIds.h"
#include "runtime/Result.h"

#include <QString>

#include <array>

/// What a rules file says about one check.
struct CheckRule
{
    std::optional<Severity> severity; ///< std::nullopt: the check is off
    QString reason; ///< never empty
    QString fileName; ///< of the rules file
};

/// How the findings of a family of files are to be taken: by the severity that each check has of itself, unless a rule
/// says otherwise.
class CheckRules
{
public:
    /// What a finding of that check counts as; std::nullopt if it is not to be shown.
    std::optional<Severity> severityOf(CheckId id) const;

    /// The rule for that check; nullptr if there is none.
    const CheckRule *ruleOf(CheckId id) const;

    /// A rule that is there already stays.
    void add(CheckId id, const CheckRule &rule);

private:
    std::array<std::optional<CheckRule>, checkCount> m_rules;
};

/// The name that rules files have.
inline constexpr QLatin1StringView rulesFileName = QLatin1StringView("tabrix-check.ini");

/// The rules for a parameter file, which need not exist: those of a rules file in its folder, then those in the folders
/// above it; the nearest one that names a check decides about it. An empty name has none.
///
/// Fails if one of these files cannot be read, or says something that is not known. A failure of what is in it names
/// the file, so that it can be shown as it is.
Result<CheckRules> rulesFor(const QString &fileName);
