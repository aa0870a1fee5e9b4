#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "storage/FileBackup.h"
#include "tests/reliability/FaultTest.h"
#include "tests/reliability/FaultyDisk.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <functional>
#include <ostream>

using namespace Qt::StringLiterals;

namespace {

/// What happens to the open file between opening and saving.
struct Fault
{
    const char *name;
    QString reason; ///< the system's text in the message
    std::function<void(const QString &file)> happen;
};

void PrintTo(const Fault &fault, std::ostream *out)
{
    *out << fault.name;
}

void moveAway(const QString &file)
{
    ASSERT_TRUE(QFile::rename(file, file + u".moved"_s));
}

const Fault faults[] = {
    {"FileIsReadOnly", u"Permission denied"_s,
        [](const QString &file) { ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner)); }},
    {"FolderIsClosed", u"Permission denied"_s,
        [](const QString &file) { ASSERT_TRUE(QFile::setPermissions(QFileInfo(file).path(), {})); }},
    {"FolderHasVanished", u"No such file or directory"_s,
        [](const QString &file) {
            const QString folder = QFileInfo(file).path();
            ASSERT_TRUE(QFile::rename(folder, folder + u".moved"_s));
        }},
    {"FileHasVanishedFromAReadOnlyFolder", u"Permission denied"_s,
        [](const QString &file) {
            moveAway(file);
            ASSERT_TRUE(QFile::setPermissions(QFileInfo(file).path(), QFile::ReadOwner | QFile::ExeOwner));
        }},
    {"NameIsAFolder", u"Is a directory"_s,
        [](const QString &file) {
            moveAway(file);
            ASSERT_TRUE(QDir().mkdir(file));
        }},
    {"NameIsALinkToItself", u"Too many levels of symbolic links"_s,
        [](const QString &file) {
            moveAway(file);
            ASSERT_TRUE(QFile::link(QFileInfo(file).fileName(), file));
        }},
    {"NameIsALinkIntoNowhere", u"No such file or directory"_s,
        [](const QString &file) {
            moveAway(file);
            ASSERT_TRUE(QFile::link(u"/nowhere/a.inv"_s, file));
        }},
    {"DeviceIsFull", u"No space left on device"_s,
        [](const QString &file) {
            moveAway(file);
            ASSERT_TRUE(QFile::link(u"/dev/full"_s, file));
        }},
};

class FailingSave : public FaultTest, public testing::WithParamInterface<Fault>
{
};

} // namespace

TEST_P(FailingSave, isToldAndCostsNothing)
{
    GetParam().happen(file);
    expectFailingSave(GetParam().reason);
    expectFailingSave(GetParam().reason); // and again
    expectSaveElsewhere();
    QFile::setPermissions(workFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(isStillThere(earlier));
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FailingSave, testing::ValuesIn(faults), [](const auto &test) { return std::string(test.param.name); });

TEST_F(FaultTest, aFileThatAnotherProgramHoldsBusyIsToldAndLeftAlone)
{
    // A program that runs cannot be written: the lock that this system has.
    moveAway(file);
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, file));
    QProcess other;
    other.start(file, {u"infinity"_s});
    ASSERT_TRUE(other.waitForStarted(patience));
    const QByteArray program = readFile(file);
    for (int i = 0; i < 2; ++i) { // what was not replaced is asked about again
        ModalScript script;
        script.thenMessage(changedByOthers, u"cmdYes"_s).thenMessage(u"Text file busy"_s, u"OK"_s);
        chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    }
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(readFile(file), program);
    expectSaveElsewhere();
    EXPECT_TRUE(isStillThere(earlier));
    other.kill();
    ASSERT_TRUE(other.waitForFinished(patience));
}

TEST_F(FaultTest, aDiskThatTakesNoChangeIsTold)
{
    if (FaultyDisk::readOnlyDisk().isEmpty()) {
        GTEST_SKIP() << "this system lets tests mount no disk";
    }
    openChanged(FaultyDisk::readOnlyDisk() + u"/a.inv"_s);
    expectFailingSave(u"Read-only file system"_s);
    expectSaveElsewhere();
}

TEST_F(FaultTest, anErrorInTheMiddleOfTheFileLeavesTheEarlierContentInTheBackups)
{
    // The copy of the earlier version still fits, the longer text does not.
    typeInto(2, 1, QString(500, u'x'));
    changed = QByteArray(earlier).replace("Parameter 1", QByteArray(500, 'x'));
    {
        const FaultyDisk::SizeLimit limit(quint64(earlier.size() + 100));
        expectFailingSave(u"File too large"_s);
        EXPECT_EQ(readFile(file), changed.first(earlier.size() + 100));
    }
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
    expectSaveElsewhere();
}

TEST_F(FaultTest, savesWhenTheFaultIsOver)
{
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    expectFailingSave(u"Permission denied"_s);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), changed);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
}

TEST_F(FaultTest, failingAgainAndAgainPushesNoVersionOut)
{
    constexpr int attempts = 15; // more than there are versions
    for (int i = 0; i < attempts; ++i) {
        typeInto(2, 1, QString(500, QChar(u'a' + i)));
        const FaultyDisk::SizeLimit limit(quint64(earlier.size() + i));
        expectFailingSave(u"File too large"_s);
    }
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
}

