#include "check/CheckRules.h"
#include "runtime/FileName.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

TEST(CheckRulesInNamesOfBytes, areFoundInFoldersWhoseNamesAreNoText)
{
    const QTemporaryDir parent;
    const QString folder = parent.filePath(u"a"_s) + fileNameFromBytes("\xFF");
    ASSERT_EQ(::mkdir(fileNameBytes(folder).constData(), 0700), 0);
    QFile rules(parent.filePath(u"rules"_s));
    ASSERT_TRUE(rules.open(QFile::WriteOnly));
    rules.write("[number-order]\nseverity=off\nreason=x\n");
    rules.close();
    const QByteArray target = fileNameBytes(folder) + "/tabrix-check.ini";
    ASSERT_EQ(::rename(fileNameBytes(rules.fileName()).constData(), target.constData()), 0);
    const auto found = rulesFor(folder + u"/a.inv"_s);
    EXPECT_TRUE(found && !found->severityOf(CheckId::NumberOrder));
    ::unlink(target.constData());
    ::rmdir(fileNameBytes(folder).constData());
}

} // namespace
