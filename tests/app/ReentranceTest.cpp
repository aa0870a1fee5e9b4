// While a file is read or written, events run between its rows. Whatever the user does in that time begins nothing
// inside, and nothing of it is lost.

#include "desktop/InputHold.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QDropEvent>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Runs an action in every event pass of an operation, as a timer would.
class DuringPasses
{
public:
    /// pass counts from 0.
    explicit DuringPasses(std::function<void(int pass)> action)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, action = std::move(action)] {
            if (InputHold::isHeld()) {
                action(m_passes++);
            }
        });
        m_timer.start(0);
    }

    int passes() const { return m_passes; }
    void stop() { m_timer.stop(); }

private:
    QTimer m_timer;
    int m_passes = 0;
};

class Reentrance : public FrameTest
{
protected:
    static constexpr int rows = 1000;

    void SetUp() override
    {
        start();
        first = writeFile(u"first.inv"_s, document(rows));
        second = writeFile(u"second.inv"_s, document(rows + 1));
        third = writeFile(u"third.inv"_s, document(rows + 2));
        ASSERT_TRUE(open(first));
        grid().setActiveCell(2, 1);
        grid().setFocus();
    }

    bool open(const QString &fileName) { return frame().documents().OpenPrFile(fileName); }
    bool save() { return frame().documents().write(editor(), editor().windowTitle()) == SaveOutcome::Saved; }
    QStringList titles()
    {
        QStringList titles;
        for (const frmPrFile *editor : frame().openEditors()) {
            titles << editor->windowTitle();
        }
        return titles;
    }
    /// Runs an operation with an action in its first event pass, then all that waits.
    void with(const std::function<void()> &action, const std::function<bool()> &operation)
    {
        const QStringList windows = titles();
        DuringPasses during([&](int pass) {
            if (pass == 0) {
                action();
            }
            EXPECT_EQ(titles(), windows) << "pass " << pass;
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        });
        awaitNextPass();
        EXPECT_TRUE(operation());
        during.stop();
        EXPECT_GE(during.passes(), 1);
        settle();
    }
    /// Passes are not for every row but once in some milliseconds; the next operation is to have one at once.
    static void awaitNextPass()
    {
        constexpr int longerThanBetweenPasses = 10;
        QTest::qWait(longerThanBetweenPasses);
    }
    static void settle()
    {
        EXPECT_TRUE(QTest::qWaitFor([] { return !InputHold::isWaiting(); }, patience));
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    void expectWhole();

    QString first;
    QString second;
    QString third;
};

/// Every window shows a whole document, and the frame works as always.
void Reentrance::expectWhole()
{
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(InputHold::isHeld());
    for (const frmPrFile *editor : frame().openEditors()) {
        const SpreadGrid &cells = editor->vaspdParam();
        EXPECT_FALSE(editor->windowTitle().isEmpty());
        EXPECT_TRUE(editor->isVisible()) << editor->windowTitle().toStdString();
        EXPECT_EQ(cells.rowCount(), MachineInfos[editor->document().number()].Paramater);
    }
}

} // namespace

TEST_F(Reentrance, textTypedDuringASaveIsInTheCellAfterwardsAndUnsaved)
{
    const QByteArray bytes = document(rows);
    const auto typing = [this] {
        QTest::keyClicks(&grid(), u"xy"_s);
        QTest::keyClick(&grid(), Qt::Key_Return);
        EXPECT_EQ(grid().text(2, 1), u"Parameter 1"_s);
        EXPECT_FALSE(grid().findChild<QWidget *>(u"cellEditor"_s));
    };
    with(typing, [this] { return save(); });
    EXPECT_EQ(grid().text(2, 1), u"xy"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_TRUE(readFile(first) == bytes);
}

// As the system delivers them, by the queue that is left alone between two rows.
TEST_F(Reentrance, keysOfTheSystemsQueueReachTheNewWindowAfterARead)
{
    const auto typing = [this] {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            qt_handleKeyEvent(frame().windowHandle(), type, Qt::Key_Down, Qt::NoModifier);
        }
    };
    with(typing, [this] { return open(second); });
    EXPECT_EQ(grid().activeRow(), 2);
    EXPECT_EQ(titles().last(), second);
}

