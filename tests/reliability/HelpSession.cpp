#include "tests/reliability/HelpSession.h"

#include "app/MDIfrmTabrix.h"
#include "app/services/Language.h"
#include "tests/support/Controls.h"
#include "tests/support/UserPlaces.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

int openHelpAndQuit(int delay)
{
    const QTemporaryDir home;
    UserPlaces::setConfigHome(home.path());
    char name[] = "tabrix";
    char *arguments[] = {name, nullptr};
    int count = 1;
    QApplication application(count, arguments);
    setProgramFolder(QStringLiteral(TABRIX_HELP_FOLDER));
    MDIfrmTabrix frame;
    frame.load({});
    frame.show();
    QTimer::singleShot(0, &frame, [&] {
        control<QAction>(frame, u"mneHelpItem"_s).trigger();
        QTimer::singleShot(delay, &frame, &QWidget::close);
    });
    return QApplication::exec();
}
