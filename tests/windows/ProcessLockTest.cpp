#include "runtime/ProcessLock.h"

#include "tests/support/QtPrinters.h"
#include "tests/windows/PeerProgram.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class LockOfAProgram : public testing::Test
{
protected:
    QString name() const { return m_folder.filePath(u"漢字.lock"_s); }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(LockOfAProgram, keepsOthersOut)
{
    PeerProgram holder({u"hold"_s, name()});
    ASSERT_EQ(holder.heard(), "held");
    const auto locked = ProcessLock(name()).lock();
    ASSERT_FALSE(locked);
    EXPECT_EQ(locked.failure().code, FailureCode::LockHeld);
}

TEST_F(LockOfAProgram, endsWithAProgramThatIsKilled)
{
    PeerProgram holder({u"hold"_s, name()});
    ASSERT_EQ(holder.heard(), "held");
    holder.kill();
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
