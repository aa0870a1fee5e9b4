#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "storage/BackupTidying.h"
#include "storage/FileBackup.h"
#include "tests/reliability/FaultTest.h"
#include "tests/reliability/FaultyDisk.h"
#include "tests/support/Patience.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions userOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr QFile::Permissions others =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// Backups of "a.inv" in a folder that has a fault.
class BackupFault : public FaultTest
{
protected:
    ~BackupFault() override
    {
        QFile::setPermissions(backupRoot(), userOnly);
        QFile::setPermissions(backupFolder(file), userOnly);
        QDir(backupRoot()).removeRecursively();
    }

    void save() { chooseMenu(u"mneFile"_s, u"mneFileSave"_s); }
    static QStringList filesIn(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// A version as of that day, of as many bytes. Returns its path.
    QString keep(const QString &document, int number, const QString &day, qsizetype bytes = 1)
    {
        const QString folder = backupFolder(document);
        EXPECT_TRUE(QDir().mkpath(folder));
        QFile version(folder + u"/%1 %2 12-00-00.inv"_s.arg(number, 8, 10, QLatin1Char('0')).arg(day));
        EXPECT_TRUE(version.open(QFile::WriteOnly));
        version.write(QByteArray(bytes, 'x'));
        QFile note(documentNote(folder));
        EXPECT_TRUE(note.open(QFile::WriteOnly));
        note.write(document.toUtf8());
        return version.fileName();
    }
    static QDateTime day(const QString &text) { return QDate::fromString(text, Qt::ISODate).startOfDay(); }
};

} // namespace

TEST_F(BackupFault, aFolderThatCannotBeListedIsNotTakenForAnEmptyOne)
{
    save();
    ASSERT_TRUE(QFile::setPermissions(backupFolder(file), QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray saved = changed;
    typeInto(2, 1, u"Again"_s);
    expectFailingSave([](const QString &text) { return text.contains(u": Permission denied\n"_s); });
    EXPECT_EQ(readFile(file), saved);
    ASSERT_TRUE(QFile::setPermissions(backupFolder(file), userOnly));
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
    save();
    EXPECT_EQ(versions(file), (QList<QByteArray>{earlier, saved}));
}

TEST_F(BackupFault, aDataFolderThatTakesNothingLetsASaveBeDoneAfterAQuestion)
{
    ASSERT_TRUE(QDir().mkpath(backupRoot()));
    ASSERT_TRUE(QFile::setPermissions(backupRoot(), QFile::ReadOwner | QFile::ExeOwner));
    ModalScript script;
    script.thenMessage(u"The earlier version could not be kept in "_s + backupFolder(file)
            + u": Permission denied\nIf you save now, it is lost. Save all the same?"_s,
        u"&Yes"_s);
    save();
    EXPECT_EQ(readFile(file), changed);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    ASSERT_TRUE(QFile::setPermissions(backupRoot(), userOnly));
    typeInto(2, 1, u"Again"_s);
    save();
    EXPECT_EQ(versions(file), QList<QByteArray>{changed}) << "and the next version is kept again";
}

TEST_F(BackupFault, whatAFailedSaveLeavesUntouchedIsStillAVersionToKeep)
{
    ASSERT_TRUE(QDir().mkpath(backupRoot()));
    ASSERT_TRUE(QFile::setPermissions(backupRoot(), QFile::ReadOwner | QFile::ExeOwner));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    ModalScript script;
    script.then([](QWidget &question) { QTest::keyClick(&question, Qt::Key_Y); })
        .thenMessage(u"Permission denied"_s, u"OK"_s);
    save();
    ASSERT_TRUE(QFile::setPermissions(backupRoot(), userOnly));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    save();
    EXPECT_EQ(versions(file), QList<QByteArray>{earlier});
}

TEST_F(BackupFault, versionsAreForTheUserAloneFromTheirCreation)
{
    QDir(QFileInfo(backupRoot()).path()).removeRecursively();
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | others));
    const mode_t former = ::umask(0);
    save();
    ::umask(former);
    EXPECT_EQ(versions(file).size(), 1);
    int entries = 0;
    const QString top = QFileInfo(backupRoot()).path();
    QDirIterator all(top, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        EXPECT_FALSE(QFile::permissions(path) & others) << path.toStdString();
        ++entries;
    }
    EXPECT_GE(entries, 4); // the backups, the document's folder, its note, the version
    EXPECT_FALSE(QFile::permissions(top) & others);
}

