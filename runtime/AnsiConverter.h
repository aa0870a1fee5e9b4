#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <memory>
#include <optional>

/// The system's own converter of one ANSI code page: on Windows its calls, elsewhere a converter of ICU. It is slow,
/// and meant for tables.
class AnsiConverter
{
public:
    /// Whether the system can convert that page, and no character of it takes more than two bytes.
    static bool has(int page);

    /// Ends the program with a message if the system does not have that page.
    explicit AnsiConverter(int page);
    ~AnsiConverter();
    Q_DISABLE_COPY_MOVE(AnsiConverter)

    /// The character of one byte, or of a lead byte and its trail byte; `std::nullopt` if they are not one character.
    std::optional<char16_t> decode(QByteArrayView bytes);
    /// The bytes that the system writes for a character that decode() gave.
    QByteArray encode(char16_t character) const;

private:
    struct System;

    std::unique_ptr<System> m_system;
};
