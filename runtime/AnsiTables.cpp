#include "runtime/AnsiTables.h"

#include <QByteArray>
#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>

AnsiTables::AnsiTables(const char *converterName)
    : m_converterName(converterName), m_decoder(std::make_unique<QStringDecoder>(converterName)), m_codes(0x10000)
{
    if (!m_decoder->isValid() || !QStringEncoder(converterName).isValid()) {
        qFatal(
            "Tabrix cannot work here: this Qt has no text converter \"%s\" (it was built without ICU).", converterName);
    }
    readSingles();
    m_decoder.reset();
}

/// The character of a code; `std::nullopt` if the converter refuses it or waits for another byte.
std::optional<char16_t> AnsiTables::decodeCode(quint16 code)
{
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    const QByteArrayView view = code > 0xFF ? QByteArrayView(bytes, 2) : QByteArrayView(bytes + 1, 1);
    const QString text = m_decoder->decode(view);
    if (!m_decoder->hasError() && text.size() == 1) {
        return text[0].unicode();
    }
    // What is left inside a converter after a refused or unfinished byte would spoil the next answer.
    m_decoder = std::make_unique<QStringDecoder>(m_converterName);
    return std::nullopt;
}

void AnsiTables::readSingles()
{
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        if (const auto character = decodeCode(static_cast<quint16>(byte))) {
            m_singles[static_cast<size_t>(byte)] = *character;
            addCode(*character, static_cast<quint16>(byte));
        } else {
            readPairs(static_cast<uchar>(byte));
        }
    }
}

void AnsiTables::readPairs(uchar lead)
{
    constexpr int firstTrail = 0x40;
    constexpr int lastTrail = 0xFC;
    for (int trail = firstTrail; trail <= lastTrail; ++trail) {
        const auto code = static_cast<quint16>(lead * 256 + trail);
        const auto character = decodeCode(code);
        if (!character) {
            continue;
        }
        m_pairs.resize(0x80 * 256);
        m_pairs[pairIndex(lead, static_cast<uchar>(trail))] = *character;
        addCode(*character, code);
    }
}

/// Some characters have two codes: then the one counts that the system itself writes.
void AnsiTables::addCode(char16_t character, quint16 code)
{
    quint16 &known = m_codes[character];
    known = known == 0 ? code : preferredCode(character);
}

quint16 AnsiTables::preferredCode(char16_t character) const
{
    QStringEncoder encoder(m_converterName);
    const QByteArray bytes = encoder.encode(QStringView(&character, 1));
    quint16 code = 0;
    for (const char byte : bytes) {
        code = static_cast<quint16>(code << 8 | static_cast<uchar>(byte));
    }
    return code;
}
