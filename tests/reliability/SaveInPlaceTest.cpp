#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "tests/reliability/FaultTest.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// A save writes into the file that is there: links, other names and rights of it stay.
class SaveInPlace : public FaultTest
{
protected:
    void save() { chooseMenu(u"mneFile"_s, u"mneFileSave"_s); }
};

TEST_F(SaveInPlace, throughALinkWritesTheFileBehindItAndKeepsTheLink)
{
    const QString link = path(u"link.inv"_s);
    ASSERT_TRUE(QFile::link(file, link));
    openChanged(link);
    save();
    EXPECT_EQ(readFile(file), changed);
    EXPECT_EQ(QFile::symLinkTarget(link), file);
    EXPECT_EQ(versions(link), QList<QByteArray>{earlier});
}

TEST_F(SaveInPlace, keepsASecondNameOfTheFile)
{
    const QString second = path(u"second.inv"_s);
    ASSERT_EQ(::link(QFile::encodeName(file).constData(), QFile::encodeName(second).constData()), 0);
    save();
    EXPECT_EQ(readFile(second), changed);
}

TEST_F(SaveInPlace, keepsTheFilesRights)
{
    const QFile::Permissions rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    ASSERT_TRUE(QFile::setPermissions(file, rights));
    save();
    EXPECT_EQ(QFile::permissions(file), rights);
}

TEST_F(SaveInPlace, worksInAFolderThatTakesNoNewFiles)
{
    ASSERT_TRUE(QFile::setPermissions(workFolder(), QFile::ReadOwner | QFile::ExeOwner));
    save();
    EXPECT_EQ(readFile(file), changed);
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

TEST_F(SaveInPlace, isNotHinderedByALockThatOnlyAsks)
{
    const int other = ::open(QFile::encodeName(file).constData(), O_RDWR);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    save();
    ::close(other);
    EXPECT_EQ(readFile(file), changed);
}

TEST_F(SaveInPlace, keepsWhatAnotherProgramPutInTheFilesPlace)
{
    const QByteArray foreign = document(3);
    const QString other = writeFile(u"other.inv"_s, foreign);
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_TRUE(QFile::rename(other, file));
    ModalScript script;
    script.thenMessage(changedByOthers, u"cmdYes"_s);
    save();
    EXPECT_EQ(readFile(file), changed);
    EXPECT_EQ(versions(file), QList<QByteArray>{foreign});
}

TEST_F(SaveInPlace, leavesNothingBesideTheFile)
{
    save();
    EXPECT_EQ(
        QDir(workFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{u"a.inv"_s});
}

TEST_F(SaveInPlace, ofTheSameContentKeepsOneVersionOfIt)
{
    save();
    for (int i = 0; i < 3; ++i) {
        save();
    }
    EXPECT_EQ(versions(file), (QList<QByteArray>{earlier, changed}));
}
