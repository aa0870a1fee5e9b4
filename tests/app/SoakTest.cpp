// An hour's worth of random use in a minute: seeded, bounded in time, with everything closed again after every stretch.
// TABRIX_SOAK_SECONDS says how long, TABRIX_SOAK_SEED which hour.

#include "app/Settings.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "platform/InputHold.h"
#include "platform/RibbonButton.h"
#include "platform/SpreadGrid.h"
#include "tests/app/RandomAnswers.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPixmapCache>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdio>
#include <malloc.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// What Qt complains of while it lives. What the platform without a display cannot do is no complaint.
class Complaints
{
public:
    Complaints() : m_former(qInstallMessageHandler(&Complaints::take)) { list().clear(); }
    ~Complaints() { qInstallMessageHandler(m_former); }
    Q_DISABLE_COPY_MOVE(Complaints)

    static QStringList &list()
    {
        static QStringList theList;
        return theList;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
    {
        if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith("This plugin does not support"_L1)) {
            list() << text;
        }
    }

    QtMessageHandler m_former;
};

int fromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

qint64 bytesInUse()
{
    malloc_trim(0);
    const auto info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

class Soak : public FrameTest
{
protected:
    using Step = void (Soak::*)();

    void SetUp() override
    {
        m_files = {writeFile(u"small.inv"_s, document(3)), writeFile(u"usual.inv"_s, document(120)),
            writeFile(u"long.inv"_s, document(900)), writeFile(u"broken.inv"_s, document(9).chopped(30)),
            path(u"missing.inv"_s)};
        start();
    }

    int upTo(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }
    template <typename List>
    const auto &oneOf(const List &list)
    {
        return list[size_t(upTo(0, int(std::size(list)) - 1))];
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void stretch();
    void step();
    void closeAll();
    void forgetLastUse();
    static void settle();

    void openFile();
    void openFile(const QString &fileName);
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

    std::mt19937 m_random{unsigned(fromEnvironment("TABRIX_SOAK_SEED", 1))};
    RandomAnswers m_answers{m_random};
    QStringList m_files;
    int m_steps = 0;
};

void Soak::settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

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
    openFile(oneOf(m_files));
}

void Soak::openFile(const QString &fileName)
{
    constexpr int mostWindows = 5;
    if (frame().openEditors().size() < mostWindows) {
        frame().documents().OpenPrFile(fileName);
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
    constexpr int mostRows = 2000;
    const int button = upTo(0, 7);
    if (button < 3 || button > 4 || frame().openEditors().isEmpty() || grid().rowCount() < mostRows) {
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
    m_answers.setFile(path(u"saved-%1.inv"_s.arg(upTo(1, 3))));
    if (!chosen->needsDocument || frame().activeEditor()) {
        (this->*chosen->run)();
        ++m_steps;
    }
    settle();
}

void Soak::closeAll()
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

/// The transfer buffer, the clipboard and the cache of pictures hold what was last used; let that be the same each
/// time.
void Soak::forgetLastUse()
{
    openFile(m_files.first());
    closeAll();
    QApplication::clipboard()->setText(u""_s);
    QPixmapCache::clear();
    settle();
}

/// So much of a day that everything has happened once, then everything is closed.
void Soak::stretch()
{
    constexpr int steps = 250;
    for (int i = 0; i < steps && !HasFatalFailure(); ++i) {
        step();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(InputHold::isHeld());
    }
    closeAll();
    forgetLastUse();
}

/// The least memory in use after a stretch, from one to the next.
qint64 leastUsed(const QList<qint64> &used, qsizetype first, qsizetype next)
{
    return *std::min_element(used.begin() + first, used.begin() + next);
}

TEST_F(Soak, leavesNoMemoryAndNoComplaintBehind)
{
    constexpr qsizetype warmUp = 3;
    constexpr qsizetype leastStretches = 9;
    constexpr qint64 noise = 2'000'000; // of the heap and of Qt's caches; a window that stays takes 100,000 and more
    const qint64 milliseconds = 1000 * fromEnvironment("TABRIX_SOAK_SECONDS", 60);
    const Complaints complaints;
    QElapsedTimer timer;
    timer.start();
    QList<qint64> used;
    while (!HasFailure() && (used.size() < leastStretches || timer.elapsed() < milliseconds)) {
        SCOPED_TRACE(testing::Message() << "stretch " << used.size());
        stretch();
        used << bytesInUse();
        EXPECT_EQ(Complaints::list(), QStringList());
    }
    std::printf("%d steps and %d answers in %lld s; %lld KB in use at the end\n", m_steps, m_answers.given(),
        timer.elapsed() / 1000, used.last() / 1000);
    if (!HasFailure()) {
        const qsizetype middle = (warmUp + used.size()) / 2;
        EXPECT_LT(leastUsed(used, middle, used.size()), leastUsed(used, warmUp, middle) + noise);
    }
}

} // namespace
