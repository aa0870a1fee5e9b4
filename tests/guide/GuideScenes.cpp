#include "tests/guide/GuideScenes.h"

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/Picture.h"
#include "editor/FindField.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "help/HelpWindow.h"
#include "runtime/AnsiText.h"
#include "runtime/Country.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr float fontSize = 9;
constexpr QSize frameSize(630, 400);
constexpr QSize helpSize(630, 380);

} // namespace

const QList<GuideScenes::Scene> &GuideScenes::scenes()
{
    static const QList<Scene> all{
        {"frame", "window-frame", &GuideScenes::openFrame},
        {"grid", "window-grid", &GuideScenes::openGrid},
        {"machine", "window-machine", &GuideScenes::openDialog<openKisyuEdit>},
        {"machine", "window-capacity", &GuideScenes::openDialog<openCap>},
        {"funccode", "window-funccode", &GuideScenes::openDialog<openFunc>},
        {"conditions", "window-conditions", &GuideScenes::openDialog<openPrCond>},
        {"print", "window-print", &GuideScenes::openPrinting},
        {"view", "window-columns", &GuideScenes::openDialog<openVisibleColumns>},
        {"about", "window-about", &GuideScenes::openAbout},
        {"index", "window-help", &GuideScenes::openHelp},
    };
    return all;
}

GuideScenes::GuideScenes() : m_formerPalette(QApplication::palette())
{
    QApplication::setPalette(lightPalette());
    QApplication::setWindowIcon(Picture::programIcon());
    setCountryCode(isJapanese() ? 81 : 1);
    setAnsiCodePageNumber(isJapanese() ? 932 : 1252);
}

GuideScenes::~GuideScenes()
{
    QApplication::setPalette(m_formerPalette);
    QApplication::setWindowIcon({});
    HelpWindow::setFont(QApplication::font());
}

void GuideScenes::openEditor()
{
    SaveUserFont(u"DejaVu Sans"_s, fontSize, false, false);
    start(writeFile(u"xt200.inv"_s, document(12)));
    auto &area = control<QMdiArea>(frame(), {});
    area.subWindowList().constFirst()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frame().setWindowState(Qt::WindowNoState);
    frame().resize(frameSize);
    editor().parentWidget()->setGeometry(8, 8, frameSize.width() - 24, area.height() - 16);
    editor().document().setPath(u"/home/user/xt200.inv"_s);
    const QString names[] = {u"Torque boost"_s, u"Maximum frequency"_s, u"Minimum frequency"_s, u"Base frequency"_s,
        u"Multi-speed setting, high speed range"_s};
    for (int row = 1; row <= 5; ++row) {
        grid().setText(ParameterColumn::Name, row, names[row - 1]);
    }
    grid().setTextColour({ParameterColumn::Name, 2, ParameterColumn::Name, 2}, QColor(changedCellColour));
    grid().setActiveCell(ParameterColumn::Name, 3);
    grid().setFocus();
    QApplication::processEvents();
}

void GuideScenes::openFrame(const Look &look)
{
    openEditor();
    look(frame());
}

void GuideScenes::openGrid(const Look &look)
{
    openEditor();
    pressKey(grid(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&control<FindField>(editor(), u"txtFind"_s), u"frequency"_s);
    QApplication::processEvents();
    look(editor());
}

void GuideScenes::openHelp(const Look &look)
{
    const QString file = isJapanese() ? u"/TABRIX.HLP"_s : u"/TABRIXE.HLP"_s;
    ASSERT_TRUE(HelpWindow::showTopic(QStringLiteral(TABRIX_HELP_FOLDER) + file, 1, nullptr));
    const auto windows = QApplication::topLevelWidgets();
    const auto isHelp = [](const QWidget *window) { return window->objectName() == u"helpWindow"; };
    QWidget &window = **std::ranges::find_if(windows, isHelp);
    window.resize(helpSize);
    auto &contents = control<QAbstractItemView>(window, u"helpContents"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents.currentIndex().isValid(); }, patience));
    QApplication::processEvents();
    look(window);
    delete &window;
}

template <auto open>
void GuideScenes::openDialog(const Look &look)
{
    isJapanese() ? useJapanese() : useEnglish();
    UserFont.FontSize = fontSize;
    open([&look](QDialog &dialog) {
        look(dialog);
        dialog.reject();
    });
}

// The picture is not to depend on the machine: neither on its memory nor on its printers.
void GuideScenes::openAbout(const Look &look)
{
    openDialog<openVersion>([&look](QWidget &box) {
        control<QLabel>(box, u"lblName"_s).setText(u"A. Smith\nWorks"_s);
        control<QLabel>(box, u"lblMemory"_s).setText(ResString(Text::AboutMemory) + u"65536KB"_s);
        look(box);
    });
}

void GuideScenes::openPrinting(const Look &look)
{
    openDialog<openPrint>([&look](QWidget &dialog) {
        control<QLabel>(dialog, u"lblPrinter"_s).setText(u"Office"_s);
        look(dialog);
    });
}
