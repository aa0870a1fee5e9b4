#include "tests/support/FrameTest.h"

#include "app/services/Language.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/Clipboard.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/AnsiText.h"
#include "runtime/Country.h"
#include "tests/support/Patience.h"
#include "tests/support/UserPlaces.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

FrameTest::FrameTest() : m_formerFolder(QDir::currentPath())
{
    resetDocumentTables();
    clipboardRecord() = {};
    QApplication::clipboard()->setText(u""_s);
    UserPlaces::settings().clear();
    setProgramFolder(m_folder.path());
    setCountryCode(1);
    setAnsiCodePageNumber(1252);
    QDir::setCurrent(m_folder.path());
}

FrameTest::~FrameTest()
{
    stop();
    setProgramFolder({});
    setCountryCode(0);
    setAnsiCodePageNumber(0);
    QDir::setCurrent(m_formerFolder);
}

void FrameTest::start(const QString &commandLine)
{
    stop();
    m_frame = std::make_unique<MDIfrmTabrix>();
    m_frame->load(commandLine);
    m_frame->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_frame.get(), patience));
    m_frame->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_frame.get(), patience));
}

void FrameTest::stop()
{
    for (DocFlag &flag : DocFlags) {
        flag.changed = false;
    }
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    resetDocumentTables();
}

SpreadGrid &FrameTest::grid()
{
    return editor().vaspdParam();
}

int FrameTest::docNo()
{
    return editor().document().number();
}

QString FrameTest::writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return path(name);
}

QByteArray FrameTest::readFile(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QByteArray FrameTest::document(int rows)
{
    QByteArray bytes = "[Inverter]\r\nName=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\n"
                       "Capacity0=0.4\r\nICapacity0=2.5\r\nOption0=xx\r\nSoftWareVersion=1.00\r\nParamater="
        + QByteArray::number(rows) + "\r\n[Paramater]\r\n";
    for (int row = 1; row <= rows; ++row) {
        const QByteArray number = QByteArray::number(row);
        bytes += "1," + number + ',' + QByteArray::number(1000 + row) + ",Parameter " + number + ",%,0.1,-1,-1,"
            + number + ",3,1,1,0,30,79,0,1\r\n";
    }
    return bytes;
}

QMenu &FrameTest::menuInBar(const QString &name)
{
    for (const QAction *action : m_frame->menuBar()->actions()) {
        if (action->menu() && action->menu()->objectName() == name) {
            return *action->menu();
        }
    }
    throw std::runtime_error("the menu bar has no menu " + name.toStdString());
}

QAction &FrameTest::menuCommand(const QString &menu, const QString &command)
{
    return control<QAction>(menuInBar(menu), command);
}

void FrameTest::chooseMenu(const QString &menuName, const QString &command)
{
    QMenu &menu = menuInBar(menuName);
    QMenuBar &bar = *m_frame->menuBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
    ASSERT_TRUE(menu.isVisible()) << menuName.toStdString();
    QAction &action = control<QAction>(menu, command);
    ASSERT_TRUE(action.isVisible()) << command.toStdString();
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action).center());
    if (QWidget *popup = QApplication::activePopupWidget()) { // a disabled command leaves the menu open
        popup->close();
    }
}

RibbonButton &FrameTest::toolButton(const QString &name)
{
    return control<RibbonButton>(*m_frame, name);
}

void FrameTest::clickTool(const QString &name)
{
    QTest::mouseClick(&toolButton(name), Qt::LeftButton);
}

void FrameTest::pressKey(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&widget, key, modifiers);
}

void FrameTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    pressKey(*QApplication::focusWidget(), key, modifiers);
}

void FrameTest::activateFrame()
{
    if (QApplication::activeWindow() != m_frame.get()) {
        m_frame->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == m_frame.get(); }, patience));
    }
}

void FrameTest::typeInto(int column, int row, const QString &text)
{
    activateFrame();
    grid().setActiveCell(column, row);
    grid().setFocus();
    pressKey(grid(), Qt::Key_F2);
    QWidget *cellEditor = QApplication::focusWidget();
    QTest::keyClick(cellEditor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(cellEditor, text);
    QTest::keyClick(cellEditor, Qt::Key_Return);
}
