#include "tests/app/RandomAnswers.h"

#include "tests/support/Controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

RandomAnswers::RandomAnswers(std::mt19937 &random) : m_random(random)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { poll(); });
    m_timer.start(1);
}

int RandomAnswers::upTo(int most)
{
    return std::uniform_int_distribution(0, most)(m_random);
}

/// A dialog that is being answered may open another one, whose answer comes first.
void RandomAnswers::poll()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (dialog && dialog != m_answered) {
        m_answered = dialog;
        QMetaObject::invokeMethod(
            dialog, [this, dialog] { answerNow(*dialog); }, Qt::QueuedConnection);
    }
}

void RandomAnswers::answerNow(QDialog &dialog)
{
    constexpr int maxTries = 5;
    const QPointer<QDialog> alive(&dialog);
    const int tries = dialog.property("tries").toInt();
    dialog.setProperty("tries", tries + 1);
    ++m_given;
    tries < maxTries ? answer(dialog) : dialog.reject();
    if (alive && !alive->isVisible()) {
        alive->setProperty("tries", 0);
    }
    m_answered = nullptr;
}

void RandomAnswers::answerMessage(QMessageBox &box)
{
    const QList<QAbstractButton *> buttons = box.buttons();
    const auto no = std::ranges::find(buttons, u"&No"_s, &QAbstractButton::text);
    const bool refuses = m_givesUp && no != buttons.end();
    QTest::mouseClick(refuses ? *no : buttons[upTo(int(buttons.size()) - 1)], Qt::LeftButton);
}

namespace {

/// Paper is not to be spent, and every new font stays in Qt's memory for good.
bool isLeftAtOnce(const QDialog &dialog)
{
    const QLatin1StringView kind(dialog.metaObject()->className());
    return kind.contains("Print"_L1) || kind == "QFontDialog"_L1 || kind == "QFileDialog"_L1;
}

} // namespace

void RandomAnswers::answer(QDialog &dialog)
{
    if (auto *box = qobject_cast<QMessageBox *>(&dialog)) {
        answerMessage(*box);
    } else if (qobject_cast<QFileDialog *>(&dialog) && !m_givesUp && upTo(2) > 0) {
        auto &name = control<QLineEdit>(dialog, u"fileNameEdit"_s);
        name.setText(m_fileName);
        QTest::keyClick(&name, Qt::Key_Return);
    } else if (m_givesUp || isLeftAtOnce(dialog)) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
    } else {
        fumble();
        QTest::keyClick(&dialog, upTo(1) == 0 ? Qt::Key_Return : Qt::Key_Escape);
    }
}

/// A few keys for whatever has the focus.
void RandomAnswers::fumble()
{
    static constexpr Qt::Key keys[] = {Qt::Key_Tab, Qt::Key_Space, Qt::Key_1, Qt::Key_7, Qt::Key_Down, Qt::Key_Backtab};
    for (int i = upTo(8); i > 0; --i) {
        if (QWidget *focus = QApplication::focusWidget()) {
            QTest::keyClick(focus, keys[upTo(int(std::size(keys)) - 1)]);
        }
    }
}
