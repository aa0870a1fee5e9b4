#pragma once

#include "document/DocumentTables.h"
#include "runtime/FileStamp.h"
#include "storage/FileBackup.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/QtPrinters.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

inline const QString changedQuestion =
    QStringLiteral("Another program has changed this file since it was opened or saved here. Replace it all the same?");
inline const QString appearedQuestion =
    QStringLiteral("There is a file of this name that was not opened or saved here. Replace it?");

/// A document that was read from a file.
class KnownFiles : public DocumentFixture
{
protected:
    KnownFiles()
    {
        file = put(opened);
        EXPECT_TRUE(read(file));
        grid = FakeGrid(PrRecords, 1);
        DocFlags[docNo].changed = true;
    }

    bool saveGrid(const QString &name) { return save(name, grid); }
    /// Expects that a save asks that and, on No, leaves all as it is.
    void expectQuestion(const QString &question)
    {
        host.questions.clear();
        host.titles.clear();
        const QByteArray before = contentOf(file);
        EXPECT_FALSE(saveGrid(file));
        EXPECT_EQ(host.questions, QStringList{question});
        EXPECT_EQ(host.titles, QStringList{file});
        EXPECT_EQ(contentOf(file), before);
        EXPECT_TRUE(DocFlags[docNo].changed);
        EXPECT_FALSE(QDir(backupFolder(file)).exists());
        EXPECT_FALSE(host.busy);
    }
    void expectNoQuestion()
    {
        EXPECT_TRUE(saveGrid(file));
        EXPECT_TRUE(host.questions.isEmpty()) << host.questions.value(0).toStdString();
    }
    /// What another program does: other bytes under the same times and size.
    void changeBehindTheTimes() const
    {
        QFile changed(file);
        EXPECT_TRUE(changed.open(QIODevice::ReadWrite));
        const QDateTime time = changed.fileTime(QFileDevice::FileModificationTime);
        changed.seek(opened.indexOf("Name=XT") + 6);
        changed.write("Y");
        changed.flush();
        EXPECT_TRUE(changed.setFileTime(time, QFileDevice::FileModificationTime));
    }

    /// Reads a file of that name, and lets another program change it while its stamp stays the same. False when that
    /// did not happen.
    bool changeInTheMomentOfReading(const QString &name)
    {
        constexpr int attempts = 1'000; // the first nearly always does
        const QByteArray theirs = QByteArray(opened).replace(",a,", ",b,");
        for (int attempt = 0; attempt < attempts; ++attempt) {
            file = put(opened, name);
            const FileStamp before = FileStamp::of(file);
            if (read(file) && put(theirs, name) == file && FileStamp::of(file) == before) {
                return true;
            }
        }
        return false;
    }
    /// Puts a file where the folder of the backups should be.
    void keepFromKeepingVersions()
    {
        EXPECT_TRUE(QDir().mkpath(QFileInfo(backupRoot()).path()));
        EXPECT_TRUE(QFile(backupRoot()).open(QIODevice::WriteOnly | QIODevice::NewOnly));
    }

    const QByteArray opened =
        "[Inverter]\r\nName=XT\r\nTypeCode=\r\nVCapacity=\r\nCode=\r\nSoftWareVersion=\r\nParamater=1\r\n"
        "[Paramater]\r\n0,1,,a,,1,-1,-1,0,0,0,0,";
    QString file;
    FakeGrid grid;
};
