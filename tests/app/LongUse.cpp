#include "tests/app/LongUse.h"

#include "editor/frmPrFile.h"

#include <QApplication>
#include <QClipboard>
#include <QPixmapCache>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int fromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

Complaints::Complaints() : m_former(qInstallMessageHandler(&Complaints::take))
{
    list().clear();
}

Complaints::~Complaints()
{
    qInstallMessageHandler(m_former);
}

QStringList &Complaints::list()
{
    static QStringList theList;
    return theList;
}

void Complaints::take(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith("This plugin does not support"_L1)) {
        list() << text;
    }
}

void LongUse::SetUp()
{
    // Emptied by the clock; and emptying it at will leaves the names of its pictures behind for good.
    QPixmapCache::setCacheLimit(0);
    m_small = writeFile(u"small.inv"_s, document(3));
    start();
    frame().recovery().setInterval(24h);
}

void LongUse::settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void LongUse::closeAll()
{
    m_answers.giveUpChanges();
    while (QWidget *popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    for (const frmPrFile *editor : frame().openEditors()) {
        EXPECT_TRUE(editor->parentWidget()->close());
    }
    settle();
    EXPECT_TRUE(frame().openEditors().isEmpty());
    m_answers.answerFreely();
}

void LongUse::forgetLastUse()
{
    EXPECT_TRUE(frame().documents().OpenPrFile(m_small));
    closeAll();
    QApplication::clipboard()->setText(u""_s);
    frame().setWindowState(Qt::WindowNoState);
    frame().resize(900, 600);
    settle();
}
