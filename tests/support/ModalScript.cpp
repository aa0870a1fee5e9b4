#include "tests/support/ModalScript.h"

#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

ModalScript::ModalScript()
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { poll(); });
    m_timer.start(1);
}

ModalScript::~ModalScript()
{
    EXPECT_TRUE(m_answers.isEmpty()) << m_answers.size() << " expected windows did not appear";
}

ModalScript &ModalScript::then(Answer answer)
{
    m_answers << std::move(answer);
    return *this;
}

ModalScript &ModalScript::thenMessage(const QString &text, const QString &button)
{
    return then([text, button](QWidget &window) {
        const auto *box = qobject_cast<QMessageBox *>(&window);
        ASSERT_TRUE(box) << window.metaObject()->className() << " is no message box";
        EXPECT_EQ(box->text(), text);
        for (QAbstractButton *candidate : box->buttons()) {
            if (candidate->text() == button || candidate->objectName() == button) {
                QTest::mouseClick(candidate, Qt::LeftButton);
                return;
            }
        }
        FAIL() << "no button " << button.toStdString();
    });
}

ModalScript &ModalScript::thenFile(const QString &fileName)
{
    return then([fileName](QWidget &window) {
        ASSERT_TRUE(qobject_cast<QFileDialog *>(&window)) << window.metaObject()->className() << " is no file dialog";
        auto &box = control<QLineEdit>(window, u"fileNameEdit"_s);
        box.setText(fileName);
        // Later, because the dialog may ask a question first, which is this script's to answer too
        QTimer::singleShot(0, &box, [&box] { QTest::keyClick(&box, Qt::Key_Return); });
    });
}

ModalScript &ModalScript::thenEscape()
{
    return then([](QWidget &window) { QTest::keyClick(&window, Qt::Key_Escape); });
}

void ModalScript::poll()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window || m_seen.contains(window)) {
        return;
    }
    m_seen << window;
    if (auto *dialog = qobject_cast<QDialog *>(window)) { // it may appear again
        QObject::connect(dialog, &QDialog::finished, &m_timer, [this, window] { m_seen.removeAll(window); });
    }
    ++m_asked;
    if (m_answers.isEmpty()) {
        const auto *box = qobject_cast<QMessageBox *>(window);
        ADD_FAILURE() << "unexpected " << window->metaObject()->className() << ": "
                      << (box ? box->text() : window->windowTitle()).toStdString();
        window->close();
        return;
    }
    m_answers.takeFirst()(*window);
    if (testing::Test::HasFatalFailure() && window->isVisible()) {
        window->close();
    }
}