TEST_F(BackupFault, tidyingTakesRightsFromOthersAndLeavesForeignFilesAlone)
{
    save();
    const QString folder = backupFolder(file);
    const QString foreign = folder + u"/thesis.txt"_s;
    ASSERT_TRUE(QFile::copy(file, foreign));
    const QString version = folder + u'/' + filesIn(folder).first();
    for (const QString &path : {backupRoot(), folder, version, foreign}) {
        ASSERT_TRUE(QFile::setPermissions(path, QFile::permissions(path) | others));
    }
    tidyBackups();
    for (const QString &path : {backupRoot(), folder, version}) {
        EXPECT_FALSE(QFile::permissions(path) & others) << path.toStdString();
    }
    EXPECT_TRUE(QFile::permissions(foreign) & others);
}

TEST_F(BackupFault, tidyingFollowsNoLinksAndLeavesFoldersOfOthersAlone)
{
    const QString linked = path(u"elsewhere"_s);
    const QString foreign = backupRoot() + u"/My versions"_s;
    QStringList versions;
    for (const QString &folder : {linked, foreign}) {
        ASSERT_TRUE(QDir().mkpath(folder));
        for (const int number : {1, 2}) {
            versions << folder + u"/0000000%1 2001-01-01 12-00-00.inv"_s.arg(number);
            ASSERT_TRUE(QFile::copy(file, versions.last()));
        }
        ASSERT_TRUE(QFile::setPermissions(folder, userOnly | others));
    }
    ASSERT_TRUE(QFile::link(linked, backupRoot() + u"/a.inv-0123456789abcdef"_s));
    tidyBackups();
    for (const QString &version : versions) {
        EXPECT_TRUE(QFile::exists(version)) << version.toStdString();
    }
    EXPECT_TRUE(QFile::permissions(linked) & others);
    EXPECT_TRUE(QFile::permissions(foreign) & others);
}

TEST_F(BackupFault, tidyingTakesNoRightsThroughALink)
{
    const QString shared = path(u"shared"_s);
    ASSERT_TRUE(QDir().mkdir(shared) && QFile::setPermissions(shared, userOnly | others));
    ASSERT_TRUE(QDir(backupRoot()).removeRecursively() && QFile::link(shared, backupRoot()));
    tidyBackups();
    EXPECT_TRUE(QFile::permissions(shared) & others);
    EXPECT_TRUE(QFile::remove(backupRoot()));
}

TEST_F(BackupFault, aStartTidies)
{
    const QString old = keep(file, 1, u"2001-01-01"_s);
    const QString newest = keep(file, 2, u"2001-01-02"_s);
    ASSERT_TRUE(QFile::exists(old));
    start(file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFile::exists(old); }, patience));
    EXPECT_TRUE(QFile::exists(newest));
}

TEST_F(BackupFault, tidyingRemovesWhatTheDeadLeftUnfinished)
{
    save();
    const pid_t dead = ::fork();
    if (dead == 0) {
        ::_exit(0);
    }
    ::waitpid(dead, nullptr, 0);
    const QString folder = backupFolder(file);
    const QString versionName = filesIn(folder).first();
    const QString living = u"unfinished-%1"_s.arg(::getppid());
    for (const QString &name : {u"unfinished-%1"_s.arg(dead), living, u"unfinished-thesis"_s}) {
        ASSERT_TRUE(QFile::copy(file, folder + u'/' + name));
    }
    tidyBackups();
    EXPECT_EQ(filesIn(folder), (QStringList{versionName, living, u"unfinished-thesis"_s}));
}

