// Files whose names are no UTF-8: from the command line to the backups they are the files of just these bytes.

#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/CommandLine.h"
#include "runtime/FileName.h"
#include "runtime/WholeFile.h"
#include "storage/BackupTidying.h"
#include "storage/FileBackup.h"
#include "storage/RecoveryStore.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct ByteNameCase
{
    const char *what;
    QByteArray name;
    QString shown;
};

void PrintTo(const ByteNameCase &name, std::ostream *out)
{
    *out << name.what;
}

class ByteName : public FrameTest, public testing::WithParamInterface<ByteNameCase>
{
protected:
    ByteName()
    {
        QDir(RecoveryStore::defaultRoot()).removeRecursively();
        EXPECT_TRUE(QDir().mkdir(path(u"work"_s)));
        write(bytesName(), document(2));
    }
    ~ByteName() override
    {
        stop();
        QDir(RecoveryStore::defaultRoot()).removeRecursively();
        ::unlink(bytesName());
    }

    QByteArray bytesName() const { return QFile::encodeName(path(u"work/"_s)) + GetParam().name; }
    QString shownName() const { return path(u"work/"_s) + GetParam().shown; }

    static void write(const QByteArray &name, const QByteArray &content)
    {
        const int file = ::open(name, O_WRONLY | O_CREAT | O_TRUNC, 0600);
        EXPECT_EQ(::write(file, content.constData(), size_t(content.size())), content.size());
        ::close(file);
    }
    QByteArray content() const
    {
        QByteArray bytes(100'000, '\0');
        const int file = ::open(bytesName(), O_RDONLY);
        bytes.truncate(std::max<ssize_t>(::read(file, bytes.data(), size_t(bytes.size())), 0));
        ::close(file);
        return bytes;
    }
    /// What stands in the folder, by the system's names.
    QByteArrayList folder() const
    {
        QByteArrayList names;
        DIR *folder = ::opendir(QFile::encodeName(path(u"work"_s)));
        while (const dirent *entry = ::readdir(folder)) {
            if (entry->d_name[0] != '.') {
                names << entry->d_name;
            }
        }
        ::closedir(folder);
        return names;
    }
    void startWithIt()
    {
        char program[] = "tabrix";
        QByteArray name = bytesName();
        char *arguments[] = {program, name.data()};
        start(commandLineText(2, arguments));
    }
    bool isOpen() { return fileNameBytes(editor().windowTitle()) == bytesName(); }
    void expectItIsOpen()
    {
        ASSERT_TRUE(isOpen());
        EXPECT_EQ(grid().rowCount(), 2);
        EXPECT_EQ(qobject_cast<QMdiSubWindow *>(editor().parentWidget())->windowTitle(), shownName());
    }
    void saveAndExpect(const QString &typed)
    {
        ASSERT_TRUE(isOpen()); // else a dialog would ask for a name
        typeInto(2, 1, typed);
        chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
        EXPECT_TRUE(content().contains(typed.toLatin1() + ",")) << content().toStdString();
        EXPECT_EQ(folder(), QByteArrayList{GetParam().name});
        EXPECT_FALSE(DocFlags[docNo()].changed);
    }
};

} // namespace

TEST_P(ByteName, isOpenedByTheCommandLineAndSaved)
{
    const ModalScript noMessages;
    startWithIt();
    expectItIsOpen();
    saveAndExpect(u"Typed"_s);
    const QDir backups(backupFolder(editor().windowTitle()));
    const QStringList versions = backups.entryList(QDir::Files);
    ASSERT_EQ(versions.size(), 1);
    EXPECT_EQ(readFile(backups.filePath(versions.first())), document(2));
    EXPECT_EQ(noMessages.asked(), 0);
}

TEST_P(ByteName, hasNotVanishedForTheTidyingOfBackups)
{
    startWithIt();
    saveAndExpect(u"Typed"_s);
    const QDir backups(backupFolder(editor().windowTitle()));
    ASSERT_EQ(backups.entryList(QDir::Files).size(), 1);
    tidyBackups({}, QDateTime::currentDateTime().addDays(BackupBounds().daysOfVanished + 1));
    EXPECT_EQ(backups.entryList(QDir::Files).size(), 1);
}

TEST_P(ByteName, isNotReplacedUnaskedWhenAnotherProgramChangedIt)
{
    startWithIt();
    typeInto(2, 1, u"Typed"_s);
    write(bytesName(), document(3));
    ModalScript script;
    script.then([](QWidget &window) { QTest::keyClick(&window, Qt::Key_Escape); });
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(script.asked(), 1);
    EXPECT_EQ(content(), document(3));
}

TEST_P(ByteName, isOpenedFromTheRecentFilesOfALaterRun)
{
    startWithIt();
    start();
    QAction &entry = menuCommand(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(entry.text(), shownName());
    chooseMenu(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    expectItIsOpen();
    saveAndExpect(u"Again"_s);
}

TEST_P(ByteName, isOpenedWhenItIsDropped)
{
    start();
    QMimeData data;
    data.setData(u"text/uri-list"_s, "file://" + bytesName().toPercentEncoding("/") + "\r\n");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame(), &drop);
    expectItIsOpen();
    saveAndExpect(u"Dropped"_s);
}

TEST_P(ByteName, isThatOfTheRecoveredDocument)
{
    startWithIt();
    typeInto(2, 1, u"Kept"_s);
    frame().recovery().refresh();
    const QString dead = RecoveryStore::defaultRoot() + u"/20250101-000000-000-1"_s;
    const QDir root(RecoveryStore::defaultRoot());
    const QString own = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    ASSERT_TRUE(QDir().mkpath(dead));
    for (const QString &copy : QDir(root.filePath(own)).entryList(QDir::Files)) {
        ASSERT_TRUE(QFile::rename(root.filePath(own) + u'/' + copy, dead + u'/' + copy));
    }
    start();
    expectItIsOpen();
    EXPECT_EQ(grid().text(2, 1), u"Kept"_s);
    saveAndExpect(u"Saved"_s);
}

TEST_P(ByteName, isThatOfAWorkingFolderInTheFullPath)
{
    const QByteArray folder = bytesName() + ".d";
    ASSERT_EQ(::mkdir(folder, 0700), 0);
    ASSERT_EQ(::chdir(folder), 0);
    write("a.inv", document(2));
    start(u"a.inv"_s);
    EXPECT_EQ(fileNameBytes(editor().windowTitle()), folder + "/a.inv");
    stop();
    ::unlink("a.inv");
    QDir::setCurrent(path({}));
    ::rmdir(folder);
}

TEST_P(ByteName, isShownInMessages)
{
    start();
    ModalScript script;
    script.then([this](QWidget &window) {
        EXPECT_EQ(window.windowTitle(), shownName() + u".missing"_s);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_FALSE(frame().documents().OpenPrFile(fileNameFromBytes(bytesName() + ".missing")));
    EXPECT_EQ(script.asked(), 1);
}

INSTANTIATE_TEST_SUITE_P(Names, ByteName,
    testing::ValuesIn(std::vector<ByteNameCase>{
        {"Latin1", "caf\xe9.inv", u"caf\ufffd.inv"_s},
        {"ShiftJis", "\x95\x5c\x8e\xa6.inv", u"\ufffd\\\ufffd\ufffd.inv"_s},
        {"CutUtf8", "a\xe8\xa1.ine", u"a\ufffd\ufffd.ine"_s},
    }),
    [](const auto &test) { return std::string(test.param.what); });
