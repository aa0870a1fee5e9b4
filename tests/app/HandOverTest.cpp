// Files that a second start hands over to the program that runs already.

#include "desktop/InputHold.h"
#include "desktop/MessageBox.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/FileName.h"
#include "tests/app/HandOverFixture.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileInfo>
#include <QMenu>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST_F(HandOverTest, opensTheFileInTheProgramThatRuns)
{
    startFrame(writeFile(u"a.inv"_s, document(1)));
    frame().showMinimized();
    const QString file = writeFile(u"two words.inv"_s, document(3));
    QProcess &second = startProgram(fileNameBytes(file));
    ASSERT_TRUE(waitForWindows(3));
    EXPECT_TRUE(waitForEnd(second));
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_EQ(grid().text(2, 3), u"Parameter 3"_s);
    EXPECT_EQ(recentFile(1), file);
    EXPECT_FALSE(frame().isMinimized());
    EXPECT_TRUE(QTest::qWaitFor([this] { return frame().isActiveWindow(); }, patience));
}

TEST_F(HandOverTest, opensWhatTheNameLeadsToFromWhereItWasTyped)
{
    startFrame();
    ASSERT_TRUE(QDir().mkpath(path(u"below"_s)));
    const QString file = writeFile(u"below/a.inv"_s, document(2));
    m_workingFolder = path(u"below"_s);
    startProgram("a.inv");
    ASSERT_TRUE(waitForWindows(2));
    EXPECT_EQ(editor().windowTitle(), file);
}

TEST_F(HandOverTest, opensAFileWhoseNameIsNotUtf8)
{
    startFrame();
    const QByteArray name = path(u"."_s).toUtf8() + "/\x83\x70.inv";
    const QString file = writeFile(u"a.inv"_s, document(2));
    ASSERT_EQ(std::rename(file.toUtf8().constData(), name.constData()), 0);
    startProgram(name);
    ASSERT_TRUE(waitForWindows(2));
    EXPECT_EQ(grid().rowCount(), 2);
    EXPECT_TRUE(fileNameBytes(editor().document().path()).endsWith("/\x83\x70.inv"));
    std::remove(name.constData());
}

TEST_F(HandOverTest, opensAFileThatIsOpenAlreadyOnceMoreAsTheOpenCommandDoes)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    startFrame(file);
    startProgram(fileNameBytes(file));
    ASSERT_TRUE(waitForWindows(3));
    EXPECT_EQ(editor().document().number(), 3);
    EXPECT_EQ(recentFile(2), QString());
}

TEST_F(HandOverTest, tellsOfAFileThatCannotBeOpenedInTheProgramThatRuns)
{
    startFrame();
    const QString file = writeFile(u"broken.inv"_s, document(3).replace("Paramater=3", "Paramater=-3"));
    ModalScript script;
    script.then([&](QWidget &box) {
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QProcess &second = startProgram(fileNameBytes(file));
    EXPECT_TRUE(waitForEnd(second));
    EXPECT_TRUE(QTest::qWaitFor([&] { return script.asked() == 1; }, patience));
    EXPECT_EQ(frame().openEditors().size(), 1);
}

// A command line is one file name, so that the desktop has to start a program for each file (%F would join them).
TEST_F(HandOverTest, threeStartsAtOnceEndInOneProgramWithThreeFiles)
{
    QFile entry(QStringLiteral(TABRIX_DESKTOP_ENTRY));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    ASSERT_TRUE(entry.readAll().contains("\nExec=tabrix %f\n"));
    QStringList files;
    for (const QString &name : {u"a.inv"_s, u"b.inv"_s, u"c.inv"_s}) {
        files << writeFile(name, document(2));
        startProgram(fileNameBytes(files.last()));
    }
    const auto running = [this] {
        return std::ranges::count_if(
            m_programs, [](const auto &program) { return program->state() != QProcess::NotRunning; });
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return running() == 1 && !recentFile(3).isEmpty(); }, patience));
    QStringList recent{recentFile(1), recentFile(2), recentFile(3)};
    recent.sort();
    EXPECT_EQ(recent, files);
    for (const auto &program : m_programs) {
        EXPECT_TRUE(program->state() != QProcess::NotRunning || program->exitCode() == 0);
    }
}

