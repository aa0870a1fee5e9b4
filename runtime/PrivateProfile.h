#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

/// The sections and keys of an INI file, looked up as the platform's private-profile call does: names without regard
/// to case, only the first section of a name, its first line with the key decides, one pair of enclosing quotes is
/// dropped, a NUL ends the value. The file's bytes are scanned once; a section's keys are indexed on first look-up.
class PrivateProfile
{
public:
    explicit PrivateProfile(QByteArray bytes);

    /// The profile of a file; an empty profile when the file cannot be read, or is larger than largestFile.
    static PrivateProfile fromFile(const QString &fileName);

    /// The value of key in section, cut to bufferSize - 1 bytes of the ANSI code page (never inside a character).
    /// Nothing when the section or the key is absent or the key's line has no equals sign.
    std::optional<QString> value(const QString &section, const QString &key, int bufferSize) const;

private:
    using Keys = QHash<QByteArray, std::optional<QByteArrayView>>;

    const Keys &keysOf(const QByteArray &section) const;

    QByteArray m_bytes;
    mutable QHash<QByteArray, Keys> m_sections; ///< by lower-case name, filled on look-up
};
