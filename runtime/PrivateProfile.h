#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

class AnsiCodePage;

/// The sections and keys of an INI file, looked up as the platform's private-profile call does: names without regard
/// to case, only the first section of a name, its first line with the key decides, one pair of enclosing quotes is
/// dropped, a NUL ends the value. The file's bytes are scanned once; a section's keys are indexed on first look-up.
class PrivateProfile
{
public:
    /// In the system's code page.
    explicit PrivateProfile(QByteArray bytes);
    PrivateProfile(QByteArray bytes, const AnsiCodePage &page);

    /// The profile of a file; an empty profile if the file cannot be read, or is larger than largestFile.
    static PrivateProfile fromFile(const QString &fileName);

    /// The value of key in section, cut to bufferSize - 1 bytes of the code page (never inside a character).
    /// `std::nullopt` if the section or the key is absent or the key's line has no equals sign.
    std::optional<QString> value(const QString &section, const QString &key, int bufferSize) const;

    /// The text of a key, as the program's own files and its users' are read: through a buffer of 128 bytes.
    /// `std::nullopt` if the key is absent or its value empty.
    std::optional<QString> text(const QString &section, const QString &key) const;

    /// The byte, from 0, that the value begins with; `std::nullopt` if value() has none.
    std::optional<qsizetype> valueAt(const QString &section, const QString &key) const;

private:
    using Keys = QHash<QByteArray, std::optional<QByteArrayView>>;

    std::optional<QByteArrayView> find(const QString &section, const QString &key) const;
    const Keys &keysOf(const QByteArray &section) const;

    QByteArray m_bytes;
    const AnsiCodePage &m_page;
    mutable QHash<QByteArray, Keys> m_sections; ///< by lower-case name, filled on look-up
};
