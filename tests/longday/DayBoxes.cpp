#include "tests/longday/DayBoxes.h"

#include "tests/support/Controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QJsonArray>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString buttonName(const QMessageBox &box, const QAbstractButton *button)
{
    switch (box.standardButton(const_cast<QAbstractButton *>(button))) {
    case QMessageBox::Yes:
        return u"Yes"_s;
    case QMessageBox::No:
        return u"No"_s;
    case QMessageBox::Cancel:
        return u"Cancel"_s;
    default:
        return u"OK"_s;
    }
}

QJsonObject described(const QWidget &window)
{
    QJsonObject news{{u"title"_s, window.windowTitle()}};
    if (const auto *box = qobject_cast<const QMessageBox *>(&window)) {
        QJsonArray buttons;
        for (const QAbstractButton *button : box->buttons()) {
            buttons << buttonName(*box, button);
        }
        QString text = box->text();
        news[u"kind"_s] = u"message"_s;
        news[u"text"_s] = text.remove(QChar(0x200b)); // only where a long name may be broken
        news[u"buttons"_s] = buttons;
        news[u"icon"_s] = int(box->icon());
        news[u"default"_s] = box->defaultButton() ? buttonName(*box, box->defaultButton()) : QString();
    } else {
        const bool isFile = qobject_cast<const QFileDialog *>(&window) != nullptr;
        news[u"kind"_s] = isFile ? u"file"_s : QString::fromLatin1(window.metaObject()->className());
    }
    return news;
}

} // namespace

DayBoxes::DayBoxes(DayLine &line) : QObject(&line), m_line(line)
{
    connect(&m_timer, &QTimer::timeout, this, &DayBoxes::poll);
    m_timer.start(1);
}

void DayBoxes::poll()
{
    QPointer<QWidget> window = QApplication::activeModalWidget();
    if (!window || !window->isVisible() || m_seen.contains(window) || !isReady(*window)) {
        return;
    }
    m_seen << window;
    if (const auto *dialog = qobject_cast<const QDialog *>(window.data())) { // it may appear again
        connect(dialog, &QDialog::finished, this, [this, window] { m_seen.removeAll(window); });
    }
    m_line.nextIsFor([this, window](const QJsonObject &said) {
        if (window) {
            answer(*window, said[u"answer"_s].toString());
        }
    });
    DayLine::say({{u"box"_s, described(*window)}});
}

/// A user answers what has got the focus; only then the frame has lost it for certain. A window manager may keep it
/// from one that was not asked for; then the user clicks.
bool DayBoxes::isReady(const QWidget &window)
{
    constexpr int polls = 1000;
    m_polls = &window == m_waitsFor ? m_polls + 1 : 0;
    m_waitsFor = &window;
    return window.isActiveWindow() || m_polls > polls;
}

void DayBoxes::answer(QWidget &window, const QString &answer)
{
    if (answer == u"Escape") {
        QTest::keyClick(&window, Qt::Key_Escape);
        return;
    }
    if (const auto *box = qobject_cast<QMessageBox *>(&window)) {
        for (QAbstractButton *button : box->buttons()) {
            if (buttonName(*box, button) == answer) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        return;
    }
    auto &name = control<QLineEdit>(window, u"fileNameEdit"_s);
    name.setText(answer);
    // Later, because the dialog may ask a question first
    QTimer::singleShot(0, &name, [&name] { QTest::keyClick(&name, Qt::Key_Return); });
}
