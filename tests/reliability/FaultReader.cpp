#include "tests/reliability/FaultReader.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <cstring>

using namespace Qt::StringLiterals;

void addLine(std::array<char, SessionReport::longestText> &text, const QString &line)
{
    const QByteArray bytes = QString(line).replace(u'\n', u' ').toUtf8() + '\n';
    const std::size_t length = std::strlen(text.data());
    if (length + std::size_t(bytes.size()) < text.size()) {
        std::memcpy(text.data() + length, bytes.constData(), std::size_t(bytes.size()) + 1);
    }
}

FaultReader::FaultReader(SessionReport &report) : m_report(report)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(1);
}

void FaultReader::look()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window || window == m_last) {
        return;
    }
    m_last = window;
    const auto *box = qobject_cast<QMessageBox *>(window);
    if (box && answer(*box)) {
        return;
    }
    const QString text = box ? box->text() : QString::fromLatin1(window->metaObject()->className());
    addLine(m_report.isDone ? m_report.laterMessages : m_report.messages, text);
    QTest::keyClick(window, box ? Qt::Key_Return : Qt::Key_Escape);
}

/// Whether the box is the question whether to save, which is no news.
bool FaultReader::answer(const QMessageBox &box)
{
    QAbstractButton *button = box.text().contains("Save?"_L1) ? box.button(m_toSave) : nullptr;
    if (button) {
        button->click();
    }
    return button;
}
