// Random use from a seed, with everything closed again after every stretch. TABRIX_SOAK_STEPS says how many steps are
// measured, TABRIX_SOAK_SEED which.

#include "app/services/Settings.h"
#include "desktop/InputHold.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/app/LongUse.h"
#include "tests/support/MemoryInUse.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int warmUp = 8'000;
constexpr int defaultSteps = 12'000;

class Soak : public LongUse
{
protected:
    using Step = void (Soak::*)();

    void SetUp() override
    {
        LongUse::SetUp();
        putFiles();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void putFiles();
    void stretch();
    void step();

    void openFile();
    void closeWindow();
    void changeWindow();
    void selectSome();
    void typeText();
    void pressKeys();
    void runShortcut();
    void clickButton();
    void clickGrid();
    void turnWheel();
    void chooseCommand();
    void jump();
    void find();
    void resizeFrame();
    void takeForeignText();

    QStringList m_files;
    const QStringList m_saved{path(u"saved-1.inv"_s), path(u"saved-2.inv"_s), path(u"saved-3.inv"_s)};
    int m_steps = 0;
    int m_refused = 0; ///< opens that failed
};

/// To what has the focus, as from the keyboard.
void Soak::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *focus = QApplication::activePopupWidget();
    focus = focus ? focus : QApplication::focusWidget();
    QTest::keyClick(focus ? focus : &frame(), key, modifiers);
    settle();
}

void Soak::openFile()
{
    constexpr int maxWindows = 5;
    if (frame().openEditors().size() < maxWindows) {
        m_refused += frame().documents().OpenPrFile(oneOf(m_files)) ? 0 : 1;
    }
}

void Soak::closeWindow()
{
    const auto editors = frame().openEditors();
    if (!editors.isEmpty()) {
        oneOf(editors)->parentWidget()->close();
    }
}

void Soak::changeWindow()
{
    const auto editors = frame().openEditors();
    if (!editors.isEmpty()) {
        frame().makeActive(*oneOf(editors));
    }
}

void Soak::selectSome()
{
    const int rows = grid().rowCount();
    const int row = upTo(1, std::max(rows, 1));
    const int column = upTo(1, 13);
    const int last = std::min(rows, row + upTo(0, 6));
    grid().setFocus();
    if (upTo(0, 2) == 0) {
        grid().selectBlock({-1, row, 13, last});
    } else if (upTo(0, 1) == 0) {
        grid().selectBlock({column, row, std::min(13, column + upTo(0, 3)), last});
    } else {
        grid().setActiveCell(column, row);
    }
}

void Soak::typeText()
{
    static const QString texts[] = {u"79"_s, u"160=1-3,OP/A1"_s, u"0-400,9999"_s, u"Name"_s, u"1.5"_s, u"FFFF"_s};
    grid().setFocus();
    key(Qt::Key_F2);
    for (const QChar character : oneOf(texts)) {
        key(Qt::Key(character.toUpper().unicode()));
    }
    static constexpr Qt::Key ends[] = {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Down};
    key(oneOf(ends));
}

