#include "tests/reliability/FaultTest.h"

#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "storage/FileBackup.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

FaultTest::FaultTest()
{
    QDir(path(u"."_s)).mkdir(u"work"_s);
}

FaultTest::~FaultTest()
{
    // The test's folder must be deletable again, whatever the fault did to its rights.
    QFile::setPermissions(workFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir(QFileInfo(backupFolder(file)).path()).removeRecursively();
}

void FaultTest::SetUp()
{
    start();
    file = writeFile(u"work/a.inv"_s, earlier);
    openChanged(file);
}

void FaultTest::openChanged(const QString &name)
{
    ASSERT_TRUE(frame().documents().OpenPrFile(name));
    typeInto(2, 1, u"Renamed"_s);
    changed = QByteArray(earlier).replace(",Parameter 1,", ",Renamed,");
    ASSERT_TRUE(DocFlags[docNo()].changed);
}

void FaultTest::expectFailingSave(const std::function<bool(const QString &)> &check)
{
    const QString title = editor().windowTitle();
    ModalScript script;
    script.then([&](QWidget &window) {
        const auto *box = qobject_cast<QMessageBox *>(&window);
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(check(box->text())) << box->text().toStdString();
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->windowTitle(), title);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(editor().windowTitle(), title);
}

void FaultTest::expectFailingSave(const QString &reason)
{
    expectFailingSave([reason](const QString &text) { return text == reason; });
}

void FaultTest::expectSaveElsewhere()
{
    typeInto(2, 2, u"Typed after the fault"_s);
    changed.replace(",Parameter 2,", ",Typed after the fault,");
    ModalScript script;
    script.thenFile(path(u"elsewhere.inv"_s));
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(readFile(path(u"elsewhere.inv"_s)), changed);
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

bool FaultTest::isStillThere(const QByteArray &content) const
{
    for (const QString &root : {path(u"."_s), QFileInfo(backupFolder(file)).path()}) {
        QDirIterator files(root, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile candidate(files.next());
            if (candidate.size() == content.size() && candidate.open(QIODevice::ReadOnly)
                && candidate.readAll() == content) {
                return true;
            }
        }
    }
    return false;
}

QList<QByteArray> FaultTest::versions(const QString &name)
{
    const QDir folder(backupFolder(name));
    QList<QByteArray> contents;
    for (const QString &version : folder.entryList(QDir::Files, QDir::Name)) {
        contents << readFile(folder.filePath(version));
    }
    return contents;
}
