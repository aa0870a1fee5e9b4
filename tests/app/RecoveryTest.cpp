#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "storage/RecoveryStore.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class Recovery : public FrameTest
{
protected:
    Recovery() { QDir(root()).removeRecursively(); }
    ~Recovery() override
    {
        stop();
        QDir(root()).removeRecursively();
        QFile::remove(root());
    }

    static QString root() { return RecoveryStore::defaultRoot(); }
    static QStringList found(const QString &pattern)
    {
        QStringList paths;
        for (QDirIterator files(root(), {pattern}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
            paths << files.next();
        }
        paths.sort();
        return paths;
    }
    static QStringList copies() { return found(u"*.copy"_s); }
    void refresh() { frame().recovery().refresh(); }

    /// Changes a file's document, and leaves what a crash leaves: its recovery copy, and nobody who owns it.
    void crash(const QString &fileName)
    {
        start(fileName);
        typeInto(2, 1, u"typed"_s);
        refresh();
        leaveBehind();
    }
    /// Moves the copies to where a crashed instance would have left them, and ends the frame.
    void leaveBehind()
    {
        const QString dead = root() + u"/20250101-1"_s;
        ASSERT_TRUE(QDir().mkpath(dead));
        for (const QString &copy : copies()) {
            ASSERT_TRUE(QFile::rename(copy, dead + u'/' + QFileInfo(copy).fileName()));
        }
        stop();
    }
};

TEST_F(Recovery, keepsNothingOfUnchangedDocuments)
{
    start(writeFile(u"a.inv"_s, document(2)));
    refresh();
    EXPECT_FALSE(QDir(root()).exists());
}

TEST_F(Recovery, keepsTheCodePageThatADocumentWasReadIn)
{
    const QByteArray japanese = document(2).replace("Parameter 2,", "\x83\x81\x81\x5B,");
    const QString file = writeFile(u"a.inv"_s, japanese);
    crash(file);
    start();
    EXPECT_EQ(grid().cellText(2, 2), u"メー"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_EQ(readFile(file), QByteArray(japanese).replace("Parameter 1,", "typed,"));
}

TEST_F(Recovery, keepsACopyOfEachChangedDocumentWithoutBeingAsked)
{
    start();
    frame().recovery().setInterval(10ms);
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(QTest::qWaitFor([] { return copies().size() == 1; }, patience));
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(QTest::qWaitFor([] { return copies().size() == 2; }, patience));
    EXPECT_FALSE(QFile::exists(path(u"000001.copy"_s)));
    EXPECT_EQ(readFile(path(u"a.inv"_s)), document(2));
}

TEST_F(Recovery, neverLacksMoreThanHalfAMinute)
{
    start();
    EXPECT_GT(frame().recovery().interval(), 0s);
    EXPECT_LT(frame().recovery().interval(), 10s); // until the first copy
    EXPECT_LT(3 * frame().recovery().interval(), 30s); // until the next
}

TEST_F(Recovery, looksAtNothingWhileNothingIsDone)
{
    start(writeFile(u"a.inv"_s, document(2)));
    RecoveryKeeper &recovery = frame().recovery();
    recovery.setInterval(10ms);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recovery.isWaiting(); }));
    pressKey(grid(), Qt::Key_Down);
    EXPECT_TRUE(recovery.isWaiting());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recovery.isWaiting(); }));
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return copies().size() == 1 && !recovery.isWaiting(); }));
}

TEST_F(Recovery, bringsACopyUpToDateWithoutBeingAsked)
{
    start();
    frame().recovery().setInterval(10ms);
    for (const QString &text : {u"first"_s, u"second"_s}) {
        typeInto(2, 1, text);
        const QByteArray packed(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return !copies().isEmpty() && readFile(copies().first()).contains(packed); }));
    }
}

