#include "app/MDIfrmTabrix.h"
#include "platform/Picture.h"

#include <QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    // Qt would hand lines of a hundred pixels to a pool of threads; starting and waking them costs a frame more than it
    // saves.
    qputenv("QT_NO_GUI_THREADPOOL", "1");
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    QApplication::setDesktopFileName(u"tabrix"_s);
    QApplication::setWindowIcon(Picture::programIcon());
    MDIfrmTabrix frame;
    frame.load(QApplication::arguments().mid(1).join(u' '));
    frame.show();
    return QApplication::exec();
}
