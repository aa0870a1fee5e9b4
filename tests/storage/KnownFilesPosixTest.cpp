#include "tests/storage/KnownFiles.h"
#include "tests/support/MemoryDisk.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// A disk whose clock goes in steps shows nothing of it.
TEST_F(KnownFiles, areAskedAboutWhenOthersChangedThemInTheVeryMomentOfReading)
{
    enum Outcome { Asked, NotAsked, NoSuchDisk };
    const QString disk = path(u"disk"_s);
    ASSERT_TRUE(QDir().mkpath(disk));
    const pid_t program = ::fork(); // the disk is the child's own
    if (program == 0) {
        const bool isMounted = MemoryDisk::prepare() && MemoryDisk::mount(disk, "mode=0700", "ramfs");
        if (!isMounted || !changeInTheMomentOfReading(u"disk/document.inv"_s)) {
            ::_exit(NoSuchDisk);
        }
        ::_exit(!saveGrid(file) && host.questions == QStringList{changedQuestion} ? Asked : NotAsked);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(program, &status, 0), program);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == NoSuchDisk) {
        GTEST_SKIP() << "this system lets tests mount no disk";
    }
    EXPECT_EQ(WEXITSTATUS(status), Asked);
}
