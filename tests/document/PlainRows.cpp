#include "tests/document/PlainRows.h"

#include <algorithm>

QByteArray PlainRows::value()
{
    const QByteArray whole = QByteArray::number(number(9) == 0 ? number(99999) : number(12));
    return number(3) == 0 ? whole + '.' + QByteArray::number(1 + number(8)) : whole;
}

QByteArray PlainRows::ranges(int count)
{
    QByteArray fields;
    for (int i = 0; i < count; ++i) {
        if (number(1) == 0) { // which conditions may name as a whole
            fields += ",1,5";
            continue;
        }
        const int lower = number(20);
        fields += ',' + QByteArray::number(lower) + ','
            + oneOf({QByteArray::number(lower + 1 + number(30)), QByteArray::number(lower + 10) + ".5", "0", "-1"});
    }
    return fields;
}

QByteArray PlainRows::conditions(int count)
{
    QByteArray fields;
    for (int i = 0; i < count; ++i) {
        const QByteArray low = QByteArray::number(number(2));
        const QByteArray high = QByteArray::number(4 + number(3));
        const QByteArray subject = oneOf({"MODE", "OP", QByteArray::number(1 + number(12)), "007"});
        const bool hasRange = subject != "MODE" && subject != "OP" && number(1) == 0;
        fields += ',' + subject + ',' + QByteArray::number(number(1) + (hasRange ? 2 : 0)) + ','
            + (hasRange ? oneOf({low + ',' + high, "1,5"}) : oneOf({low, high}));
    }
    return fields;
}

QByteArray PlainRows::row(int index)
{
    const int conditionCount = std::max(0, number(5) - 3);
    const int rangeCount = number(9) == 0 ? 2 : number(4) == 0 ? 0 : 1;
    const QByteArray number1 = QByteArray::number(number(15) == 0 ? number(12) : index + 1);
    const QByteArray commonName =
        oneOf({"Jog", "Torque boost", "\x83\x41\x83\x43", "Terminal RL function selection", ""});
    const QByteArray name = number(60) == 0 ? oneOf({"\"Jog, slow\"", "\"Jog\r\nslow\""}) : commonName;
    return QByteArray::number(conditionCount) + ',' + (number(20) == 0 ? oneOf({"A1", "007", "123456"}) : number1) + ','
        + oneOf({"0", "0", "", QByteArray::number(index + 1), QByteArray::number(number(5)), "x"}) + ',' + name + ','
        + oneOf({"", "Hz", "\xB0"}) + ',' + oneOf({"1", "0.1", "0.01"}) + ',' + oneOf({"-1", "0.001"}) + ",-1,"
        + value() + ',' + QByteArray::number(1 << number(number(9) == 0 ? 14 : 9)) + ',' + oneOf({"0", "1"}) + ','
        + QByteArray::number(rangeCount) + ranges(rangeCount) + conditions(conditionCount)
        + (rangeCount + conditionCount > 0 ? "\r\n" : ",");
}

QByteArrayList PlainRows::rows(int count)
{
    QByteArrayList rows;
    for (int i = 0; i < count; ++i) {
        rows << row(i);
    }
    return rows;
}

QByteArray PlainRows::fileOf(const QByteArrayList &rows)
{
    return "[Inverter]\r\nName=XT\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nCapacity0=0.4\r\nICapacity0=2\r\n"
           "SoftWareVersion=1\r\nParamater="
        + QByteArray::number(rows.size()) + "\r\n[Paramater]\r\n" + rows.join();
}

QByteArray PlainRows::damaged(QByteArray bytes)
{
    constexpr QByteArrayView odd = ",\r\n\"0179-. =;[abM\x81\xFF";
    for (int i = number(3); i > 0; --i) {
        bytes[number(int(bytes.size()) - 1)] = odd[number(int(odd.size()) - 1)];
    }
    return bytes;
}
