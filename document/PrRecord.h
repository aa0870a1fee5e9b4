#pragma once

#include <QList>
#include <QString>

/// One range of permitted settings. A single value v is (v, 0), an open range "a-" is (a, -1).
struct SettingRange
{
    float upper = 0;
    float lower = 0;

    bool operator==(const SettingRange &) const = default;
};

/// A read condition: while it holds, a bulk read leaves the parameter out.
struct PrCondition
{
    enum KindBit : quint8 { NotEqual = 0x01, HasRange = 0x02 };

    QString subject; ///< parameter number, "MODE" or "OP"
    quint8 kind = 0; ///< sum of KindBits
    QString value1;
    QString value2; ///< upper end; empty unless kind has HasRange

    bool operator==(const PrCondition &) const = default;
};

/// One parameter row.
struct PrRecord
{
    qint16 conditionCount = 0;
    QString helpId;
    QString number; ///< the parameter's number as shown
    QString name;
    QString unit;
    QString min1; ///< minimum setting increment: "1", "0.1", "0.01" or "0.001"; "-1" for none
    QString min2;
    QString min3;
    QString factorySetting; ///< normalised decimal text
    QString functionCode; ///< group mask as a decimal number text, -32768 to 32767 as this program writes it
    QString rangeCheck; ///< "0" or "1"
    qint16 rangeCount = 0;
    QList<SettingRange> ranges;
    QList<PrCondition> conditions;

    bool operator==(const PrRecord &) const = default;
};

Q_DECLARE_TYPEINFO(SettingRange, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(PrCondition, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(PrRecord, Q_RELOCATABLE_TYPE);
