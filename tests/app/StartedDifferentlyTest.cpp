// Starts that are not to end in the program that runs already.

#include "runtime/FileName.h"
#include "tests/app/HandOverFixture.h"

using namespace Qt::StringLiterals;

namespace {

struct OtherStart
{
    const char *variable;
    QByteArray value;
};

void PrintTo(const OtherStart &start, std::ostream *out)
{
    *out << start.variable;
}

class StartedDifferently : public HandOverTest, public testing::WithParamInterface<OtherStart>
{
};

} // namespace

TEST_P(StartedDifferently, opensTheFileItself)
{
    startFrame();
    const QString file = writeFile(u"a.inv"_s, document(2));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(GetParam().variable), QString::fromUtf8(GetParam().value));
    QProcess &second = startProgram(fileNameBytes(file), environment);
    ASSERT_TRUE(QTest::qWaitFor([&] { return recentFile(1) == file; }, patience));
    EXPECT_EQ(second.state(), QProcess::Running);
    EXPECT_EQ(frame().openEditors().size(), 1);
}

// Nobody asked the other program to look like this.
TEST_F(HandOverTest, isNotAskedForByAStartWithAnOptionOfTheToolkit)
{
    startFrame();
    const QString file = writeFile(u"a.inv"_s, document(2));
    QProcess &second = startProgram(fileNameBytes(file), {}, {u"-style"_s, u"windows"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return recentFile(1) == file; }, patience));
    EXPECT_EQ(second.state(), QProcess::Running);
    EXPECT_EQ(frame().openEditors().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(HandOver, StartedDifferently,
    testing::Values(OtherStart{"TABRIX_SEPARATE", "1"}, OtherStart{"DISPLAY", ":77"},
        OtherStart{"WAYLAND_DISPLAY", "wayland-77"}, OtherStart{"XDG_DATA_HOME", "/tmp"},
        OtherStart{"LC_ALL", "ja_JP.UTF-8"}));
