#include "app/MDIfrmTabrix.h"

#include <QApplication>
#include <QIcon>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    QApplication::setWindowIcon(QIcon(u":/pictures/tabrix.svg"_s));
    MDIfrmTabrix frame;
    frame.load(QApplication::arguments().mid(1).join(u' '));
    frame.show();
    return QApplication::exec();
}