TEST_F(BackupFault, tidyingKeepsTheBoundsOfAge)
{
    const QString vanished = path(u"vanished.inv"_s);
    const QString away = path(u"drive/away.inv"_s);
    const QString recent = path(u"recent.inv"_s);
    const QStringList gone = {keep(vanished, 1, u"2025-01-01"_s), keep(vanished, 2, u"2025-01-02"_s),
        keep(away, 1, u"2022-01-01"_s), keep(file, 7, u"2022-01-01"_s)};
    const QStringList kept = {
        keep(away, 2, u"2022-02-01"_s), keep(file, 8, u"2022-02-01"_s), keep(recent, 1, u"2025-06-01"_s)};
    tidyBackups({}, day(u"2025-07-10"_s));
    for (const QString &version : gone) {
        EXPECT_FALSE(QFile::exists(version)) << version.toStdString();
    }
    for (const QString &version : kept) {
        EXPECT_TRUE(QFile::exists(version)) << version.toStdString();
    }
    EXPECT_FALSE(QFile::exists(backupFolder(vanished)));
    EXPECT_FALSE(QFile::exists(documentNote(backupFolder(vanished))));
    EXPECT_TRUE(QFile::exists(documentNote(backupFolder(recent))));
}

TEST_F(BackupFault, tidyingKeepsTheBoundOfBytesAndTheNewestVersions)
{
    const QString other = path(u"other.inv"_s);
    const QString oldest = keep(other, 1, u"2025-01-01"_s, 1000);
    const QString newestOfOther = keep(other, 2, u"2025-01-02"_s, 1000);
    const QString older = keep(file, 1, u"2025-02-01"_s, 1000);
    const QString newest = keep(file, 2, u"2025-02-02"_s, 1000);
    BackupBounds bounds;
    bounds.bytes = 3000;
    tidyBackups(bounds, day(u"2025-03-01"_s));
    EXPECT_FALSE(QFile::exists(oldest));
    EXPECT_TRUE(QFile::exists(older));
    bounds.bytes = 2000;
    tidyBackups(bounds, day(u"2025-03-01"_s));
    EXPECT_FALSE(QFile::exists(older));
    EXPECT_TRUE(QFile::exists(newestOfOther));
    bounds.bytes = 10;
    tidyBackups(bounds, day(u"2025-03-01"_s));
    EXPECT_FALSE(QFile::exists(newestOfOther));
    EXPECT_TRUE(QFile::exists(newest)) << "what was kept last stays, however large";
}

TEST_F(BackupFault, tidyingKeepsTheBoundOfDocuments)
{
    QStringList documents;
    for (int i = 1; i <= 5; ++i) {
        documents << path(u"%1.inv"_s.arg(i));
        keep(documents.last(), 1, u"2025-01-0%1"_s.arg(i));
    }
    BackupBounds bounds;
    bounds.documents = 3;
    tidyBackups(bounds, day(u"2025-03-01"_s));
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(QFile::exists(backupFolder(documents[i])), i >= 2) << i;
    }
}

TEST_F(BackupFault, tidyingLeavesAFolderThatCannotBeListed)
{
    const QString version = keep(file, 1, u"2020-01-01"_s);
    keep(file, 2, u"2020-01-02"_s);
    ASSERT_TRUE(QFile::setPermissions(backupFolder(file), QFile::WriteOwner | QFile::ExeOwner));
    tidyBackups();
    ASSERT_TRUE(QFile::setPermissions(backupFolder(file), userOnly));
    EXPECT_TRUE(QFile::exists(version));
    tidyBackups();
    EXPECT_FALSE(QFile::exists(version));
}
