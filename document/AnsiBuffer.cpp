#include "document/AnsiBuffer.h"

#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The whole character at index, also when two units make it.
char32_t characterAt(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    const bool isPair = unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(unit, text[index + 1]) : unit.unicode();
}

} // namespace

/// Makes the buffer hold that many more bytes; returns where they go.
char *AnsiBuffer::extend(qsizetype bytes)
{
    if (m_bytes.size() - m_used < bytes) {
        m_bytes.resize(std::max(m_bytes.size() * 2, m_used + bytes));
    }
    return m_bytes.data() + m_used;
}

QByteArray AnsiBuffer::takeBytes()
{
    m_bytes.truncate(std::exchange(m_used, 0));
    return std::exchange(m_bytes, {});
}

void AnsiBuffer::put(char ascii)
{
    *extend(1) = ascii;
    ++m_used;
}

void AnsiBuffer::put(QByteArrayView ascii)
{
    std::memcpy(extend(ascii.size()), ascii.data(), static_cast<size_t>(ascii.size()));
    m_used += ascii.size();
}

void AnsiBuffer::putText(QStringView text)
{
    char *const first = extend(text.size() * AnsiCodePage::maxBytesPerUnit);
    const AnsiCodePage::Encoded encoded = m_page.encodeTo(text, first);
    m_used += encoded.end - first;
    if (encoded.missing >= 0 && m_missing == 0) {
        m_missing = characterAt(text, encoded.missing);
    }
}

void AnsiBuffer::putInteger(int value)
{
    char *const first = extend(numberTextLength);
    m_used += std::to_chars(first, first + numberTextLength, value).ptr - first;
}

void AnsiBuffer::putSingle(float value)
{
    char *const first = extend(numberTextLength);
    m_used += writeSingle(value, first) - first;
}

std::optional<QStringList> AnsiBuffer::missingCharacter() const
{
    if (m_missing == 0) {
        return std::nullopt;
    }
    const QString code = QString::number(static_cast<uint>(m_missing), 16).toUpper().rightJustified(4, u'0');
    return QStringList{QString::fromUcs4(&m_missing, 1), code, QString::number(m_page.number())};
}
