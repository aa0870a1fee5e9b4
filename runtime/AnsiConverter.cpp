#include "runtime/AnsiConverter.h"

#include "runtime/WindowsApi.h"

#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>

#include <array>

#ifdef Q_OS_WIN

struct AnsiConverter::System
{
    UINT page;
};

namespace {

constexpr int japanese = 932;

/// What page 932 has no character for, although the system gives one: a control code, a no-break space, characters of
/// private use that no program ever wrote.
bool isUnassigned(int page, QByteArrayView bytes)
{
    const auto byte = static_cast<uchar>(bytes.front());
    return page == japanese && bytes.size() == 1 && (byte == 0x80 || byte == 0xA0 || byte >= 0xFD);
}

} // namespace

bool AnsiConverter::has(int page)
{
    CPINFO info{};
    return page > 0 && GetCPInfo(UINT(page), &info) && info.MaxCharSize <= 2;
}

AnsiConverter::AnsiConverter(int page) : m_system(std::make_unique<System>(System{UINT(page)}))
{
    if (!has(page)) {
        qFatal("Tabrix cannot work here: this Windows has no code page %d.", page);
    }
}

std::optional<char16_t> AnsiConverter::decode(QByteArrayView bytes)
{
    if (isUnassigned(int(m_system->page), bytes)) {
        return std::nullopt;
    }
    std::array<wchar_t, 2> text{};
    const int length = MultiByteToWideChar(
        m_system->page, MB_ERR_INVALID_CHARS, bytes.data(), int(bytes.size()), text.data(), int(text.size()));
    return length == 1 ? std::optional(static_cast<char16_t>(text.front())) : std::nullopt;
}

QByteArray AnsiConverter::encode(char16_t character) const
{
    const auto unit = static_cast<wchar_t>(character);
    std::array<char, 2> bytes{};
    const int length = WideCharToMultiByte(
        m_system->page, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(), int(bytes.size()), nullptr, nullptr);
    return {bytes.data(), length};
}

#else

struct AnsiConverter::System
{
    const char *name;
    std::unique_ptr<QStringDecoder> decoder;
};

namespace {

const char *converterName(int page)
{
    constexpr int japanese = 932;
    return page == japanese ? "windows-31j" : "windows-1252";
}

} // namespace

bool AnsiConverter::has(int page)
{
    return page == 932 || page == 1252;
}

AnsiConverter::AnsiConverter(int page)
    : m_system(
        std::make_unique<System>(System{converterName(page), std::make_unique<QStringDecoder>(converterName(page))}))
{
    if (!m_system->decoder->isValid() || !QStringEncoder(m_system->name).isValid()) {
        qFatal("Tabrix cannot work here: this Qt has no text converter \"%s\" (it was built without ICU).",
            m_system->name);
    }
}

std::optional<char16_t> AnsiConverter::decode(QByteArrayView bytes)
{
    const QString text = m_system->decoder->decode(bytes);
    if (!m_system->decoder->hasError() && text.size() == 1) {
        return text[0].unicode();
    }
    // What is left inside a converter after a refused or unfinished byte would spoil the next answer.
    m_system->decoder = std::make_unique<QStringDecoder>(m_system->name);
    return std::nullopt;
}

QByteArray AnsiConverter::encode(char16_t character) const
{
    QStringEncoder encoder(m_system->name);
    return encoder.encode(QStringView(&character, 1));
}

#endif

AnsiConverter::~AnsiConverter() = default;