// However slow the machine is: the later a look comes, the older is the copy that it finds.
TEST_F(Recovery, bringsACopyUpToDateAtTheThirdLookAtTheLatest)
{
    start();
    RecoveryKeeper &recovery = frame().recovery();
    recovery.setInterval(100ms);
    typeInto(2, 1, u"first"_s);
    ASSERT_TRUE(QTest::qWaitFor([] { return copies().size() == 1; }, patience));
    const QByteArray first = readFile(copies().first());
    int looks = 0;
    QObject::connect(
        recovery.findChild<QTimer *>(), &QTimer::timeout, [&] { looks += readFile(copies().first()) == first; });
    typeInto(2, 1, u"second"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return readFile(copies().first()) != first; }, patience));
    EXPECT_LE(looks, 2) << "looks that left the copy as it was";
}

TEST_F(Recovery, makesTheFirstCopyOfADocumentWhateverTheAgeOfOtherCopies)
{
    start();
    RecoveryKeeper &recovery = frame().recovery();
    recovery.setInterval(1h);
    typeInto(2, 1, u"typed"_s);
    refresh(); // this one is not due for two hours
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
    typeInto(2, 1, u"typed"_s);
    ASSERT_EQ(copies().size(), 1);
    ASSERT_TRUE(QMetaObject::invokeMethod(recovery.findChild<QTimer *>(), "timeout", Qt::DirectConnection));
    EXPECT_EQ(copies().size(), 2);
}

TEST_F(Recovery, saysWhetherACopyIsOnTheDisk)
{
    start();
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(frame().recovery().keep(editor()));
    ASSERT_EQ(copies().size(), 1);
    QFile::remove(copies().first());
    EXPECT_TRUE(frame().recovery().keep(editor()));
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(Recovery, writesNoCopyTwice)
{
    start();
    typeInto(2, 1, u"typed"_s);
    refresh();
    ASSERT_EQ(copies().size(), 1);
    QFile::remove(copies().first());
    refresh();
    EXPECT_TRUE(copies().isEmpty());
    MachineInfos[1].Name = u"another"_s;
    refresh();
    EXPECT_EQ(copies().size(), 1);
    QFile::remove(copies().first());
    typeInto(3, 1, u"1-2"_s);
    refresh();
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(Recovery, dropsTheCopyWhenTheDocumentIsSaved)
{
    start(writeFile(u"a.inv"_s, document(2)));
    typeInto(2, 1, u"typed"_s);
    refresh();
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(copies().isEmpty());
    EXPECT_TRUE(readFile(path(u"a.inv"_s)).contains(",typed,"));
}

TEST_F(Recovery, dropsTheCopyWhenTheDocumentIsSavedUnderAnotherName)
{
    start(writeFile(u"a.inv"_s, document(2)));
    typeInto(2, 1, u"typed"_s);
    refresh();
    ModalScript script;
    script.thenFile(path(u"b.inv"_s));
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(copies().isEmpty());
    frame().activateWindow(); // the dialog was active until now
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame(), patience));
    typeInto(2, 2, u"further"_s);
    refresh();
    leaveBehind();
    start();
    EXPECT_EQ(editor().windowTitle(), path(u"b.inv"_s));
}

