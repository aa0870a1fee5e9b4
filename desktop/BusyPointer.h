#pragma once

#include <QtGlobal>

/// The hourglass pointer, for as long as this object lives.
class BusyPointer
{
public:
    BusyPointer();
    ~BusyPointer();
    Q_DISABLE_COPY_MOVE(BusyPointer)
};
