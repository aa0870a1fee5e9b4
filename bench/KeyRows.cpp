// From a key's press to the painted cell, under a real X server: an Xvfb of its own, for which this program starts
// itself.

#include "bench/Desk.h"
#include "bench/PlainView.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int presses = 200;
constexpr const char *keyNames[] = {"typing into a cell", "moving by an arrow", "Page Down"};

/// Sees whether a view or its editor was painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &view) : m_view(view) { qApp->installEventFilter(this); }
    bool hasPainted() const { return m_hasPainted; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *widget = event->type() == QEvent::Paint ? qobject_cast<QWidget *>(watched) : nullptr;
        m_hasPainted |= widget != nullptr && m_view.isAncestorOf(widget);
        return false;
    }

private:
    QWidget &m_view;
    bool m_hasPainted = false;
};

/// The milliseconds until the key's effects are painted and with the X server.
double press(QWidget &view, int key, const QString &text)
{
    constexpr int patience = 1000;
    const PaintWatch watch(view);
    QElapsedTimer timer;
    timer.start();
    QWidget *target = view.focusWidget() != nullptr ? view.focusWidget() : &view;
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &up);
    QApplication::sendPostedEvents();
    while (!watch.hasPainted() && timer.elapsed() < patience) {
        QApplication::processEvents();
    }
    QApplication::sync();
    return double(timer.nsecsElapsed()) / 1e6;
}

/// For each of keyNames one line: the median and the 99th percentile.
void printTimes(QAbstractItemView &view)
{
    view.setFocus();
    for (const Qt::Key key : {Qt::Key_5, Qt::Key_Down, Qt::Key_PageDown}) {
        const bool isTyped = key == Qt::Key_5;
        view.setCurrentIndex(view.model()->index(0, 1));
        QApplication::processEvents();
        std::vector<double> times;
        for (int i = 0; i < presses; ++i) {
            times.push_back(press(view, key, isTyped ? u"5"_s : QString()));
            QApplication::processEvents();
        }
        if (isTyped) {
            press(view, Qt::Key_Return, {});
        }
        std::ranges::sort(times);
        std::printf("%f %f\n", times[presses / 2], times[presses * 99 / 100]);
    }
}

} // namespace

int printKeyTimes()
{
    Desk desk(maxRows);
    desk.grid().selectBlock({1, 1, 1, 1});
    printTimes(desk.grid());
    PlainView view(desk.plainRows());
    view.resize(desk.grid().window()->size());
    view.show();
    view.activateWindow();
    QApplication::processEvents();
    printTimes(view);
    return 0;
}

void addKeyRows(SpeedTable &table)
{
    const QString xvfb = QStandardPaths::findExecutable(u"xvfb-run"_s);
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(xvfb, {u"-a"_s, u"env"_s, u"QT_QPA_PLATFORM=xcb"_s, QApplication::applicationFilePath(), u"keys"_s});
    process.waitForFinished(-1);
    const QList<QByteArray> figures = process.readAllStandardOutput().simplified().split(' ');
    constexpr int kinds = std::size(keyNames);
    if (figures.size() != 4 * kinds) {
        table.addSkipped("key press to painted cell", "no X server");
        return;
    }
    for (int kind = 0; kind < kinds; ++kind) {
        const auto figure = [&](int of, int which) { return figures[2 * (of * kinds + kind) + which].toDouble(); };
        const std::string name = std::string("key press to painted cell, ") + keyNames[kind];
        table.add(name, "a plain QTableView", "ms", {figure(0, 0), figure(1, 0)}, 1.2);
        table.addLimit(name + ", 99th percentile", "ms", figure(0, 1), 8);
    }
}