void Soak::pressKeys()
{
    static constexpr Qt::Key keys[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageDown,
        Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_Delete, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Return,
        Qt::Key_Tab, Qt::Key_F2, Qt::Key_5, Qt::Key_A, Qt::Key_Backspace, Qt::Key_F1};
    static constexpr Qt::KeyboardModifier modifiers[] = {
        Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
    for (int i = upTo(1, 5); i > 0; --i) {
        key(oneOf(keys), oneOf(modifiers));
    }
}

void Soak::runShortcut()
{
    static constexpr Qt::Key keys[] = {Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Z, Qt::Key_Y, Qt::Key_S,
        Qt::Key_A, Qt::Key_O, Qt::Key_F, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0};
    key(oneOf(keys), Qt::ControlModifier);
}

void Soak::clickButton()
{
    constexpr int maxRows = 2000;
    const int button = upTo(0, 7);
    if (button < 3 || button > 4 || frame().openEditors().isEmpty() || grid().rowCount() < maxRows) {
        clickTool(u"ssrbnEdit(%1)"_s.arg(button));
    }
}

void Soak::clickGrid()
{
    QWidget &view = *grid().viewport();
    const QPoint place(upTo(0, view.width()), upTo(0, view.height()));
    upTo(0, 2) == 0 ? QTest::mouseDClick(&view, Qt::LeftButton, {}, place)
                    : QTest::mouseClick(&view, Qt::LeftButton, {}, place);
}

void Soak::turnWheel()
{
    QWidget &view = *grid().viewport();
    QWheelEvent event(QPointF(9, 9), view.mapToGlobal(QPointF(9, 9)), {}, QPoint(0, upTo(-5, 5) * 120), Qt::NoButton,
        oneOf(std::array{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier}), Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &event);
}

/// Any command of any menu but the one that ends the program.
void Soak::chooseCommand()
{
    const auto bar = frame().menuBar()->actions();
    QMenu *menu = bar.isEmpty() ? nullptr : oneOf(bar)->menu();
    if (!menu) {
        return;
    }
    QList<QAction *> commands = menu->actions();
    commands.removeIf([](const QAction *action) {
        return action->isSeparator() || !action->isVisible() || action->objectName() == u"mneFileExit"
            || action->menu();
    });
    if (!commands.isEmpty()) {
        chooseMenu(menu->objectName(), oneOf(commands)->objectName());
    }
}

void Soak::jump()
{
    auto &box = control<QLineEdit>(frame(), u"txtPr"_s);
    box.setFocus();
    box.setText(QString::number(upTo(0, 999)));
    QTest::keyClick(&box, Qt::Key_Return);
}

void Soak::find()
{
    key(Qt::Key_F, Qt::ControlModifier);
    key(Qt::Key_P);
    key(oneOf(std::array{Qt::Key_9, Qt::Key_A}));
    key(oneOf(std::array{Qt::Key_Return, Qt::Key_F3}));
    key(Qt::Key_Escape);
}

void Soak::resizeFrame()
{
    frame().setWindowState(upTo(0, 1) == 0 ? Qt::WindowMaximized : Qt::WindowNoState);
    frame().resize(upTo(300, 1500), upTo(200, 1000));
}

void Soak::takeForeignText()
{
    static const QString texts[] = {u"x\ty\r\nz"_s, u"40"_s, QString(), u"<b>x</b>\n\n"_s};
    QApplication::clipboard()->setText(oneOf(texts));
}

void Soak::step()
{
    static constexpr struct
    {
        Step run;
        int weight;
        bool needsDocument;
    } steps[] = {{&Soak::openFile, 3, false}, {&Soak::closeWindow, 2, false}, {&Soak::changeWindow, 3, false},
        {&Soak::selectSome, 10, true}, {&Soak::typeText, 8, true}, {&Soak::pressKeys, 8, false},
        {&Soak::runShortcut, 10, false}, {&Soak::clickButton, 8, false}, {&Soak::clickGrid, 5, true},
        {&Soak::turnWheel, 3, true}, {&Soak::chooseCommand, 6, false}, {&Soak::jump, 2, false}, {&Soak::find, 2, false},
        {&Soak::resizeFrame, 1, false}, {&Soak::takeForeignText, 1, false}};
    int drawn = upTo(0, 71);
    const auto *chosen = std::begin(steps);
    while (drawn >= chosen->weight) {
        drawn -= chosen++->weight;
    }
    m_answers.setFile(oneOf(m_saved));
    if (!chosen->needsDocument || frame().activeEditor()) {
        (this->*chosen->run)();
        ++m_steps;
    }
    settle();
}

/// What the last stretch saved is gone: a text with a comma in it makes a file that cannot be read back, and a run is
/// not to become one of failures.
void Soak::putFiles()
{
    m_files = {path(u"missing.inv"_s)};
    for (const auto &[name, bytes] : {std::pair(u"small.inv"_s, document(3)), std::pair(u"usual.inv"_s, document(120)),
             std::pair(u"long.inv"_s, document(900)), std::pair(u"broken.inv"_s, document(9).chopped(30))}) {
        m_files << writeFile(name, bytes);
    }
    for (const QString &file : m_saved) {
        QFile::remove(file);
    }
}

/// So much of a day that everything has happened once, then everything is closed.
void Soak::stretch()
{
    constexpr int steps = 250;
    constexpr int stepsBetweenCopies = 50;
    for (int i = 0; i < steps && !HasFatalFailure(); ++i) {
        step();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(InputHold::isHeld());
        if (i % stepsBetweenCopies == 0) {
            frame().recovery().refresh();
        }
    }
    closeAll();
    putFiles();
    forgetLastUse();
}

/// A line through the least values of every so many stretches tells what each step leaks. What has been used
/// once (a size of letters, a dialog) stays in Qt's caches: the line begins when everything was used.
TEST_F(Soak, leavesNoMemoryAndNoComplaintBehind)
{
    constexpr int group = 4; // stretches
    constexpr double maxBytesPerStep = 3;
    constexpr double noise = 500'000; // bytes: letters of a size come and go in Qt's caches by the clock
    const int steps = warmUp + fromEnvironment("TABRIX_SOAK_STEPS", defaultSteps);
    const Complaints complaints;
    QList<qint64> used;
    int first = 0;
    for (int stretches = 0; !HasFailure() && m_steps < steps; ++stretches) {
        SCOPED_TRACE(testing::Message() << "stretch " << stretches);
        stretch();
        if (m_steps < warmUp) {
            first = m_steps;
        } else {
            used << bytesInUse();
        }
        EXPECT_EQ(Complaints::list(), QStringList());
    }
    const double measured = m_steps - first;
    const double left = growthPerEntry(leastOfEvery(group, used)) / group * double(used.size()) / measured;
    std::printf("%d steps, %d answers, %d documents refused; %.2f bytes left by each step, %lld KB in use\n", m_steps,
        m_answers.given(), m_refused, left, used.isEmpty() ? 0 : used.last() / 1000);
    EXPECT_LT(left, maxBytesPerStep + noise / measured);
}

} // namespace