TEST_F(FaultTest, aFileChangedByOthersAfterAFailedSaveIsKept)
{
    typeInto(2, 1, QString(500, u'x'));
    {
        const FaultyDisk::SizeLimit limit(quint64(earlier.size()));
        expectFailingSave(u"File too large"_s);
    }
    const QByteArray foreign = document(5);
    writeFile(u"work/a.inv"_s, foreign);
    ModalScript script;
    script.thenMessage(changedByOthers, u"cmdYes"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(versions(file), (QList<QByteArray>{earlier, foreign}));
}

TEST_F(FaultTest, aWindowThatCanNeitherSaveNorKeepItsWorkStaysOpen)
{
    {
        const FaultyDisk::SizeLimit limit(10);
        ModalScript script;
        script.thenMessage(file + u" is update.\nSave?"_s, u"cmdYes"_s)
            .then([](QWidget &box) {
                control<QAbstractButton>(box, u"cmdYes"_s).click();
            }) // to save although no version could be kept
            .then([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); }) // why it could not be saved
            .thenMessage(
                u"The changes could neither be saved nor safely kept for the next start. The window stays open "
                "so that they are not lost."_s,
                u"OK"_s);
        chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    }
    ASSERT_TRUE(frame().isVisible());
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    expectSaveElsewhere();
}

TEST_F(FaultTest, aWindowStaysOpenWhenTheUserDoesNotWantToSaveWithoutAVersion)
{
    {
        const FaultyDisk::SizeLimit limit(10);
        ModalScript script;
        script.thenMessage(file + u" is update.\nSave?"_s, u"cmdYes"_s).then([](QWidget &box) {
            QTest::keyClick(&box, Qt::Key_Return); // not without a version
        });
        chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    }
    ASSERT_TRUE(frame().isVisible());
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(readFile(file), earlier);
    expectSaveElsewhere();
}

TEST_F(FaultTest, withoutRoomForTheEarlierVersionTheFileIsNotTouched)
{
    const FaultyDisk::SizeLimit limit(quint64(earlier.size() / 2));
    expectFailingSave([](const QString &text) {
        return text.startsWith(u"The earlier version could not be kept in "_s)
            && text.contains(u": File too large\n"_s);
    });
    EXPECT_EQ(readFile(file), earlier);
    EXPECT_TRUE(versions(file).isEmpty()) << "nothing unfinished stays behind";
}

TEST_F(FaultTest, aFileThatCannotBeReadForItsCopyIsNotTouched)
{
    ASSERT_TRUE(QFile::setPermissions(file, QFile::WriteOwner));
    expectFailingSave([](const QString &text) { return text.contains(u": Permission denied\n"_s); });
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(readFile(file), earlier);
    expectSaveElsewhere();
}

namespace {

/// A document on a disk of 64 kilobytes.
class SmallDisk : public FaultTest
{
protected:
    void SetUp() override
    {
        if (FaultyDisk::smallDisk().isEmpty()) {
            GTEST_SKIP() << "this system lets tests mount no disk; the size limit stands in for the full disk";
        }
        FaultTest::SetUp();
    }
    void TearDown() override
    {
        for (const QFileInfo &entry : QDir(FaultyDisk::smallDisk()).entryInfoList(QDir::Files)) {
            QFile::remove(entry.filePath());
        }
        QDir(onDisk(u"data"_s)).removeRecursively();
    }
    static QString onDisk(const QString &name) { return FaultyDisk::smallDisk() + u'/' + name; }
};

} // namespace

TEST_F(SmallDisk, fullWhileTheFileIsWrittenIsTold)
{
    earlier = document(50);
    QFile::copy(writeFile(u"b.inv"_s, earlier), onDisk(u"b.inv"_s));
    openChanged(onDisk(u"b.inv"_s));
    typeInto(2, 1, QString(1200, u'x')); // one page more than before
    changed = QByteArray(earlier).replace(",Parameter 1,", ',' + QByteArray(1200, 'x') + ',');
    {
        const FaultyDisk::Filling full;
        expectFailingSave(u"No space left on device"_s);
        expectSaveElsewhere();
    }
    EXPECT_EQ(versions(onDisk(u"b.inv"_s)), QList<QByteArray>{earlier});
}

TEST_F(SmallDisk, fullWhileTheEarlierVersionIsCopiedIsToldAndTheFileNotTouched)
{
    const QByteArray dataFolder = qgetenv("XDG_DATA_HOME");
    ASSERT_TRUE(QDir().mkdir(onDisk(u"data"_s)));
    qputenv("XDG_DATA_HOME", onDisk(u"data"_s).toLocal8Bit());
    {
        const FaultyDisk::Filling full;
        expectFailingSave(
            [](const QString &text) { return text.startsWith(u"The earlier version could not be kept in "_s); });
    }
    EXPECT_EQ(readFile(file), earlier);
    EXPECT_TRUE(versions(file).isEmpty());
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), changed);
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
    qputenv("XDG_DATA_HOME", dataFolder);
}