TEST_F(Recovery, keepsTheCopyWhenASaveFails)
{
    start();
    typeInto(2, 1, u"typed"_s);
    refresh();
    ModalScript script;
    script.thenEscape();
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(Recovery, dropsTheCopyWhenTheChangesAreGivenUp)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    start(file);
    typeInto(2, 1, u"typed"_s);
    refresh();
    ModalScript script;
    script.thenMessage(file + u" is update.\nSave?"_s, u"&No"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Recovery, leavesNothingAfterANormalExit)
{
    start();
    typeInto(2, 1, u"typed"_s);
    refresh();
    ASSERT_EQ(copies().size(), 1);
    ModalScript script;
    script.thenMessage(u"No Name is update.\nSave?"_s, u"&No"_s);
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    stop();
    EXPECT_TRUE(QDir(root()).isEmpty());
}

TEST_F(Recovery, keepsWhatShouldHaveBeenSavedAndWasNot)
{
    start();
    typeInto(2, 1, u"first"_s);
    {
        ModalScript script;
        script.thenMessage(u"No Name is update.\nSave?"_s, u"&Yes"_s).thenEscape();
        chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    }
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"first"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

TEST_F(Recovery, opensWhatACrashLeftAsAChangedDocumentUnderItsName)
{
    const QString file = writeFile(u"a.inv"_s, document(3));
    start(file);
    typeInto(2, 1, u"typed"_s);
    pressKey(grid(), Qt::Key_Down);
    chooseMenu(u"mneEdit"_s, u"mneEditAdd"_s);
    MachineInfos[docNo()].Option = {u"A"_s, u"B"_s};
    refresh();
    const int rows = grid().rowCount();
    const QString all = grid().blockText({1, 1, 13, rows});
    leaveBehind();

    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(frame().openEditors().first()->windowTitle(), u"No Name"_s);
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(grid().rowCount(), rows);
    EXPECT_EQ(grid().blockText({1, 1, 13, rows}), all);
    EXPECT_EQ(grid().textColour(2, 1), QColor(128, 0, 0));
    EXPECT_FALSE(grid().textColour(3, 1).isValid());
    EXPECT_EQ(MachineInfos[docNo()].Option, QStringList({u"A"_s, u"B"_s}));
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), QString::number(rows));
    EXPECT_EQ(readFile(file), document(3));
}

TEST_F(Recovery, savesARecoveredDocumentToItsFileAndOnlyThenDropsTheCopy)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    crash(file);
    start();
    EXPECT_EQ(copies().size(), 1);
    refresh();
    EXPECT_EQ(copies().size(), 1);
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(file).contains(",typed,"));
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_TRUE(copies().isEmpty());
    start();
    EXPECT_EQ(frame().openEditors().size(), 1);
}

TEST_F(Recovery, takesNoUndoneEditForTheStateOfTheFile)
{
    crash(writeFile(u"a.inv"_s, document(2)));
    start();
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 1), u"typed"_s);
    typeInto(2, 2, u"further"_s);
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 2), u"Parameter 2"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

TEST_F(Recovery, asksBeforeARecoveredDocumentIsGivenUp)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    crash(file);
    start();
    ModalScript script;
    script.thenMessage(file + u" is update.\nSave?"_s, u"&No"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Recovery, opensRecoveredDocumentsAfterTheFileOfTheCommandLine)
{
    crash(writeFile(u"a.inv"_s, document(2)));
    const QString other = writeFile(u"b.inv"_s, document(2));
    start(other);
    ASSERT_EQ(frame().openEditors().size(), 3);
    EXPECT_EQ(frame().openEditors().at(1)->windowTitle(), other);
    EXPECT_EQ(editor().document().number(), 3);
}

TEST_F(Recovery, keepsAnUntitledDocumentUntitledInEitherLanguage)
{
    crash({});
    setCountryCode(81);
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(editor().windowTitle(), u"無題"_s);
    EXPECT_EQ(grid().text(2, 1), u"typed"_s);
    MachineInfos[docNo()].Name = u"XT"_s;
    ModalScript script;
    script.thenFile(path(u"new.inv"_s));
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(path(u"new.inv"_s)).contains(",typed,"));
}

TEST_F(Recovery, savesWhatTheCommandLineNamedWhereTheFileWas)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    crash(u"a.inv"_s);
    ASSERT_TRUE(QDir().mkpath(path(u"elsewhere"_s)));
    QDir::setCurrent(path(u"elsewhere"_s));
    start();
    EXPECT_EQ(editor().windowTitle(), file);
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(file).contains(",typed,"));
    EXPECT_FALSE(QFile::exists(path(u"elsewhere/a.inv"_s)));
}

