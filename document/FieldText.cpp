#include "document/FieldText.h"

#include "runtime/Digits.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

qsizetype countDigits(QStringView text)
{
    qsizetype count = 0;
    while (count < text.size() && isDigit(text[count].unicode())) {
        ++count;
    }
    return count;
}

/// Scans a setting-range text.
class RangeScanner
{
public:
    explicit RangeScanner(QList<SettingRange> &ranges) : m_ranges(ranges) { }

    Result<> scan(QStringView text);

private:
    void takeDash();
    void finishPart();
    float takeBound();

    QList<SettingRange> &m_ranges;
    SettingRange m_range; ///< the part that is open
    QVarLengthArray<QChar, 64> m_text;
    bool m_seenDash = false;
    bool m_overflow = false;
};

Result<> RangeScanner::scan(QStringView text)
{
    for (const QChar character : text) {
        if (character == u'-') {
            takeDash();
        } else if (character == u',') {
            finishPart();
        } else {
            m_text.append(character);
        }
    }
    finishPart();
    const bool tooMany = m_ranges.size() > std::numeric_limits<qint16>::max();
    return m_overflow || tooMany ? Result<>(FailureCode::Overflow) : Result<>();
}

/// A second dash ends the range early and keeps what was collected, which then counts as a single value.
void RangeScanner::takeDash()
{
    if (m_seenDash) {
        const auto collected = m_text;
        m_range.upper = takeBound();
        m_text = collected;
    } else {
        m_range.lower = takeBound();
    }
    m_seenDash = !m_seenDash;
}

void RangeScanner::finishPart()
{
    constexpr float openEnd = -1;
    if (!m_seenDash) {
        m_range = {0, takeBound()};
    } else {
        m_range.upper = m_text.isEmpty() ? openEnd : takeBound();
    }
    m_ranges.append(std::exchange(m_range, SettingRange{}));
    m_seenDash = false;
}

/// The number collected so far, which is then used up.
float RangeScanner::takeBound()
{
    const double value = leadingNumber(QStringView(m_text.data(), m_text.size()));
    m_text.clear();
    m_overflow = m_overflow || std::abs(value) > std::numeric_limits<float>::max();
    return m_overflow ? 0 : static_cast<float>(value);
}

void appendRange(QString &text, const SettingRange &range)
{
    text += SingleToText(range.lower);
    if (range.upper > range.lower) {
        text += u'-';
        text += SingleToText(range.upper);
    } else if (range.upper == -1) {
        text += u'-';
    }
}

} // namespace

bool isNormalizedNum(QStringView text)
{
    constexpr qsizetype exactDigits = 15;
    const QStringView number = text.startsWith(u'-') ? text.sliced(1) : text;
    const qsizetype whole = countDigits(number);
    const bool zero = whole == 1 && number[0] == u'0';
    if (whole == 0 || number.size() > exactDigits || (number[0] == u'0' && !zero)) {
        return false;
    }
    if (whole == number.size()) {
        return !zero || number.size() == text.size();
    }
    const QStringView fraction = number.sliced(whole + 1);
    return number[whole] == u'.' && !fraction.isEmpty() && countDigits(fraction) == fraction.size()
        && fraction.back() != u'0' && !(zero && fraction.startsWith(u"000"));
}

QString NormalizeNumText(QStringView text)
{
    if (isNormalizedNum(text)) {
        return text.toString();
    }
    const QString decimal = text.toString().replace(u',', u'.');
    const double value = leadingNumber(decimal);
    return std::isfinite(value) ? doubleText(value) : leadingNumberText(decimal).toString();
}

char16_t *writeFunctionCode(qint16 code, char16_t *out)
{
    for (int shift = 12; shift >= 0; shift -= 4) {
        *out++ = u"0123456789ABCDEF"[quint16(code) >> shift & 0xF];
    }
    return out;
}

QString functionCodeText(qint16 code)
{
    std::array<char16_t, 4> digits{};
    writeFunctionCode(code, digits.data());
    return QStringView(digits).toString();
}

qint16 storedFunctionCode(QStringView decimal)
{
    constexpr double limit = 1e15;
    return qint16(quint16(qint64(std::clamp(leadingNumber(decimal), -limit, limit))));
}

QString SingleToText(float value)
{
    return singleText(value);
}

Result<> parseRanges(QStringView text, QList<SettingRange> &ranges)
{
    ranges.clear();
    return text.isEmpty() ? Result<>() : RangeScanner(ranges).scan(text);
}

Result<QList<SettingRange>> rangesFromText(QStringView text)
{
    QList<SettingRange> ranges;
    if (const auto parsed = parseRanges(text, ranges); !parsed) {
        return parsed.failure();
    }
    return ranges;
}

QString rangesToText(std::span<const SettingRange> ranges)
{
    constexpr qsizetype typicalLength = 12;
    QString text;
    text.reserve(qsizetype(ranges.size()) * typicalLength);
    for (const SettingRange &range : ranges) {
        text += text.isEmpty() ? ""_L1 : ","_L1;
        appendRange(text, range);
    }
    return text;
}

QString settingRangeText(const PrRecord &record)
{
    const qsizetype count = std::clamp<qsizetype>(record.rangeCount, 0, record.ranges.size());
    return rangesToText(std::span(record.ranges.data(), static_cast<size_t>(count)));
}
