#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <iosfwd>

// gtest finds these by argument look-up and prints readable values in its failures.
void PrintTo(const PrRecord &record, std::ostream *out);
void PrintTo(const PrCondition &condition, std::ostream *out);
void PrintTo(const SettingRange &range, std::ostream *out);

/// Whether two files are the same; a failure names the first byte that differs and shows what surrounds it.
testing::AssertionResult sameBytes(const QByteArray &found, const QByteArray &expected);
