#include "runtime/AnsiText.h"

#include "runtime/AnsiConverter.h"
#include "runtime/AnsiTables.h"
#include "runtime/Country.h"
#include "runtime/WindowsApi.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cstring>

namespace {

constexpr int japanese = 932;
constexpr int western = 1252;
constexpr char16_t firstUndecodable = 0xF780;
constexpr char16_t lastUndecodable = 0xF7FF;

int codePageOverride = 0;

int systemCodePage()
{
#ifdef Q_OS_WIN
    const int page = static_cast<int>(GetACP());
    if (AnsiConverter::has(page)) {
        return page;
    }
    // A system set to UTF-8 has no ANSI page of its own; files are still in the one of its language.
    DWORD ofLanguage = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
        reinterpret_cast<wchar_t *>(&ofLanguage), sizeof ofLanguage / sizeof(wchar_t));
    return static_cast<int>(ofLanguage);
#else
    constexpr int japan = 81;
    return countryCode() == japan ? japanese : western;
#endif
}

uchar byteAt(QByteArrayView bytes, qsizetype index)
{
    return static_cast<uchar>(bytes[index]);
}

bool isUndecodable(char16_t unit)
{
    return unit >= firstUndecodable && unit <= lastUndecodable;
}

/// Whether a page's answer for a single byte is a character: not nothing, no control code, none of private use.
bool isPrintable(char16_t character)
{
    return character >= 0xA0 && QChar::category(char32_t(character)) != QChar::Other_PrivateUse;
}

bool isAscii(QStringView text)
{
    char16_t bits = 0;
    for (const QChar character : text) {
        bits |= character.unicode();
    }
    return bits < 0x80;
}

/// How many bytes from the first on are ASCII, eight at a time.
qsizetype asciiLength(QByteArrayView bytes)
{
    constexpr quint64 highBits = 0x8080808080808080U;
    const char *at = bytes.data();
    const char *const end = at + bytes.size();
    for (; end - at >= qsizetype(sizeof(quint64)); at += sizeof(quint64)) {
        quint64 eight = 0;
        std::memcpy(&eight, at, sizeof eight);
        if ((eight & highBits) != 0) {
            break;
        }
    }
    return std::find_if(at, end, [](char byte) { return static_cast<uchar>(byte) >= 0x80; }) - bytes.data();
}

} // namespace

AnsiCodePage::AnsiCodePage(int number) : m_number(number)
{
}

AnsiCodePage::~AnsiCodePage() = default;

const AnsiCodePage &AnsiCodePage::page(int number)
{
    static const AnsiCodePage japanesePage(japanese);
    static const AnsiCodePage westernPage(western);
    static const AnsiCodePage systemPage(systemCodePage());
    if (number == japanese) {
        return japanesePage;
    }
    return number == systemPage.number() ? systemPage : westernPage;
}

const AnsiTables &AnsiCodePage::tables() const
{
    std::call_once(m_tablesMade, [this] { m_tables = std::make_unique<const AnsiTables>(m_number); });
    return *m_tables;
}

qsizetype AnsiCodePage::decodeTo(QByteArrayView bytes, char16_t *out) const
{
    const AnsiTables &table = tables();
    char16_t *at = out;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const uchar byte = byteAt(bytes, i);
        if (byte < 0x80) {
            *at++ = byte;
            continue;
        }
        const char16_t pair = i + 1 < bytes.size() ? table.pair(byte, byteAt(bytes, i + 1)) : u'\0';
        const char16_t single = table.single(byte);
        i += pair != 0 ? 1 : 0;
        *at++ = pair != 0 ? pair : single != 0 ? single : static_cast<char16_t>(0xF700 | byte);
    }
    return at - out;
}

AnsiCodePage::Fit AnsiCodePage::fitOf(QByteArrayView bytes) const
{
    Fit fit;
    qsizetype i = asciiLength(bytes);
    if (i == bytes.size()) {
        return fit;
    }
    const AnsiTables &table = tables();
    for (; i < bytes.size() && fit.isWhole; i += 1 + asciiLength(bytes.sliced(i + 1))) {
        const uchar byte = byteAt(bytes, i);
        const uchar next = i + 1 < bytes.size() ? byteAt(bytes, i + 1) : uchar(0);
        const char16_t pair = table.pair(byte, next);
        fit.hasPairs |= pair != 0;
        fit.isWhole = pair != 0 ? table.code(pair) == byte * 256 + next : isPrintable(table.single(byte));
        i += pair != 0 ? 1 : 0;
    }
    return fit;
}

QString AnsiCodePage::decode(QByteArrayView bytes) const
{
    if (isAscii(bytes)) {
        return QString::fromLatin1(bytes);
    }
    QVarLengthArray<char16_t, 256> units(bytes.size());
    return QString(reinterpret_cast<const QChar *>(units.data()), decodeTo(bytes, units.data()));
}

AnsiCodePage::Encoded AnsiCodePage::encodeTo(QStringView text, char *out) const
{
    if (isAscii(text)) {
        for (const QChar character : text) {
            *out++ = static_cast<char>(character.unicode());
        }
        return {out, -1};
    }
    const AnsiTables &table = tables();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        const quint16 code = unit < 0x80 || isUndecodable(unit) ? unit & 0xFF : table.code(unit);
        if (code == 0 && unit != 0) {
            return {out, i};
        }
        if (code > 0xFF) {
            *out++ = static_cast<char>(code >> 8);
        }
        *out++ = static_cast<char>(code);
    }
    return {out, -1};
}

std::optional<qsizetype> AnsiCodePage::encode(QStringView text, QByteArray &out) const
{
    const qsizetype before = out.size();
    out.resize(before + maxBytesPerUnit * text.size());
    const Encoded encoded = encodeTo(text, out.data() + before);
    out.truncate(encoded.end - out.constData());
    return encoded.missing < 0 ? std::nullopt : std::optional(encoded.missing);
}

qsizetype AnsiCodePage::byteLength(QStringView text) const
{
    if (isAscii(text)) {
        return text.size();
    }
    qsizetype length = text.size();
    for (const QChar character : text) {
        length += tables().code(character.unicode()) > 0xFF ? 1 : 0;
    }
    return length;
}

const AnsiCodePage &pageOfBytes(QByteArrayView bytes, const AnsiCodePage &preferred)
{
    if (preferred.number() == japanese || preferred.fitOf(bytes).isWhole) {
        return preferred;
    }
    const AnsiCodePage &other = AnsiCodePage::page(japanese);
    const AnsiCodePage::Fit fit = other.fitOf(bytes);
    return fit.isWhole && fit.hasPairs ? other : preferred;
}

qsizetype undecodedBytes(QStringView text)
{
    return std::count_if(text.begin(), text.end(), [](QChar unit) { return isUndecodable(unit.unicode()); });
}

bool isAscii(QByteArrayView bytes)
{
    return asciiLength(bytes) == bytes.size();
}

int ansiCodePageNumber()
{
    return codePageOverride != 0 ? codePageOverride : systemCodePage();
}

void setAnsiCodePageNumber(int number)
{
    codePageOverride = number;
}

const AnsiCodePage &ansiCodePage()
{
    return AnsiCodePage::page(ansiCodePageNumber());
}
