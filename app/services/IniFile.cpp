#include "app/services/IniFile.h"

#include "runtime/PrivateProfile.h"

bool ReadIniString(const QString &fileName, const QString &section, const QString &key, QString &value)
{
    const std::optional<QString> text = PrivateProfile::fromFile(fileName).text(section, key);
    value = text.value_or(QString());
    return text.has_value();
}
