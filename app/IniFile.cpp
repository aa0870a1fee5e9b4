#include "app/IniFile.h"

using namespace Qt::StringLiterals;

bool ReadIniString(const QString &fileName, const QString &section, const QString &key, QString &value)
{
    return ReadIniString(PrivateProfile::fromFile(fileName), section, key, value);
}

bool ReadIniString(const PrivateProfile &profile, const QString &section, const QString &key, QString &value)
{
    constexpr int bufferSize = 128;
    // A file that holds this very text counts as one without the key.
    const QString missing = u"GetPrivateProfieReadError"_s;
    value = profile.value(section, key, bufferSize).value_or(missing);
    return !value.isEmpty() && value != missing;
}
