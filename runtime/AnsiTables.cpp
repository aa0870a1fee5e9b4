#include "runtime/AnsiTables.h"

#include "runtime/AnsiConverter.h"

#include <QByteArray>

AnsiTables::AnsiTables(int page) : m_codes(0x10000)
{
    AnsiConverter converter(page);
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const char bytes[] = {static_cast<char>(byte)};
        if (const auto character = converter.decode({bytes, 1})) {
            m_singles[static_cast<size_t>(byte)] = *character;
            addCode(converter, *character, static_cast<quint16>(byte));
        } else {
            readPairs(converter, static_cast<uchar>(byte));
        }
    }
}

void AnsiTables::readPairs(AnsiConverter &converter, uchar lead)
{
    constexpr int firstTrail = 0x40;
    constexpr int lastTrail = 0xFE;
    for (int trail = firstTrail; trail <= lastTrail; ++trail) {
        const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
        const auto character = converter.decode({bytes, 2});
        if (!character) {
            continue;
        }
        m_pairs.resize(0x80 * 256);
        m_pairs[pairIndex(lead, static_cast<uchar>(trail))] = *character;
        addCode(converter, *character, static_cast<quint16>(lead * 256 + trail));
    }
}

/// Some characters have two codes: then the one counts that the system itself writes.
void AnsiTables::addCode(const AnsiConverter &converter, char16_t character, quint16 code)
{
    quint16 &known = m_codes[character];
    if (known == 0) {
        known = code;
        return;
    }
    known = 0;
    for (const char byte : converter.encode(character)) {
        known = static_cast<quint16>(known << 8 | static_cast<uchar>(byte));
    }
}
