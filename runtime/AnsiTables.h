#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

class AnsiConverter;

/// What a code page's bytes from 80 up and characters from U+0080 up mean, as the system's own converter has
/// it. Each entry is asked for once, so that a refused byte cannot hide among its neighbours.
class AnsiTables
{
public:
    /// Ends the program with a message when the system does not have that page.
    explicit AnsiTables(int page);

    /// The character of a byte; 0 when it is none on its own.
    char16_t single(uchar byte) const { return m_singles[byte]; }

    /// The character of a lead byte and its trail byte; 0 when they are none.
    char16_t pair(uchar lead, uchar trail) const { return m_pairs.empty() ? 0 : m_pairs[pairIndex(lead, trail)]; }

    /// The code of a character: one byte, or lead byte * 256 + trail byte; 0 when the page does not have it.
    quint16 code(char16_t character) const { return m_codes[character]; }

private:
    static size_t pairIndex(uchar lead, uchar trail) { return (lead - 0x80U) * 256U + trail; }

    void readPairs(AnsiConverter &converter, uchar lead);
    void addCode(const AnsiConverter &converter, char16_t character, quint16 code);

    std::array<char16_t, 256> m_singles{};
    std::vector<char16_t> m_pairs; ///< by pairIndex(); empty for a page of single bytes
    std::vector<quint16> m_codes; ///< by character
};
