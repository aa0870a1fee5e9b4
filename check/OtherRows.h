#pragma once

#include "check/SettingIntervals.h"

#include <QString>

/// What the check of a row has to know of the other rows. Rows count from 0.
class OtherRows
{
public:
    virtual ~OtherRows() = default;

    /// The first row of that parameter; -1 without one. "079" and "79" are the same number.
    virtual int rowOf(const QString &number) const = 0;
    /// The first row with that help ID; -1 without one.
    virtual int rowOfHelp(const QString &helpId) const = 0;
    virtual QString number(int row) const = 0;
    virtual QString name(int row) const = 0;
    /// What the row's ranges permit.
    virtual QList<SettingInterval> intervals(int row) const = 0;
};
