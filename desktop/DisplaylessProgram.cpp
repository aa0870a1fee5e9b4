#include "desktop/DisplaylessProgram.h"

#include <QByteArray>

void needNoDisplay()
{
#ifndef Q_OS_WIN // where the platform for windows works without any, and no other knows the installed fonts
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}
