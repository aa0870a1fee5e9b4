#include "tests/document/RandomDocument.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView plainAlphabet = u"abcXYZ0189 /=%()\\'*&;[]_-+.\"";
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
QString RandomDocument::text(int longest)
{
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

float RandomDocument::bound()
{
    return numberText().toFloat();
}

/// A range that its text gives back: single, open or with the upper bound above the lower one.
SettingRange RandomDocument::range()
{
    const float lower = bound();
    if (chance(40)) {
        return {0, lower};
    }
    const float above = lower + 1 + static_cast<float>(number(100));
    // Rounded to what a text of a single can say.
    return {chance(30) ? -1 : QString::number(double(above), 'g', 6).toFloat(), lower};
}

PrCondition RandomDocument::condition()
{
    PrCondition condition;
    condition.kind = chance(50) ? PrCondition::NotEqual : 0;
    condition.subject = chance(20) ? u"MODE"_s : chance(20) ? u"OP"_s : QString::number(number(999));
    condition.value1 = condition.subject == u"OP"_s ? u'A' + numberText() : numberText();
    if (condition.subject[0].isDigit() && chance(40)) {
        condition.kind |= PrCondition::HasRange;
        condition.value2 = numberText();
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
    record.factorySetting = numberText();
    record.functionCode = QString::number(number(65535) - 32768);
    record.rangeCheck = chance(50) ? u"1"_s : u"0"_s;
    record.rangeCount = static_cast<qint16>(number(3));
    record.conditionCount = static_cast<qint16>(std::max(0, number(6) - 3));
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
    info.Name = u'N' + text(20) + u'.';
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
