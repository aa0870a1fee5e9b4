// From the start of a process to its first painted frame: Tabrix beside a bare multiple-document window of Qt with one
// empty table. Parent mode starts both in turn; child mode shows one window and ends once it is painted.

#include "app/MDIfrmTabrix.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 21; // odd, so that the median is a run

/// Ends the program behind the first paint of the area in which the windows stand.
class QuitAfterPaint : public QObject
{
public:
    explicit QuitAfterPaint(QWidget &window) : QObject(&window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, qApp, &QApplication::quit);
        }
        return QObject::eventFilter(watched, event);
    }
};

int showBare()
{
    QMainWindow window;
    auto *area = new QMdiArea;
    area->addSubWindow(new QTableView);
    window.setCentralWidget(area);
    new QuitAfterPaint(*area->viewport()); // the window owns it
    window.showMaximized();
    return QApplication::exec();
}

int showTabrix()
{
    MDIfrmTabrix frame;
    new QuitAfterPaint(*frame.findChild<QMdiArea *>()->viewport()); // the window owns it
    frame.load({});
    frame.show();
    return QApplication::exec();
}

double milliseconds(const QString &child)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QApplication::applicationFilePath(), {child});
    process.waitForFinished();
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(QList<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

int compare()
{
    QList<double> tabrix;
    QList<double> bare;
    for (int run = 0; run <= runs; ++run) {
        const double first = milliseconds(u"tabrix"_s);
        const double second = milliseconds(u"bare"_s);
        if (run > 0) { // the first warms the caches
            tabrix << first;
            bare << second;
        }
    }
    std::printf("start to first painted frame, median of %d: Tabrix %.1f ms, bare window %.1f ms, ratio %.2f\n", runs,
        median(tabrix), median(bare), median(tabrix) / median(bare));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString mode = QApplication::arguments().value(1);
    if (mode == "bare"_L1) {
        return showBare();
    }
    if (mode == "tabrix"_L1) {
        return showTabrix();
    }
    const QTemporaryDir home; // empty settings, and the user's own stay as they are
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    return compare();
}
