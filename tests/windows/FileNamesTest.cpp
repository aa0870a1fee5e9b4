#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

TEST(FileNames, haveTheSeparatorsOfWindows)
{
    EXPECT_EQ(fileNameFromQt(u"C:/a b/é表.inv"_s), uR"(C:\a b\é表.inv)"_s);
    EXPECT_EQ(fileNameFromUrl(QUrl(u"file:///C:/a%20b/é表.inv"_s)), uR"(C:\a b\é表.inv)"_s);
    EXPECT_EQ(fileNameFromUrl(QUrl(u"file://server/share/a.inv"_s)), uR"(\\server\share\a.inv)"_s);
}

TEST(FileNames, staysWhatWasTypedIfItIsAFullPath)
{
    for (const QString &name : {uR"(C:\a.inv)"_s, u"c:/A.INV"_s, uR"(\\server\share\a.inv)"_s, uR"("C:\a.inv")"_s}) {
        EXPECT_EQ(absoluteFileName(name), name);
    }
}

TEST(FileNames, ofTheWorkingFolderBecomeFullPaths)
{
    QFile file(u"file names test.tmp"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString whole = QDir::toNativeSeparators(QDir::current().filePath(file.fileName()));
    EXPECT_EQ(absoluteFileName(uR"(.\file names test.tmp)"_s), whole);
    EXPECT_EQ(absoluteFileName(u"./file names test.tmp"_s), whole);
    file.remove();
}
