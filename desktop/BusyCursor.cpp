#include "desktop/BusyCursor.h"

#include <QCursor>
#include <QGuiApplication>

BusyCursor::BusyCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyCursor::~BusyCursor()
{
    QGuiApplication::restoreOverrideCursor();
}
