#include "app/FileReceiver.h"
#include "app/HandOver.h"
#include "app/MDIfrmTabrix.h"
#include "desktop/Picture.h"
#include "runtime/CommandLine.h"

#include <QApplication>

#include <cstdlib>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    const int typed = argc;
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    QApplication::setDesktopFileName(u"tabrix"_s);
    QApplication::setWindowIcon(Picture::programIcon());
    const QString file = commandLineText(argc, argv);
    const bool hasToolkitOptions = argc != typed; // no other program was asked to look like this one
    HandOver handOver(hasToolkitOptions ? QByteArray() : meetingName());
    if (handOver.give(file)) {
        return EXIT_SUCCESS;
    }
    MDIfrmTabrix frame;
    const FileReceiver receiver(handOver, frame);
    frame.load(file);
    frame.show();
    return QApplication::exec();
}
