#include "bench/DocumentGenerator.h"

#include <QFile>

namespace {

constexpr const char *subjects[] = {"Torque boost", "Acceleration time", "Terminal RL function", "Stall prevention",
    "Regenerative brake duty", "Jog frequency", "Analog input bias", "Communication station", "Speed loop gain"};
constexpr const char *qualities[] = {"selection", "level 1", "upper limit", "(second motor)", "at start", "filter"};
constexpr const char *units[] = {"", "Hz", "%", "s", "kW", "V", "A", "min-1",
    "\xB0"
    "C"};
constexpr const char *increments[] = {"1", "0.1", "0.01", "0.001"};
constexpr const char *optional[] = {"-1", "-1", "-1", "0.1", "0.01", "1"};

} // namespace

/// 0 to last.
int DocumentGenerator::number(int last)
{
    return static_cast<int>(m_random() % static_cast<quint32>(last + 1));
}

template <size_t size>
const char *DocumentGenerator::oneOf(const char *const (&texts)[size])
{
    return texts[number(static_cast<int>(size) - 1)];
}

/// 15 to 40 characters, if no more are wanted.
QByteArray DocumentGenerator::name()
{
    QByteArray name = QByteArray(oneOf(subjects)) + ' ' + oneOf(qualities);
    const int length = m_longNames-- > 0 ? m_nameLength : 0;
    while (name.size() < length) {
        name += QByteArray("; ") + oneOf(subjects);
    }
    return name;
}

/// The range fields, each after its comma: a range, then single values.
QByteArray DocumentGenerator::ranges(int count)
{
    QByteArray fields;
    for (int i = 0; i < count; ++i) {
        const bool single = i > 0;
        fields += ',' + QByteArray::number(single ? 9999 : number(5));
        fields += ',' + (single ? QByteArray("0") : QByteArray::number(10 + number(590)) + (chance(20) ? ".5" : ""));
    }
    return fields;
}

QByteArray DocumentGenerator::conditions(int count)
{
    QByteArray fields;
    for (int i = 0; i < count; ++i) {
        if (chance(50)) {
            fields += ",MODE," + QByteArray::number(number(1)) + ',' + QByteArray::number(number(7));
        } else {
            fields += ',' + QByteArray::number(number(999)) + ",2,1," + QByteArray::number(2 + number(7));
        }
    }
    return fields;
}

QByteArray DocumentGenerator::row(int index)
{
    const int rangeCount = chance(10) ? 0 : 1 + number(9) / 8;
    const int conditionCount = chance(15) ? 1 + number(2) : 0;
    const QByteArray number1 = QByteArray::number(index % 1000);
    QByteArray row = QByteArray::number(conditionCount) + ',' + number1 + ',' + QByteArray::number(1000 + index % 30000)
        + ',' + name() + ',' + oneOf(units) + ',' + oneOf(increments) + ',' + oneOf(optional) + ",-1,"
        + QByteArray::number(number(600)) + (chance(20) ? ".1" : "") + ',' + QByteArray::number(1 << number(14)) + ','
        + QByteArray::number(number(1)) + ',' + QByteArray::number(rangeCount) + ranges(rangeCount)
        + conditions(conditionCount);
    return row + (rangeCount + conditionCount > 0 ? "\r\n" : ",");
}

QByteArray DocumentGenerator::file(int rows)
{
    QByteArray bytes = "[Inverter]\r\nName=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nCapacity0=0.4\r\n"
                       "ICapacity0=2.5\r\nCapacity1=0.75\r\nICapacity1=4.2\r\nOption0=xx\r\nSoftWareVersion=1.00\r\n"
                       "Paramater="
        + QByteArray::number(rows) + "\r\n[Paramater]\r\n";
    for (int i = 0; i < rows; ++i) {
        bytes += row(i);
    }
    return bytes;
}

void DocumentGenerator::write(int rows, const QString &fileName)
{
    const QByteArray bytes = this->file(rows);
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        qFatal("cannot write %s", qPrintable(fileName));
    }
}
