#include "editor/FillSeries.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// So that counting over all rows of the largest file stays within 64 bits.
constexpr qsizetype maxDigits = 13;
constexpr qint64 maxValue = 10'000'000'000'000;
constexpr int codeDigits = 4;
constexpr int codeBase = 16;

bool isDigit(QChar unit)
{
    return unit >= u'0' && unit <= u'9';
}

qsizetype beginOfDigits(QStringView text)
{
    qsizetype begin = text.size();
    while (begin > 0 && isDigit(text[begin - 1])) {
        --begin;
    }
    return begin;
}

bool isHexDigit(QChar unit)
{
    const char16_t capital = unit.toUpper().unicode();
    return isDigit(unit) || (capital >= u'A' && capital <= u'F');
}

bool isNoTextOrSign(QStringView text)
{
    return text.isEmpty() || text == u"-";
}

QString withPoint(QString digits, int decimals)
{
    digits = digits.rightJustified(decimals + 1, u'0');
    return decimals > 0 ? digits.insert(digits.size() - decimals, u'.') : digits;
}

QString withoutLastZeros(QString number)
{
    while (number.contains(u'.') && (number.endsWith(u'0') || number.endsWith(u'.'))) {
        number.chop(1);
    }
    return number;
}

} // namespace

FillSeries::FillSeries(const std::vector<QString> &given, const CellType &type, SeriesRule rule) : m_given(given)
{
    using Kind = CellType::Kind;
    const bool isChoice = type.kind == Kind::CheckBox || type.kind == Kind::ComboBox;
    if (given.empty() || isChoice || (given.size() == 1 && rule == SeriesRule::RepeatsOne)) {
        return;
    }
    std::vector<Number> numbers;
    for (const QString &text : given) {
        const auto number = rule == SeriesRule::Hexadecimal ? codeOf(text) : numberOf(text, given.size() > 1);
        if (!number) {
            return;
        }
        numbers.push_back(*number);
    }
    m_counts = findStep(std::move(numbers));
    m_last.digits = type.kind == Kind::Text ? m_last.digits : 0;
}

std::optional<FillSeries::Number> FillSeries::codeOf(const QString &text)
{
    if (text.isEmpty() || text.size() > codeDigits || !std::ranges::all_of(text, isHexDigit)) {
        return std::nullopt;
    }
    return Number{.before = {}, .value = text.toInt(nullptr, codeBase), .isCode = true};
}

std::optional<FillSeries::Number> FillSeries::numberOf(const QString &text, bool decimalsAfterText)
{
    qsizetype begin = beginOfDigits(text);
    qsizetype decimals = 0;
    if (begin > 0 && begin < text.size() && text[begin - 1] == u'.') {
        const qsizetype whole = beginOfDigits(QStringView(text).first(begin - 1));
        if (isNoTextOrSign(QStringView(text).first(whole)) || (decimalsAfterText && whole < begin - 1)) {
            decimals = text.size() - begin;
            begin = whole;
        }
    }
    QString digits = text.sliced(begin);
    digits.remove(u'.');
    if (digits.isEmpty() || digits.size() > maxDigits) {
        return std::nullopt;
    }
    const qsizetype whole = digits.size() - decimals;
    const bool isNegative = QStringView(text).first(begin) == u"-";
    return Number{.before = isNegative ? QString() : text.first(begin),
        .value = isNegative ? -digits.toLongLong() : digits.toLongLong(),
        .decimals = int(decimals),
        .digits = whole > 1 && digits.startsWith(u'0') ? int(whole) : 0};
}

/// False if the numbers are not equally spaced, or follow different texts.
bool FillSeries::findStep(std::vector<Number> numbers)
{
    const auto [min, max] = std::ranges::minmax(numbers, {}, &Number::decimals);
    const int decimals = max.decimals;
    m_dropsZeros = min.decimals != decimals;
    for (Number &number : numbers) {
        for (; number.decimals < decimals; ++number.decimals) {
            number.value *= 10;
            if (qAbs(number.value) >= maxValue) {
                return false;
            }
        }
    }
    m_last = numbers.back();
    m_last.digits = std::ranges::max(numbers, {}, &Number::digits).digits;
    m_step = numbers.size() > 1 ? numbers[1].value - numbers[0].value : m_step;
    for (int whole = numbers.size() > 1 ? 0 : decimals; whole > 0; --whole) {
        m_step *= 10;
    }
    const auto breaksOff = [this](const Number &one, const Number &next) {
        return one.before != next.before || next.value - one.value != m_step;
    };
    return std::ranges::adjacent_find(numbers, breaksOff) == numbers.end();
}

std::optional<QString> FillSeries::at(int index) const
{
    if (!m_counts) {
        return m_given.empty() ? std::nullopt : std::optional(m_given[size_t(index) % m_given.size()]);
    }
    const qint64 value = m_last.value + m_step * (index + 1);
    const bool mayBeNegative = m_last.before.isEmpty() && !m_last.isCode;
    const bool hasEnded = (value < 0 && !mayBeNegative) || (m_last.isCode && value > 0xFFFF);
    return hasEnded ? std::nullopt : std::optional(textOf(value));
}

QString FillSeries::textOf(qint64 value) const
{
    if (m_last.isCode) {
        return QString::number(value, codeBase).toUpper().rightJustified(codeDigits, u'0');
    }
    const int digits = m_last.digits + m_last.decimals;
    QString number = withPoint(QString::number(qAbs(value)).rightJustified(digits, u'0'), m_last.decimals);
    number = m_dropsZeros ? withoutLastZeros(number) : number;
    return m_last.before + (value < 0 ? u"-"_s : QString()) + number;
}

int givenTexts(const std::vector<QString> &texts, QStringView added)
{
    if (texts.empty() || texts.front().isEmpty()) {
        return 0;
    }
    const auto isFree = [added](const QString &text) { return text.isEmpty() || text == added; };
    const auto end = std::find_if(texts.begin() + 1, texts.end(), isFree);
    const auto given = std::distance(texts.begin(), end);
    return int(end == texts.end() ? std::min(given, std::ptrdiff_t(2)) : given);
}
