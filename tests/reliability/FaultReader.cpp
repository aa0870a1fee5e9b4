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
    const QString text = box ? box->text() : QString::fromLatin1(window->metaObject()->className());
    if (!text.contains("Save?"_L1)) { // which is no news
        addLine(m_report.isDone ? m_report.laterMessages : m_report.messages, text);
    }
    if (!box || !answer(*box)) {
        QTest::keyClick(window, box ? Qt::Key_Return : Qt::Key_Escape);
    }
}

/// Whether the box was a question that this user has a mind about.
bool FaultReader::answer(const QMessageBox &box)
{
    QAbstractButton *button = nullptr;
    if (box.text().contains("Save?"_L1)) {
        button = box.button(m_toSave);
    } else if (box.text().contains("Replace it?"_L1)) {
        button = box.button(QMessageBox::Yes); // he knows what his file is
    }
    if (button) {
        button->click();
    }
    return button;
}
