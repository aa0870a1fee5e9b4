#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// One ANSI code page: 932 (Japanese) or 1252 (Western European).
///
/// Bytes that the page cannot decode become private characters (U+F780 to U+F7FF, the byte in the low eight bits) and
/// encode to the same bytes again, so that a file keeps what it holds. The page's tables are built on first use.
class AnsiCodePage
{
public:
    /// The page of that number; 932 or 1252, any other number gives 1252.
    static const AnsiCodePage &page(int number);

    int number() const { return m_number; }

    QString decode(QByteArrayView bytes) const;

    /// Appends the bytes of text to out. Returns the index of the first character that the page does not have, with
    /// out holding what stands before it; nothing when all went well.
    std::optional<qsizetype> encode(QStringView text, QByteArray &out) const;

    /// The number of bytes that text takes; a character that the page does not have counts as one.
    qsizetype byteLength(QStringView text) const;

private:
    explicit AnsiCodePage(int number);
    struct Tables;
    const Tables &tables() const;

    int m_number;
    mutable std::unique_ptr<const Tables> m_tables;
};

/// The code page of the system: Windows' own there; elsewhere 932 when the country code is 81 (Japan), else 1252.
int ansiCodePageNumber();

/// Overrides ansiCodePageNumber() for this process; 0 returns to the system's. For start-up and tests.
void setAnsiCodePageNumber(int number);

/// The page of ansiCodePageNumber().
const AnsiCodePage &ansiCodePage();