TEST_F(Reentrance, keysThatAProgramPostsReachTheirCellAfterwards)
{
    const auto typing = [this] {
        QCoreApplication::postEvent(&grid(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
    };
    int rowDuring = 0;
    DuringPasses last([&](int) { rowDuring = grid().activeRow(); });
    with(typing, [this] { return save(); });
    EXPECT_EQ(rowDuring, 1);
    EXPECT_EQ(grid().activeRow(), 2);
}

TEST_F(Reentrance, shortcutsRunAfterwards)
{
    ModalScript script;
    script.thenFile(third);
    with([this] { QTest::keyClick(&grid(), Qt::Key_O, Qt::ControlModifier); }, [this] { return open(second); });
    EXPECT_EQ(titles().mid(1), QStringList({first, second, third}));
    expectWhole();
}

TEST_F(Reentrance, aToolButtonClickedDuringASaveActsAfterwards)
{
    const QByteArray bytes = document(rows);
    with([this] { clickTool(u"ssrbnEdit(4)"_s); }, [this] { return save(); });
    EXPECT_EQ(grid().rowCount(), rows + 1);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_TRUE(readFile(first) == bytes);
}

TEST_F(Reentrance, theWheelScrollsAfterwards)
{
    const auto turning = [this] {
        QWidget &view = *grid().viewport();
        QWheelEvent event(QPointF(50, 50), view.mapToGlobal(QPointF(50, 50)), {}, QPoint(0, -1200), Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
        EXPECT_EQ(grid().topRow(), 1);
    };
    with(turning, [this] { return save(); });
    EXPECT_GT(grid().topRow(), 1);
}

TEST_F(Reentrance, aWindowIsClosedAfterItsSave)
{
    editor().document().markChanged();
    with([this] { EXPECT_FALSE(editor().parentWidget()->close()); }, [this] { return save(); });
    EXPECT_EQ(titles(), QStringList(u"No Name"_s)); // and nothing was asked: it was saved by then
}

TEST_F(Reentrance, theProgramEndsAfterTheRead)
{
    with([this] { EXPECT_FALSE(frame().close()); }, [this] { return open(second); });
    EXPECT_FALSE(frame().isVisible());
    EXPECT_TRUE(titles().isEmpty());
}

TEST_F(Reentrance, aClosedFrameAsksAfterwardsAndStaysOnCancel)
{
    editor().document().markChanged();
    ModalScript script;
    script.then([this](QWidget &box) {
        EXPECT_EQ(dynamic_cast<QMessageBox &>(box).text(), first + u" is update.\nSave?"_s);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    with([this] { EXPECT_FALSE(frame().close()); }, [this] { return open(second); });
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(script.asked(), 1);
}

TEST_F(Reentrance, aSecondOpenFollowsTheFirst)
{
    with([this] { EXPECT_FALSE(open(third)); }, [this] { return open(second); });
    EXPECT_EQ(titles().mid(1), QStringList({first, second, third}));
    EXPECT_EQ(grid().rowCount(), rows + 2);
    expectWhole();
}

TEST_F(Reentrance, aSaveDuringAReadStillMeansTheWindowThatWasActive)
{
    typeInto(2, 2, u"Renamed"_s);
    const auto saving = [this] {
        EXPECT_EQ(frame().documents().write(editor(), first), SaveOutcome::Failed) << "it waits";
        frame().documents().SavePrFile(editor(), path(u"copy.inv"_s));
        EXPECT_TRUE(readFile(first) == document(rows));
    };
    with(saving, [this] { return open(second); });
    const QByteArray renamed = document(rows).replace("Parameter 2,", "Renamed,");
    EXPECT_TRUE(readFile(first) == renamed);
    EXPECT_TRUE(readFile(path(u"copy.inv"_s)) == renamed);
    EXPECT_TRUE(readFile(second) == document(rows + 1));
    EXPECT_EQ(titles().mid(1), QStringList({path(u"copy.inv"_s), second}));
}

TEST_F(Reentrance, aFileDroppedDuringAReadIsRefused)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(third)});
    bool accepted = true;
    const auto dropping = [&] {
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&frame(), &drop);
        accepted = drop.isAccepted();
    };
    with(dropping, [this] { return open(second); });
    EXPECT_FALSE(accepted);
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(Reentrance, theMessageOfAFailedReadCanBeAnswered)
{
    ModalScript script;
    script.then([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_FALSE(open(path(u"missing.inv"_s)));
    EXPECT_EQ(script.asked(), 1);
    EXPECT_FALSE(InputHold::isHeld());
}

namespace {

/// Hundreds of things at once, drawn from a seed.
class Storm : public Reentrance, public testing::WithParamInterface<unsigned>
{
protected:
    void strike();
    int upTo(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }

private:
    void strikeKey();
    void strikeMouse();
    void strikeWindow();

    std::mt19937 m_random{GetParam()};
};

void Storm::strikeKey()
{
    static constexpr Qt::Key keys[] = {Qt::Key_Down, Qt::Key_Right, Qt::Key_F2, Qt::Key_7, Qt::Key_X, Qt::Key_Return,
        Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Delete};
    static constexpr Qt::Key commands[] = {Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_S, Qt::Key_A};
    if (upTo(0, 3) == 0) {
        QTest::keyClick(&grid(), commands[upTo(0, int(std::size(commands)) - 1)], Qt::ControlModifier);
    } else if (upTo(0, 1) == 0) {
        QTest::keyClick(&grid(), keys[upTo(0, int(std::size(keys)) - 1)]);
    } else {
        const Qt::Key key = keys[upTo(0, int(std::size(keys)) - 1)];
        qt_handleKeyEvent(frame().windowHandle(), QEvent::KeyPress, key, Qt::NoModifier);
        qt_handleKeyEvent(frame().windowHandle(), QEvent::KeyRelease, key, Qt::NoModifier);
    }
}

void Storm::strikeMouse()
{
    const QPoint place(upTo(0, grid().viewport()->width()), upTo(0, grid().viewport()->height()));
    if (upTo(0, 1) == 0) {
        clickTool(u"ssrbnEdit(%1)"_s.arg(upTo(0, 5)));
    } else if (upTo(0, 1) == 0) {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
    } else {
        QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
    }
}

void Storm::strikeWindow()
{
    switch (upTo(0, 3)) {
    case 0:
        frame().openEditors().first()->parentWidget()->close();
        break;
    case 1:
        open(third);
        break;
    case 2:
        save();
        break;
    default:
        frame().documents().SavePrFile(editor(), path(u"storm.inv"_s));
    }
}

void Storm::strike()
{
    const int kind = upTo(0, 19);
    kind == 0 ? strikeWindow() : kind < 8 ? strikeMouse() : strikeKey();
}

} // namespace

TEST_P(Storm, beginsNothingInsideAndLeavesEveryWindowWhole)
{
    constexpr int strikes = 200;
    QTimer answers; // what asks afterwards is answered No, or closed
    QObject::connect(&answers, &QTimer::timeout, &answers, [] {
        if (QWidget *window = QApplication::activeModalWidget()) {
            QTest::keyClick(window, Qt::Key_N);
            if (window->isVisible()) {
                window->close();
            }
        }
    });
    answers.start(1);
    const QStringList before = titles();
    const QString text = grid().blockText({1, 1, 13, rows});
    SpreadGrid &struck = grid();
    DuringPasses during([&](int pass) {
        for (int i = 0; pass == 0 && i < strikes; ++i) {
            strike();
        }
        EXPECT_EQ(titles(), before);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    });
    awaitNextPass();
    EXPECT_TRUE(save());
    during.stop();
    EXPECT_TRUE(struck.blockText({1, 1, 13, rows}) == text) << "the grid of the document that is saved";
    EXPECT_TRUE(readFile(first) == document(rows)) << "the file";
    settle();
    EXPECT_GE(during.passes(), 1);
    expectWhole();
}

INSTANTIATE_TEST_SUITE_P(Seeds, Storm, testing::Range(1U, 9U));
