#include "runtime/ProcessLock.h"

#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class LockOfAProgram : public testing::Test
{
protected:
    ~LockOfAProgram() override
    {
        m_program.kill();
        m_program.waitForFinished(patience);
    }

    QByteArray letAnotherTakeIt()
    {
        m_program.start(QStringLiteral(TABRIX_LOCK_HOLDER), {name()});
        EXPECT_TRUE(m_program.waitForReadyRead(patience));
        return m_program.readLine().trimmed();
    }
    QString name() const { return m_folder.filePath(u"漢字.lock"_s); }

    QTemporaryDir m_folder;
    QProcess m_program;
};

} // namespace

TEST_F(LockOfAProgram, keepsOthersOut)
{
    ASSERT_EQ(letAnotherTakeIt(), "held");
    const auto locked = ProcessLock(name()).lock();
    ASSERT_FALSE(locked);
    EXPECT_EQ(locked.failure().code, FailureCode::LockHeld);
}

TEST_F(LockOfAProgram, endsWithAProgramThatIsKilled)
{
    ASSERT_EQ(letAnotherTakeIt(), "held");
    m_program.kill(); // by TerminateProcess(): nothing of it runs any more
    ProcessLock lock(name());
    EXPECT_TRUE(lock.lock(std::chrono::milliseconds(patience)));
    EXPECT_TRUE(QFile::exists(name()));
}

TEST_F(LockOfAProgram, leavesNoFileAndMindsNone)
{
    QFile leftBehind(name());
    ASSERT_TRUE(leftBehind.open(QIODevice::WriteOnly));
    leftBehind.write("by an earlier version");
    leftBehind.close();
    {
        ProcessLock lock(name());
        EXPECT_TRUE(lock.lock());
    }
    EXPECT_FALSE(QFile::exists(name()));
}
