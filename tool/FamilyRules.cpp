#include "tool/FamilyRules.h"

#include "app/services/Messages.h"

#include <QFileInfo>

namespace {

QString folderOf(const QString &name)
{
    return QFileInfo(name).path();
}

} // namespace

FamilyRules::FamilyRules(const QStringList &names)
{
    for (const QString &name : names) {
        auto &known = m_rules[folderOf(name)];
        if (known) {
            continue;
        }
        const Result<CheckRules> rules = rulesFor(name);
        if (rules) {
            known = std::make_shared<const CheckRules>(*rules);
        } else if (const QString failure = failureText(rules.failure()); !m_failures.contains(failure)) {
            m_failures << failure;
        }
    }
}

const CheckRules *FamilyRules::of(const QString &name) const
{
    return m_rules.value(folderOf(name)).get();
}