TEST_F(Recovery, keepsWhatIsBeingTyped)
{
    start(writeFile(u"a.inv"_s, document(2)));
    grid().setActiveCell(2, 1);
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u" and more"_s);
    const QWidget *typing = QApplication::focusWidget();
    refresh();
    EXPECT_EQ(QApplication::focusWidget(), typing);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    leaveBehind();
    start();
    EXPECT_EQ(grid().text(2, 1), u"Parameter 1 and more"_s);
    EXPECT_EQ(grid().textColour(2, 1), QColor(128, 0, 0));
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

TEST_F(Recovery, forgetsWhatWasTypedAndUndone)
{
    start(writeFile(u"a.inv"_s, document(2)));
    grid().setActiveCell(2, 1);
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u" and more"_s);
    refresh();
    EXPECT_EQ(copies().size(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    refresh();
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Recovery, goesOnWithoutCopiesWhereNoneCanBeWritten)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(root()).path()));
    QFile file(root());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const ModalScript script;
    start(writeFile(u"a.inv"_s, document(2)));
    typeInto(2, 1, u"typed"_s);
    refresh();
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(path(u"a.inv"_s)).contains(",typed,"));
    EXPECT_EQ(script.asked(), 0);
}

TEST_F(Recovery, disturbsNeitherPointerNorEvents)
{
    start();
    typeInto(2, 1, u"typed"_s);
    bool passed = false;
    QTimer::singleShot(0, &frame(), [&] { passed = true; });
    refresh();
    EXPECT_FALSE(passed);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(copies().size(), 1);
}

struct Damage
{
    const char *what;
    QByteArray (*damaged)(const QByteArray &);
};

class DamagedCopy : public Recovery, public testing::WithParamInterface<Damage>
{
};

TEST_P(DamagedCopy, hindersNeitherTheStartNorTheOthers)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    start(file);
    typeInto(2, 1, u"typed"_s);
    refresh();
    const QByteArray whole = readFile(copies().first());
    leaveBehind();
    QFile damaged(root() + u"/20250101-1/000000.copy"_s);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(GetParam().damaged(whole));
    damaged.close();

    const ModalScript script;
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_EQ(script.asked(), 0);
    EXPECT_EQ(found(u"*.damaged"_s).size(), 1);
    EXPECT_EQ(editor().document().number(), 2);
}

INSTANTIATE_TEST_SUITE_P(Damages, DamagedCopy,
    testing::ValuesIn(std::vector<Damage>{
        {"empty", [](const QByteArray &) { return QByteArray(); }},
        {"cut", [](const QByteArray &whole) { return whole.left(whole.size() / 2); }},
        {"foreign", [](const QByteArray &) { return QByteArray("[Inverter]\r\n"); }},
        {"longer", [](const QByteArray &whole) -> QByteArray { return whole + whole; }},
        {"flipped",
            [](const QByteArray &whole) {
                QByteArray bytes = whole;
                bytes[bytes.size() - 5] = char(bytes[bytes.size() - 5] ^ 1);
                return bytes;
            }},
    }),
    [](const auto &test) { return std::string(test.param.what); });

TEST_F(Recovery, isToldFromASavedDocumentByTheIconOfItsWindow)
{
    crash(writeFile(u"a.inv"_s, document(2)));
    start();
    const auto image = [](const frmPrFile *editor) {
        return editor->parentWidget()->windowIcon().pixmap(QSize(32, 32), 1).toImage();
    };
    EXPECT_NE(image(frame().openEditors().at(1)), image(frame().openEditors().at(0)));
}

TEST_F(Recovery, listsTheRecentFilesInTheRecoveredWindowToo)
{
    const QString file = writeFile(u"a.inv"_s, document(2));
    crash(file);
    start();
    ASSERT_TRUE(DocFlags[docNo()].changed);
    QAction &entry = menuCommand(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_TRUE(entry.isVisible());
    EXPECT_EQ(entry.text(), file);
}
