#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <mutex>
#include <optional>

class AnsiTables;

/// One ANSI code page: 932 (Japanese), 1252 (Western European) or the system's own.
///
/// Bytes that the page cannot decode become private characters (U+F780 to U+F7FF, the byte in the low eight bits) and
/// encode to the same bytes again, so that a file keeps what it holds. The page's tables are built on first use; a
/// system without the converters that they come from ends the program with a message.
class AnsiCodePage
{
public:
    /// How far an encoding came.
    struct Encoded
    {
        char *end; ///< past the last byte written
        qsizetype missing; ///< index of the first character that the page does not have; -1: there is none
    };

    /// The most bytes that one UTF-16 unit takes.
    static constexpr int maxBytesPerUnit = 2;

    /// The page of that number: 932, 1252 or the system's; any other number gives 1252.
    static const AnsiCodePage &page(int number);

    ~AnsiCodePage();
    Q_DISABLE_COPY_MOVE(AnsiCodePage)

    int number() const { return m_number; }

    QString decode(QByteArrayView bytes) const;

    /// Decodes into out, which can hold bytes.size() units; returns the number of units.
    qsizetype decodeTo(QByteArrayView bytes, char16_t *out) const;

    /// Appends the bytes of text to out. Returns the index of the first character that the page does not have, with
    /// out holding what precedes it; `std::nullopt` if all went well.
    std::optional<qsizetype> encode(QStringView text, QByteArray &out) const;

    /// Encodes to out, which can hold maxBytesPerUnit bytes for each unit of text; stops at a missing character.
    Encoded encodeTo(QStringView text, char *out) const;

    /// What a page makes of bytes as a whole.
    struct Fit
    {
        bool isWhole = true; ///< all are characters that encode to the same bytes; controls from 80 to 9F are none
        bool hasPairs = false; ///< at least one character has two bytes
    };
    Fit fitOf(QByteArrayView bytes) const;

    /// The number of bytes that text takes; a character that the page does not have counts as one.
    qsizetype byteLength(QStringView text) const;

private:
    explicit AnsiCodePage(int number);
    const AnsiTables &tables() const;

    int m_number;
    mutable std::unique_ptr<const AnsiTables> m_tables;
    mutable std::once_flag m_tablesMade; ///< by whichever thread is the first to need them
};

/// The page that bytes from elsewhere are in: preferred wherever it fits. Where it does not, 932 is taken for 1252 when
/// all bytes are characters of 932 and at least one has two bytes. What fits neither stays with the preferred page.
const AnsiCodePage &pageOfBytes(QByteArrayView bytes, const AnsiCodePage &preferred);

/// The bytes in text that its page could not decode (see AnsiCodePage).
qsizetype undecodedBytes(QStringView text);

/// Whether no byte has its high bit set.
bool isAscii(QByteArrayView bytes);

/// The code page of the system: Windows' own there; elsewhere 932 when the country code is 81 (Japan), else 1252.
int ansiCodePageNumber();

/// Overrides ansiCodePageNumber() for this process; 0 returns to the system's. For start-up and tests.
void setAnsiCodePageNumber(int number);

/// The page of ansiCodePageNumber().
const AnsiCodePage &ansiCodePage();
