// One of the programs of the long day: the real frame, with the test at the mouse and the keyboard.

#include "app/MDIfrmTabrix.h"
#include "runtime/AnsiText.h"
#include "runtime/Country.h"
#include "tests/longday/DayBoxes.h"
#include "tests/longday/DayHands.h"
#include "tests/longday/DayLine.h"
#include "tests/longday/DayState.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Waits until the window manager has given the focus to the frame, unless it is minimised. False when it has given it
/// to somebody else, as may happen after a dialog over a dialog.
bool isSettled(MDIfrmTabrix &frame, bool inBackground)
{
    constexpr int patience = 1000; // ms
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    return inBackground || frame.isMinimized()
        || QTest::qWaitFor([&frame] { return !frame.isVisible() || frame.isActiveWindow(); }, patience);
}

void carryOut(MDIfrmTabrix &frame, const QJsonObject &command)
{
    QJsonObject news;
    try {
        if (!DayHands(frame).carryOut(command)) {
            news[u"failure"_s] = u"cannot be done"_s;
        }
        news[u"inBackground"_s] = !isSettled(frame, command[u"inBackground"_s].toBool());
        if (frame.isVisible()) {
            news[u"state"_s] = dayState(frame);
        }
    } catch (const std::exception &failure) {
        news[u"failure"_s] = QString::fromUtf8(failure.what());
    }
    DayLine::say(news);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Tabrix"_s);
    setCountryCode(1);
    setAnsiCodePageNumber(1252);
    MDIfrmTabrix frame;
    frame.recovery().setInterval(24h); // the test says when
    frame.load({});
    frame.show();
    DayLine line;
    const DayBoxes boxes(line);
    QObject::connect(&line, &DayLine::commanded, &frame, [&frame](const QJsonObject &command) {
        // From the event loop, so that windows that an act opens are not inside the reading of the line.
        QTimer::singleShot(0, &frame, [&frame, command] { carryOut(frame, command); });
    });
    DayLine::say({{u"window"_s, QString::number(frame.winId())}});
    return QApplication::exec();
}
