#include "tests/support/WidgetTestRun.h"

#include "tests/support/Patience.h"
#include "tests/support/UserPlaces.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

/// Closes a window that waits for an answer and gets none: its test fails with the window's words, and does not hang.
class UnansweredWindows
{
public:
    UnansweredWindows()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(1s);
    }

private:
    void look()
    {
        QWidget *window = QApplication::activeModalWidget();
        if (window != m_window) {
            m_window = window;
            m_since.start();
        } else if (window && m_since.hasExpired(patience)) {
            const auto *box = qobject_cast<QMessageBox *>(window);
            ADD_FAILURE() << "nobody answers " << window->metaObject()->className() << ": "
                          << (box ? box->text() : window->windowTitle()).toStdString();
            m_since.start();
            window->close();
        }
    }

    QTimer m_timer;
    QPointer<QWidget> m_window;
    QElapsedTimer m_since; ///< it was first seen
};

} // namespace

int runWidgetTests(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    UserPlaces::setDataHome(home.filePath(QStringLiteral("data")));
    UserPlaces::setConfigHome(home.filePath(QStringLiteral("config")));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tabrix"));
    const UnansweredWindows unanswered;
    return RUN_ALL_TESTS();
}
