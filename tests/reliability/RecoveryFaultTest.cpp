#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "storage/RecoveryStore.h"
#include "tests/reliability/FaultyDisk.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions userOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// Recovery copies that a dead program has left, in a folder that has a fault.
class RecoveryFault : public FrameTest
{
protected:
    void SetUp() override
    {
        QDir(root()).removeRecursively();
        start();
        for (const QString &text : {u"one"_s, u"two"_s}) {
            ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(text + u".inv"_s, document(2))));
            typeInto(2, 1, text);
            ASSERT_TRUE(frame().recovery().keep(editor()));
        }
        const QDir own(root() + u'/' + QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).first());
        ASSERT_TRUE(QDir().mkpath(dead()));
        for (const QString &name : own.entryList(QDir::Files)) {
            ASSERT_TRUE(QFile::rename(own.filePath(name), dead() + u'/' + name));
        }
        stop();
    }
    ~RecoveryFault() override
    {
        stop();
        QFile::setPermissions(root(), userOnly);
        QFile::setPermissions(dead(), userOnly);
        QDir(root()).removeRecursively();
    }

    static QString root() { return RecoveryStore::defaultRoot(); }
    static QString dead() { return root() + u"/20250101-1"_s; }
    static QString firstCopy() { return dead() + u"/000001.copy"_s; }

    /// Starts and expects one message, which says that not all could be brought back and why.
    void expectMessage(const QString &reason)
    {
        ModalScript script;
        script.thenMessage(u"Not every document with unsaved changes could be brought back from %1: %2\n"
                           "What is missing is kept there, and the next start tries again."_s.arg(root(), reason),
            u"OK"_s);
        start();
    }
    /// Starts without a message and expects that both documents are there.
    void expectBothBack()
    {
        const ModalScript noMessages;
        start();
        QStringList texts;
        for (const frmPrFile *editor : frame().openEditors()) {
            texts << editor->vaspdParam().text(2, 1);
        }
        EXPECT_TRUE(texts.contains(u"one"_s) && texts.contains(u"two"_s)) << texts.join(u' ').toStdString();
        EXPECT_EQ(texts.size(), 3);
    }
};

} // namespace

TEST_F(RecoveryFault, aCopyThatCannotBeReadNowIsToldOnceAndThereAtTheNextStart)
{
    ASSERT_TRUE(QFile::setPermissions(firstCopy(), {}));
    expectMessage(u"Permission denied"_s);
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"two"_s);
    stop(); // "two" is given up
    QDirIterator left(root(), {u"*.copy"_s}, QDir::Files, QDirIterator::Subdirectories);
    ASSERT_TRUE(QFile::setPermissions(left.next(), QFile::ReadOwner | QFile::WriteOwner));
    const ModalScript noMessages;
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"one"_s);
}

TEST_F(RecoveryFault, aFolderThatCannotBeListedKeepsItsCopiesForTheNextStart)
{
    ASSERT_TRUE(QFile::setPermissions(dead(), QFile::WriteOwner | QFile::ExeOwner));
    expectMessage(u"Permission denied"_s);
    EXPECT_EQ(frame().openEditors().size(), 1);
    stop();
    ASSERT_TRUE(QFile::setPermissions(dead(), userOnly));
    expectBothBack();
}

TEST_F(RecoveryFault, aFolderThatGivesNothingAwayKeepsItsCopiesForTheNextStart)
{
    ASSERT_TRUE(QFile::setPermissions(dead(), QFile::ReadOwner | QFile::ExeOwner));
    expectMessage(u"Permission denied"_s);
    EXPECT_EQ(frame().openEditors().size(), 1);
    stop();
    ASSERT_TRUE(QFile::setPermissions(dead(), userOnly));
    expectBothBack();
}

TEST_F(RecoveryFault, aStoreThatCannotBeListedIsTold)
{
    ASSERT_TRUE(QFile::setPermissions(root(), QFile::WriteOwner | QFile::ExeOwner));
    expectMessage(u"Permission denied"_s);
    stop();
    ASSERT_TRUE(QFile::setPermissions(root(), userOnly));
    expectBothBack();
}

TEST_F(RecoveryFault, onAFullDiskACopyIsNotTakenForKept)
{
    QDir(dead()).removeRecursively();
    start(writeFile(u"a.inv"_s, document(2)));
    typeInto(2, 1, u"typed"_s);
    {
        const FaultyDisk::SizeLimit full(0);
        EXPECT_FALSE(frame().recovery().keep(editor()));
    }
    EXPECT_TRUE(frame().recovery().keep(editor()));
}

TEST_F(RecoveryFault, onADiskWithoutAFreePageTheEarlierCopyStays)
{
    if (FaultyDisk::smallDisk().isEmpty()) {
        GTEST_SKIP() << "this system lets tests mount no disk; the size limit stands in for the full disk";
    }
    const QString place = FaultyDisk::smallDisk() + u"/recovery"_s;
    {
        RecoveryStore store(place);
        const int number = store.newNumber();
        ASSERT_TRUE(store.write(number, "earlier"));
        {
            const FaultyDisk::Filling full;
            EXPECT_FALSE(store.write(number, "later"));
        }
        EXPECT_EQ(store.read(number), QByteArray("earlier"));
        EXPECT_TRUE(store.write(number, "later"));
    }
    QDir(place).removeRecursively();
}
