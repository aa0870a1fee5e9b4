#include "grid/cells/CellInput.h"

#include "runtime/NumberText.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDecimalPoint(QChar unit)
{
    static const QString localPoint = QLocale().decimalPoint();
    return unit == u'.' || localPoint == unit;
}

// Whether the text can be the beginning of a number: a sign if allowed, digits, at most one point if allowed.
bool isNumberBeginning(QStringView text, bool signAllowed, bool pointAllowed)
{
    if (signAllowed && text.startsWith(u'-')) {
        text = text.sliced(1);
    }
    int points = 0;
    return std::ranges::all_of(text, [&](QChar unit) {
        const bool isDigit = unit >= u'0' && unit <= u'9';
        return isDigit || (pointAllowed && isDecimalPoint(unit) && ++points == 1);
    });
}

bool isLineEnd(QChar unit)
{
    return unit == u'\n' || unit == u'\r' || unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator;
}

bool hasDigit(QStringView text)
{
    return std::ranges::any_of(text, [](QChar unit) { return unit.isDigit(); });
}

double numberOf(QString text)
{
    std::ranges::replace_if(text, isDecimalPoint, u'.');
    return QLocale::c().toDouble(text);
}

/// A number that is not negative, without leading zeros and without a trailing point.
QString withoutSpareZeros(QStringView text)
{
    while (text.startsWith(u'0')) {
        text = text.sliced(1);
    }
    if (!text.isEmpty() && isDecimalPoint(text.back())) {
        text.chop(1);
    }
    return (text.isEmpty() || isDecimalPoint(text.front()) ? u"0"_s : u""_s) + text.toString();
}

QValidator::State checkNumber(const CellType &type, const QString &text)
{
    const bool isFloat = type.kind == CellType::Kind::Float;
    if (!isNumberBeginning(text, type.minimum < 0, isFloat)) {
        return QValidator::Invalid;
    }
    if (!hasDigit(text)) {
        return QValidator::Intermediate;
    }
    const double number = numberOf(text);
    if (number >= type.minimum && number <= type.maximum) {
        return QValidator::Acceptable;
    }
    // Further digits lead away from 0: beyond the far limit there is no way back.
    const bool isBeyond = text.startsWith(u'-') ? number < type.minimum : number > type.maximum;
    return isBeyond ? QValidator::Invalid : QValidator::Intermediate;
}

} // namespace

QValidator::State CellInput::check(const CellType &type, const QString &text)
{
    using Kind = CellType::Kind;
    if (text.isEmpty()) {
        return QValidator::Acceptable;
    }
    switch (type.kind) {
    case Kind::Integer:
    case Kind::Float:
        return checkNumber(type, text);
    case Kind::Text:
        return type.maxLength > 0 && text.size() > type.maxLength ? QValidator::Invalid : QValidator::Acceptable;
    case Kind::CheckBox:
    case Kind::ComboBox:
        break;
    }
    return QValidator::Acceptable;
}

QString CellInput::stored(const CellType &type, const QString &text)
{
    const bool isNumber = type.kind == CellType::Kind::Integer || type.kind == CellType::Kind::Float;
    if (!isNumber || !hasDigit(text)) {
        return text;
    }
    const bool isNegative = text.startsWith(u'-');
    const QString number = withoutSpareZeros(QStringView(text).sliced(isNegative ? 1 : 0));
    return isNegative && number != u"0"_s ? u'-' + number : number;
}

bool CellInput::hasLineEnd(QStringView text)
{
    return std::ranges::any_of(text, isLineEnd);
}

QString CellInput::onOneLine(QString text)
{
    while (!text.isEmpty() && isLineEnd(text.back())) {
        text.chop(1);
    }
    text.replace("\r\n"_L1, " "_L1);
    std::ranges::replace_if(text, isLineEnd, u' ');
    return text;
}

bool CellInput::isTicked(QStringView text)
{
    return numericValue(text).value_or(0) != 0;
}