namespace {

/// The second start as the first program sees it, step by step.
class Start
{
public:
    explicit Start(const QString &file, const QByteArray &activationToken = {})
    {
        auto socket = ProgramSocket::to(meetingName());
        EXPECT_TRUE(socket);
        if (socket) {
            m_socket = std::move(*socket);
            EXPECT_TRUE(m_socket.send(HandedFile{file, activationToken}.message()));
        }
    }

    /// The next answer; empty if the other program has ended.
    QByteArray answer()
    {
        std::optional<QByteArray> message;
        EXPECT_TRUE(QTest::qWaitFor([&] { return (message = m_socket.receive()).has_value(); }, patience));
        return message.value_or("none"_ba);
    }
    /// As a start does before it opens the file itself.
    void losePatience() { m_socket.refuseMessages(); }

private:
    ProgramSocket m_socket;
};

} // namespace

TEST_F(HandOverTest, waitsForTheUserToAnswerADialog)
{
    startFrame();
    Start start(writeFile(u"a.inv"_s, document(2)));
    ModalScript script;
    script.then([&](QWidget &box) {
        EXPECT_EQ(start.answer(), HandOverAnswer::Later);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    MessageBox::showPlain(&frame(), u"?"_s, u"?"_s);
    EXPECT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(start.answer(), HandOverAnswer::Opened);
    EXPECT_TRUE(waitForWindows(2));
}

// Without it, a desktop does not let a program come to the front that the user has not clicked.
TEST_F(HandOverTest, comesToTheFrontInTheNameOfTheStart)
{
    startFrame();
    Start start(writeFile(u"a.inv"_s, document(2)), "token");
    EXPECT_EQ(start.answer(), HandOverAnswer::Opened);
    ASSERT_TRUE(waitForWindows(2));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token"); // where the toolkit takes it from
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(HandOverTest, waitsForAMenuToClose)
{
    startFrame();
    Start start(writeFile(u"a.inv"_s, document(2)));
    QMenu &menu = menuInBar(u"mneFile"_s);
    menu.popup({});
    EXPECT_EQ(start.answer(), HandOverAnswer::Later);
    EXPECT_EQ(frame().openEditors().size(), 1);
    menu.close();
    EXPECT_EQ(start.answer(), HandOverAnswer::Opened);
    EXPECT_TRUE(waitForWindows(2));
}

TEST_F(HandOverTest, waitsForTheEndOfASaveOrAnotherOpen)
{
    startFrame();
    Start start(writeFile(u"a.inv"_s, document(2)));
    {
        const InputHold hold;
        EXPECT_EQ(start.answer(), HandOverAnswer::Later);
        EXPECT_EQ(frame().openEditors().size(), 1);
    }
    EXPECT_EQ(start.answer(), HandOverAnswer::Opened);
    EXPECT_TRUE(waitForWindows(2));
}

TEST_F(HandOverTest, leavesTheFileToTheSecondProgramIfTheFirstEndsMeanwhile)
{
    startFrame();
    typeInto(2, 1, u"changed"_s);
    const QString file = writeFile(u"a.inv"_s, document(2));
    Start start(file);
    QProcess *second = nullptr;
    ModalScript script;
    script.then([&](QWidget &question) { // whether to save
        EXPECT_EQ(start.answer(), HandOverAnswer::Later);
        second = &startProgram(fileNameBytes(file));
        QTest::mouseClick(&control<QAbstractButton>(question, u"cmdNo"_s), Qt::LeftButton);
    });
    EXPECT_TRUE(frame().close());
    EXPECT_EQ(start.answer(), QByteArray());
    EXPECT_TRUE(QTest::qWaitFor([&] { return recentFile(1) == file; }, patience));
    EXPECT_EQ(second->state(), QProcess::Running);
}

TEST_F(HandOverTest, opensNothingForAStartThatHasLostItsPatience)
{
    startFrame();
    Start impatient(writeFile(u"a.inv"_s, document(2)));
    impatient.losePatience();
    Start next(writeFile(u"b.inv"_s, document(2)));
    EXPECT_EQ(next.answer(), HandOverAnswer::Opened);
    ASSERT_TRUE(waitForWindows(2));
    EXPECT_EQ(editor().windowTitle(), path(u"b.inv"_s));
}

TEST_F(HandOverTest, isGivenUpIfTheOtherProgramHangs)
{
    const auto hanging = ProgramSocket::named(meetingName());
    ASSERT_TRUE(hanging && hanging->listen());
    HandOver handOver(meetingName());
    handOver.setPatience(50ms, 1s);
    qputenv("XDG_ACTIVATION_TOKEN", "token of the start");
    EXPECT_FALSE(handOver.give(writeFile(u"a.inv"_s, document(2))));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    const ProgramSocket start = hanging->accept();
    ASSERT_TRUE(start);
    const auto handed = HandedFile::fromMessage(start.receive().value_or(QByteArray()));
    ASSERT_TRUE(handed);
    EXPECT_EQ(handed->fileName, path(u"a.inv"_s));
    EXPECT_EQ(handed->activationToken, "token of the start");
    EXPECT_FALSE(start.send(HandOverAnswer::Opened));
}

TEST_F(HandOverTest, doesNotMindAStartThatIsKilled)
{
    startFrame();
    {
        const InputHold hold;
        Start killed(writeFile(u"a.inv"_s, document(2)));
        EXPECT_EQ(killed.answer(), HandOverAnswer::Later);
    }
    Start next(writeFile(u"b.inv"_s, document(2)));
    EXPECT_EQ(next.answer(), HandOverAnswer::Opened);
    EXPECT_TRUE(waitForWindows(2));
    EXPECT_EQ(editor().windowTitle(), path(u"b.inv"_s));
}

TEST_F(HandOverTest, isPossibleAgainAfterACrash)
{
    QProcess &crashed = startProgram(fileNameBytes(writeFile(u"a.inv"_s, document(2))));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !recentFile(1).isEmpty(); }, patience));
    crashed.kill();
    ASSERT_TRUE(crashed.waitForFinished(patience));
    startFrame(writeFile(u"b.inv"_s, document(2)));
    Start next(path(u"a.inv"_s));
    EXPECT_EQ(next.answer(), HandOverAnswer::Opened);
}

