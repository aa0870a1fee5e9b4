#pragma once

#include <QtGlobal>

/// Shows the busy cursor for as long as this object lives.
class BusyCursor
{
public:
    BusyCursor();
    ~BusyCursor();
    Q_DISABLE_COPY_MOVE(BusyCursor)
};
