#include "tests/document/RandomDocument.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView plainAlphabet = u"abcXYZ0189 /=%()\\'*&;[]_-+.\"\t";
constexpr QStringView westernAlphabet = u"abcXYZ0189 éüß°µ€%()\u0081\u00A0\u00FF";
constexpr QStringView japaneseAlphabet = u"aZ9 ｱｶﾞ｡漢字表示能ソ一ー～\u3000\uE000\uF780\uF7FD";

} // namespace

int RandomDocument::number(int last)
{
    return static_cast<int>(m_random() % static_cast<quint32>(last + 1));
}

QString RandomDocument::textOf(QStringView alphabet, int longest)
{
    QString text;
    for (int i = number(longest); i > 0; --i) {
        text += alphabet[number(static_cast<int>(alphabet.size()) - 1)];
    }
    return text;
}

/// A text that a text field can hold: no blanks at its ends, no quote at its beginning.
QString RandomDocument::text(int typicalLength)
{
    const int longest = chance(2) ? 10 * typicalLength : typicalLength;
    QString text = textOf(chance(50) ? plainAlphabet : m_japanese ? japaneseAlphabet : westernAlphabet, longest);
    while (text.startsWith(u' ') || text.startsWith(u'"')) {
        text.remove(0, 1);
    }
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

QString RandomDocument::numberText()
{
    const QString whole = QString::number(number(chance(80) ? 99 : 99999));
    return chance(30) ? whole + u'.' + QString::number(1 + number(8)) : whole;
}

QString RandomDocument::increment(bool optional)
{
    static const QStringList steps = {u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s, u"-1"_s};
    return steps[number(optional ? 4 : 3)];
}

/// A number in the shortest form that a factory setting has.
QString RandomDocument::factorySetting()
{
    static const QStringList rare = {u"1E+15"_s, u"1.5E+20"_s, u"0.0001"_s, u"1E-05"_s, u"999999999999999"_s};
    const QString text = chance(5) ? rare[number(4)] : numberText();
    return chance(10) && text != u"0" ? u'-' + text : text;
}

float RandomDocument::bound()
{
    constexpr float rare[] = {1E+07F, 1.5E+20F, 9999999, 0.0001F, 0.3333333F};
    return chance(5) ? rare[number(4)] : numberText().toFloat();
}

/// A range that its text gives back: single, open or with the upper bound above the lower one.
SettingRange RandomDocument::range()
{
    const float lower = bound();
    if (chance(40)) {
        return {0, lower};
    }
    const float above = lower < 1E+07F ? lower + 1 + static_cast<float>(number(100)) : lower * 2;
    // Rounded to what a text of a single can say.
    return {chance(30) ? -1 : QString::number(double(above), 'g', 6).toFloat(), lower};
}

/// A text that is a number, also in the rarer forms that users type.
QString RandomDocument::numeric()
{
    static const QStringList rare = {u"1E3"_s, u".5"_s, u"+7"_s, u"(5)"_s, u"&H1A"_s, u"7."_s};
    return chance(10) ? rare[number(5)] : numberText();
}

PrCondition RandomDocument::condition()
{
    PrCondition condition;
    condition.kind = chance(50) ? PrCondition::NotEqual : 0;
    condition.subject = chance(20) ? u"MODE"_s : chance(20) ? u"OP"_s : numeric();
    condition.value1 = condition.subject == u"OP"_s ? u'A' + numberText() : numeric();
    if (condition.subject != u"OP"_s && condition.subject != u"MODE"_s && chance(40)) {
        condition.kind |= PrCondition::HasRange;
        condition.value1 = chance(5) ? QString() : condition.value1;
        condition.value2 = numeric();
        if (condition.value2 < condition.value1) {
            condition.value1.swap(condition.value2);
        }
    }
    return condition;
}

PrRecord RandomDocument::record()
{
    PrRecord record;
    record.number = chance(90) ? QString::number(number(999)) : text(5);
    record.helpId = QString::number(number(32767));
    record.name = text(30);
    record.unit = text(4);
    record.min1 = increment(false);
    record.min2 = increment(true);
    record.min3 = increment(true);
    record.factorySetting = factorySetting();
    record.functionCode = QString::number(number(65535) - 32768);
    record.rangeCheck = chance(50) ? u"1"_s : u"0"_s;
    record.rangeCount = static_cast<qint16>(number(chance(3) ? 60 : 3));
    record.conditionCount = static_cast<qint16>(std::max(0, number(chance(3) ? 40 : 6) - 3));
    std::generate_n(std::back_inserter(record.ranges), record.rangeCount, [this] { return range(); });
    std::generate_n(std::back_inserter(record.conditions), record.conditionCount, [this] { return condition(); });
    return record;
}

QList<PrRecord> RandomDocument::records(int largest)
{
    QList<PrRecord> records;
    std::generate_n(std::back_inserter(records), number(largest), [this] { return record(); });
    return records;
}

QStringList RandomDocument::texts(int count)
{
    QStringList texts;
    std::generate_n(std::back_inserter(texts), count, [this] { return numberText(); });
    return texts;
}

MachineInfo RandomDocument::machineInfo()
{
    MachineInfo info;
    info.Name = u'N' + text(20).left(60) + u'.'; // a key line's value has 127 bytes at most
    info.TypeCode = chance(50) ? numberText() : QString();
    info.VCapacity = numberText();
    info.Code = numberText();
    const int capacities = number(20);
    info.Capacity = texts(capacities);
    info.ICapacity = texts(capacities);
    info.Option = texts(number(3));
    info.SoftWareVersion = numberText();
    return info;
}
