#pragma once

#include "runtime/Result.h"

#include <QStringView>
#include <QVarLengthArray>

/// The number that a text is.
struct ParsedNumber
{
    double value = 0;
    bool isRadix = false; ///< written with "&H" or "&O": its bits count, not its sign
};

/// The grammar of the platform's conversion of a whole text to a number; see numericValue() in NumberText.h.
class NumericParser
{
public:
    explicit NumericParser(QStringView text) : m_text(text) { }

    /// Once per object. TypeMismatch for a text that is not a number, Overflow for one that is too large.
    Result<ParsedNumber> parse();

private:
    bool atEnd() const { return m_at == m_text.size(); }
    char16_t current() const { return atEnd() ? u'\0' : m_text[m_at].unicode(); }
    bool takeOnce(bool matches, bool &taken);
    void takeLeading();
    void takeTrailing();
    void skipSpaces();
    int takeRadixPrefix();
    qsizetype takeDigits(bool separators);
    bool takeMantissa();
    bool takeExponent();
    Result<ParsedNumber> radixNumber(int base);
    Result<ParsedNumber> decimalNumber() const;

    QStringView m_text;
    qsizetype m_at = 0;
    QVarLengthArray<char, 64> m_number; ///< the number without sign, spaces and separators
    bool m_plus = false;
    bool m_minus = false;
    bool m_opened = false;
    bool m_closed = false;
    bool m_currency = false;
};
