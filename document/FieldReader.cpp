#include "document/FieldReader.h"

#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

bool isFieldSpace(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool isLineEnd(char byte)
{
    return byte == '\r' || byte == '\n';
}

bool endsNumber(char byte)
{
    return byte == ',' || isFieldSpace(byte) || isLineEnd(byte);
}

QByteArrayView from(const char *at, QByteArrayView bytes)
{
    return {at, bytes.end()};
}

} // namespace

FieldReader::FieldReader(QByteArrayView bytes, const AnsiCodePage &page, Storage storage)
    : m_size(bytes.size())
    , m_rest(bytes)
    , m_page(page)
    , m_pool(storage == Storage::Shared ? std::make_unique<TextPool>() : nullptr)
{
}

bool FieldReader::passLine(QByteArrayView line)
{
    while (!atEnd()) {
        const auto *end = std::find(m_rest.begin(), m_rest.end(), '\n');
        QByteArrayView found(m_rest.begin(), end);
        if (found.endsWith('\r')) {
            found.chop(1);
        }
        m_rest = from(end == m_rest.end() ? end : end + 1, m_rest);
        if (found == line) {
            return true;
        }
    }
    return false;
}

void FieldReader::beginRow()
{
    ++m_row;
    m_fieldNo = 0;
}

void FieldReader::passRow(qsizetype bytes)
{
    beginRow();
    m_rest = m_rest.sliced(bytes);
    m_fieldHasEnd = true;
}

QString FieldReader::text()
{
    if (!beginField()) {
        return {};
    }
    while (!atEnd() && m_rest.front() == ' ') {
        m_rest = m_rest.sliced(1);
    }
    if (take('"')) {
        const QByteArrayView quoted = takeQuotedText();
        traceField();
        return decoded({quoted, isAscii(quoted)});
    }
    const Field field = takeUnquotedText();
    traceField();
    return decoded(field);
}

qint16 FieldReader::int16()
{
    const auto value = toInt16(number());
    if (!value) {
        fail(value.failure().code);
    }
    return value.valueOr(0);
}

quint8 FieldReader::byte()
{
    const qint16 value = int16();
    if (value < 0 || value > std::numeric_limits<quint8>::max()) {
        fail(FailureCode::Overflow);
        return 0;
    }
    return static_cast<quint8>(value);
}

float FieldReader::single()
{
    const double value = number();
    if (std::abs(value) > std::numeric_limits<float>::max()) {
        fail(FailureCode::Overflow);
        return 0;
    }
    return static_cast<float>(value);
}

void FieldReader::fail(FailureCode code)
{
    if (!m_error) {
        m_error = code;
    }
}

Result<> FieldReader::outcome() const
{
    if (!m_error) {
        return {};
    }
    return Failure{.code = *m_error, .position = FilePosition{.row = m_row, .field = m_fieldNo, .offset = m_fieldAt}};
}

/// False when no field can be read. One that begins at the end is not there, and so has no end either.
bool FieldReader::beginField()
{
    if (!m_error) {
        ++m_fieldNo;
        m_fieldAt = position();
    }
    if (atEnd()) {
        fail(FailureCode::InputPastEnd);
        m_fieldHasEnd = false;
    }
    return !m_error;
}

bool FieldReader::take(char byte)
{
    if (atEnd() || m_rest.front() != byte) {
        return false;
    }
    m_rest = m_rest.sliced(1);
    return true;
}

void FieldReader::skipSpaces()
{
    while (!atEnd() && isFieldSpace(m_rest.front())) {
        m_rest = m_rest.sliced(1);
    }
}

/// After a number or a closing quote: a comma or one line end, after spaces; nothing if another field follows.
void FieldReader::takeSeparator()
{
    skipSpaces();
    m_fieldHasEnd = m_rest.startsWith("\r\n");
    if (m_fieldHasEnd) {
        m_rest = m_rest.sliced(2);
    } else {
        m_fieldHasEnd = take(',') || take('\n');
    }
}

/// Up to the next comma or line end, which is passed; trailing spaces are dropped.
FieldReader::Field FieldReader::takeUnquotedText()
{
    const char *const first = m_rest.begin();
    const char *at = first;
    uchar bits = 0;
    for (; at != m_rest.end() && *at != ',' && *at != '\n'; ++at) {
        bits |= static_cast<uchar>(*at);
    }
    const char *last = at;
    m_fieldHasEnd = at != m_rest.end();
    if (m_fieldHasEnd) {
        last -= *at == '\n' && at != first && at[-1] == '\r' ? 1 : 0;
        ++at;
    }
    m_rest = from(at, m_rest);
    while (last != first && last[-1] == ' ') {
        --last;
    }
    return {QByteArrayView(first, last), bits < 0x80};
}

/// Up to the next quote, commas and line ends included; the quote and the separator after it are passed.
QByteArrayView FieldReader::takeQuotedText()
{
    const auto *quote = std::find(m_rest.begin(), m_rest.end(), '"');
    const QByteArrayView quoted(m_rest.begin(), quote);
    m_rest = from(quote, m_rest);
    take('"');
    takeSeparator();
    return quoted;
}

/// To be called when a field and its separator have been passed.
void FieldReader::traceField()
{
    if (m_trace == nullptr) {
        return;
    }
    QByteArrayView bytes(m_rest.end() - m_size + m_fieldAt, m_rest.begin());
    if (m_fieldHasEnd) {
        bytes.chop(bytes.endsWith("\r\n") ? 2 : 1);
    }
    *m_trace << FileField{m_fieldAt, bytes};
}

template <typename View>
QString FieldReader::stored(View text)
{
    return m_pool ? m_pool->share(text) : text.toString();
}

QString FieldReader::decoded(const Field &field)
{
    if (field.ascii) {
        return stored(QLatin1StringView(field.bytes.data(), field.bytes.size()));
    }
    QVarLengthArray<char16_t, 256> units(field.bytes.size());
    const QStringView text(units.data(), m_page.decodeTo(field.bytes, units.data()));
    m_undecoded += undecodedBytes(text);
    return stored(text);
}

/// A numeric field; an empty one is 0.
double FieldReader::number()
{
    while (!atEnd() && (isFieldSpace(m_rest.front()) || isLineEnd(m_rest.front()))) {
        m_rest = m_rest.sliced(1);
    }
    if (!beginField()) {
        return 0;
    }
    const auto *end = std::find_if(m_rest.begin(), m_rest.end(), endsNumber);
    const double value = leadingNumber(QByteArrayView(m_rest.begin(), end));
    m_rest = from(end, m_rest);
    takeSeparator();
    traceField();
    return value;
}
