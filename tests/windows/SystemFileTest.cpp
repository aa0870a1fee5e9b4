#include "runtime/SystemFile.h"

#include "runtime/FileStamp.h"
#include "runtime/OwnFiles.h"
#include "runtime/WholeFile.h"
#include "runtime/WindowsApi.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

#include <QDir>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// A file that another program has open, and lets nobody else use.
class BusyFile
{
public:
    explicit BusyFile(const QString &name, DWORD sharing = 0)
        : m_file(CreateFileW(
            name.toStdWString().c_str(), GENERIC_READ | GENERIC_WRITE, sharing, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(m_file, INVALID_HANDLE_VALUE);
    }
    ~BusyFile() { CloseHandle(m_file); }
    Q_DISABLE_COPY_MOVE(BusyFile)

private:
    HANDLE m_file;
};

class SystemFiles : public DocumentFixture
{
};

} // namespace

TEST_F(SystemFiles, areNeitherReadNorReplacedWhileAnotherProgramHasThem)
{
    const QString file = put("content");
    {
        const BusyFile busy(file);
        EXPECT_EQ(readWholeFile(file), Failure::system(EBUSY));
        EXPECT_EQ(writeWholeFile(file, "other"), Failure::system(EBUSY));
        EXPECT_TRUE(FileStamp::of(file).isFile);
        EXPECT_TRUE(isRegularFile(file));
    }
    EXPECT_EQ(contentOf(file), "content");
}

TEST_F(SystemFiles, areReadWhileAnotherProgramReadsOrWritesThem)
{
    const QString file = put("content");
    const BusyFile busy(file, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(readWholeFile(file), QByteArray("content"));
}

TEST_F(SystemFiles, thatAreReadOnlyAreNotReplaced)
{
    const QString file = put("content");
    ASSERT_TRUE(SetFileAttributesW(file.toStdWString().c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(writeWholeFile(file, "other"), Failure::system(EACCES));
    EXPECT_EQ(contentOf(file), "content");
    ASSERT_TRUE(SetFileAttributesW(file.toStdWString().c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST_F(SystemFiles, keepTheirAttributesWhenTheyAreReplaced)
{
    const QString file = put("a longer content");
    ASSERT_TRUE(SetFileAttributesW(file.toStdWString().c_str(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(writeWholeFile(file, "other"));
    EXPECT_EQ(contentOf(file), "other");
    EXPECT_TRUE(GetFileAttributesW(file.toStdWString().c_str()) & FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(SystemFiles, haveNamesWithEitherSlash)
{
    const QString file = put("content");
    EXPECT_EQ(readWholeFile(QDir::toNativeSeparators(file)), QByteArray("content"));
    EXPECT_EQ(readWholeFile(QDir::fromNativeSeparators(file)), QByteArray("content"));
    EXPECT_EQ(FileStamp::of(QDir::toNativeSeparators(file)), FileStamp::of(QDir::fromNativeSeparators(file)));
}

TEST_F(SystemFiles, mayHavePathsBeyond260Characters)
{
    QString folder = path(u"deep"_s);
    while (folder.size() < 400) {
        folder += u"/a folder with a name of its own"_s;
    }
    ASSERT_TRUE(makeOwnFolder(folder));
    const QString file = folder + u"/漢字.inv"_s;
    ASSERT_TRUE(putOwnFile(file, "content"));
    EXPECT_EQ(readWholeFile(file), QByteArray("content"));
    EXPECT_TRUE(writeWholeFile(file, "other"));
    EXPECT_EQ(listFolder(folder).entries, QList<FolderEntry>({{u"漢字.inv"_s, FileKind::File}}));
    EXPECT_EQ(*findKind(folder), FileKind::Folder);
    EXPECT_TRUE(renameOwnFileOnce(file, folder + u"/b.inv"_s));
    EXPECT_EQ(*findKind(file), FileKind::Nothing);
    EXPECT_EQ(FileStamp::of(folder + u"/b.inv"_s).size, 5);
}

TEST_F(SystemFiles, failWithTheTrueReason)
{
    EXPECT_EQ(readWholeFile(path(u"missing.inv"_s)), Failure::system(ENOENT));
    EXPECT_EQ(readWholeFile(path(u"missing/a.inv"_s)), Failure::system(ENOENT));
    EXPECT_EQ(readWholeFile(path(u"."_s)), Failure::system(EISDIR));
    EXPECT_EQ(writeWholeFile(path(u"missing/a.inv"_s), "content"), Failure::system(ENOENT));
    EXPECT_FALSE(readWholeFile(uR"(Q:\on no drive.inv)"_s));
    EXPECT_FALSE(writeWholeFile(path(u"a|b.inv"_s), "content"));
}

TEST_F(SystemFiles, areRenamedOnceOnly)
{
    const QString from = put("new", u"from"_s);
    const QString to = put("old", u"to"_s);
    EXPECT_EQ(renameOwnFileOnce(from, to), Failure::system(EEXIST));
    EXPECT_EQ(contentOf(to), "old");
    EXPECT_TRUE(renameOwnFile(from, to));
    EXPECT_EQ(contentOf(to), "new");
    EXPECT_EQ(*findKind(from), FileKind::Nothing);
}

TEST_F(SystemFiles, tellAChangeByTheirStamp)
{
    const QString file = put("content");
    const FileStamp before = FileStamp::of(file);
    EXPECT_TRUE(before.isFile);
    EXPECT_EQ(before.size, 7);
    EXPECT_FALSE(FileStamp::of(path(u"."_s)).isFile);
    EXPECT_FALSE(FileStamp::of(path(u"missing"_s)).isFile);
    QFile::remove(file);
    put("CONTENT");
    EXPECT_NE(FileStamp::of(file), before);
}

TEST_F(SystemFiles, leftByAProgramThatHasEndedAreRemoved)
{
    const QString ended = put("", u"a.unfinished-4294967292"_s); // no process has a number like that
    const QString mine = put("", u"a.unfinished-%1"_s.arg(GetCurrentProcessId()));
    removeUnfinished(path({}), listFolder(path({})).entries, u"a."_s);
    EXPECT_EQ(*findKind(ended), FileKind::Nothing);
    EXPECT_EQ(*findKind(mine), FileKind::File);
}
