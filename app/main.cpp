#include "app/MDIfrmTabrix.h"
#include "desktop/Picture.h"
#include "runtime/CommandLine.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    QApplication::setDesktopFileName(u"tabrix"_s);
    QApplication::setWindowIcon(Picture::programIcon());
    MDIfrmTabrix frame;
    frame.load(commandLineText(argc, argv));
    frame.show();
    return QApplication::exec();
}
