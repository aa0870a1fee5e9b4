#include "runtime/NumericParser.h"

#include "runtime/Country.h"
#include "runtime/DecimalValue.h"
#include "runtime/Digits.h"
#include "runtime/Spaces.h"

#include <cmath>
#include <limits>

namespace {

constexpr int japan = 81;

bool isCurrencySign(char16_t character)
{
    if (character != u'$' && character != u'\\' && character != 0x00A5) {
        return false;
    }
    return (character == u'$') == (countryCode() != japan);
}

/// The value of a digit in bases up to 16; 16 for any other character.
int digitValue(char16_t character)
{
    if (isDigit(character)) {
        return character - u'0';
    }
    const char16_t lower = character | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

} // namespace

Result<ParsedNumber> NumericParser::parse()
{
    takeLeading();
    if (const int base = takeRadixPrefix()) {
        return radixNumber(base);
    }
    if (!takeMantissa() || !takeExponent()) {
        return FailureCode::TypeMismatch;
    }
    takeTrailing();
    if (!atEnd() || m_opened != m_closed) {
        return FailureCode::TypeMismatch;
    }
    return decimalNumber();
}

/// Takes the current character when it matches and was not taken before.
bool NumericParser::takeOnce(bool matches, bool &taken)
{
    if (!matches || taken) {
        return false;
    }
    taken = true;
    ++m_at;
    return true;
}

void NumericParser::skipSpaces()
{
    while (!atEnd() && isNumberSpace(current())) {
        ++m_at;
    }
}

void NumericParser::takeLeading()
{
    do {
        skipSpaces();
    } while (takeOnce(current() == u'+', m_plus) || takeOnce(current() == u'-', m_minus)
        || takeOnce(current() == u'(', m_opened) || takeOnce(isCurrencySign(current()), m_currency));
}

void NumericParser::takeTrailing()
{
    bool signTaken = m_plus || m_minus;
    bool closable = !m_opened;
    do {
        skipSpaces();
        m_minus = m_minus || (!signTaken && current() == u'-');
    } while (takeOnce(current() == u'-' || current() == u'+', signTaken) || takeOnce(current() == u')', closable)
        || takeOnce(isCurrencySign(current()), m_currency));
    m_closed = m_opened && closable;
}

/// 16 after "&H", 8 after "&O", else 0 with nothing taken.
int NumericParser::takeRadixPrefix()
{
    if (current() != u'&' || m_at + 1 == m_text.size()) {
        return 0;
    }
    const char16_t letter = m_text[m_at + 1].unicode() | 0x20;
    if (letter != u'h' && letter != u'o') {
        return 0;
    }
    m_at += 2;
    return letter == u'h' ? 16 : 8;
}

Result<ParsedNumber> NumericParser::radixNumber(int base)
{
    const qsizetype first = m_at;
    double value = 0;
    for (; digitValue(current()) < base; ++m_at) {
        value = value * base + digitValue(current());
    }
    const bool hasDigits = m_at > first;
    skipSpaces();
    if (!hasDigits || !atEnd() || m_opened) {
        return FailureCode::TypeMismatch;
    }
    if (value > std::numeric_limits<qint32>::max()) {
        return FailureCode::Overflow;
    }
    return ParsedNumber{value, true};
}

/// Takes digits, and the commas between and after them when separators are allowed; returns the number of digits.
qsizetype NumericParser::takeDigits(bool separators)
{
    const qsizetype before = m_number.size();
    while (isDigit(current()) || (separators && m_number.size() > before && current() == u',')) {
        if (current() != u',') {
            m_number.append(static_cast<char>(current()));
        }
        ++m_at;
    }
    return m_number.size() - before;
}

bool NumericParser::takeMantissa()
{
    qsizetype digits = takeDigits(true);
    if (current() == u'.') {
        m_number.append('.');
        ++m_at;
        digits += takeDigits(false);
    }
    return digits > 0;
}

bool NumericParser::takeExponent()
{
    if (current() != u'e' && current() != u'E') {
        return true;
    }
    m_number.append('e');
    ++m_at;
    if (current() == u'+' || current() == u'-') {
        m_number.append(static_cast<char>(current()));
        ++m_at;
    }
    return takeDigits(false) > 0;
}

Result<ParsedNumber> NumericParser::decimalNumber() const
{
    const double value = decimalValue(QByteArrayView(m_number.data(), m_number.size()));
    if (std::isinf(value)) {
        return FailureCode::Overflow;
    }
    return ParsedNumber{m_minus || m_closed ? -value : value, false};
}