// Such a start is a program of its own. It receives the files when the program that did so has ended.
TEST_F(HandOverTest, isNotAskedForByAStartWithoutAName)
{
    auto first = ProgramSocket::named(meetingName());
    ASSERT_TRUE(first && first->listen());
    QProcess &second = startProgram({});
    ProgramSocket waiting;
    ASSERT_TRUE(QTest::qWaitFor([&] { return bool(waiting = first->accept()); }, patience));
    EXPECT_EQ(waiting.receive(), std::nullopt);
    *first = {};
    waiting = {};
    const QString file = writeFile(u"a.inv"_s, document(2));
    EXPECT_TRUE(waitForEnd(startProgram(fileNameBytes(file))));
    EXPECT_TRUE(QTest::qWaitFor([&] { return recentFile(1) == file; }, patience));
    EXPECT_EQ(second.state(), QProcess::Running);
}

TEST_F(HandOverTest, isNotAskedForByANameThatLeadsToNoFile)
{
    const auto first = ProgramSocket::named(meetingName());
    ASSERT_TRUE(first && first->listen());
    HandOver handOver(meetingName());
    for (const QString &name : {u""_s, u"missing.inv"_s, path(u"missing.inv"_s), path(u"."_s), u"/dev/null"_s}) {
        EXPECT_FALSE(handOver.give(name)) << name.toStdString();
        EXPECT_FALSE(first->accept()) << name.toStdString();
    }
}

TEST_F(HandOverTest, isNotForProgramsWithOtherSettings)
{
    const QByteArray name = meetingName();
    const QString home = QFileInfo(UserPlaces::settings().fileName()).dir().path() + u"/.."_s;
    UserPlaces::setConfigHome(path(u"elsewhere"_s));
    EXPECT_NE(meetingName(), name);
    UserPlaces::setConfigHome(QDir::cleanPath(home));
    EXPECT_EQ(meetingName(), name);
}
