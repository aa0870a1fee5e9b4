#pragma once

#include <QString>

/// Looks up key in section of an INI file through a buffer of 128 bytes. Returns true only for a found, non-empty
/// value; value is then that text, at most 127 bytes of it, else it must not be used.
bool ReadIniString(const QString &fileName, const QString &section, const QString &key, QString &value);
