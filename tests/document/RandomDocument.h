#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"

#include <random>

/// Documents that a save can produce, made from a seed.
class RandomDocument
{
public:
    RandomDocument(quint32 seed, bool japanese) : m_random(seed), m_japanese(japanese) { }

    MachineInfo machineInfo();
    QList<PrRecord> records(int largest);

    /// 0 to last.
    int number(int last);
    /// A text of up to longest characters of alphabet.
    QString textOf(QStringView alphabet, int longest);

private:
    bool chance(int percent) { return number(99) < percent; }
    QString text(int typicalLength);
    QString numberText();
    QString factorySetting();
    QString numeric();
    QString increment(bool optional);
    float bound();
    SettingRange range();
    PrCondition condition();
    PrRecord record();
    QStringList texts(int count);

    std::mt19937 m_random;
    bool m_japanese;
};
