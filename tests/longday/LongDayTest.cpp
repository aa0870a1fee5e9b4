// A long day: two programs under a window manager, with files, a disk, a clipboard and recent files in common. After
// each act, what both show and what the files hold is what the model says.
// TABRIX_DAY_ACTS says how many acts, TABRIX_DAY_SEED which day.

#include "tests/longday/Day.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int fromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

/// The last acts, for a failure.
std::string lastOf(const QStringList &done)
{
    constexpr int shown = 30;
    return done.mid(std::max<qsizetype>(0, done.size() - shown)).join(u'\n').toStdString();
}

TEST(LongDay, isAsTheModelSaysAfterEachAct)
{
#if defined(__SANITIZE_ADDRESS__)
    constexpr int usualActs = 500; // each costs some ten times as much
#else
    constexpr int usualActs = 2000;
#endif
    const int acts = fromEnvironment("TABRIX_DAY_ACTS", usualActs);
    const int seed = fromEnvironment("TABRIX_DAY_SEED", 1);
    QElapsedTimer time;
    time.start();
    Day day{unsigned(seed)};
    QString difference;
    try {
        day.begin();
        difference = day.difference();
        for (int number = 1; number <= acts && difference.isEmpty(); ++number) {
            day.act();
            difference = day.difference();
        }
    } catch (const std::exception &failure) {
        difference = QString::fromUtf8(failure.what());
    }
    ASSERT_TRUE(difference.isEmpty()) << "day " << seed << "\n"
                                      << lastOf(day.done()) << "\n"
                                      << difference.toStdString();
    std::printf("%lld acts in %lld s\n", static_cast<long long>(day.done().size()), time.elapsed() / 1000);
    for (auto count = day.counts().begin(); count != day.counts().end(); ++count) {
        std::printf("%6d %s\n", count.value(), qPrintable(count.key()));
    }
    if (acts >= 2000 && day.canFillDisk()) {
        EXPECT_EQ(day.counts().key(0), QString()) << "this was never done";
    }
    if (!day.canFillDisk()) {
        std::printf("No disk can be mounted here, so that none was full.\n");
    }
}

} // namespace

int main(int argc, char **argv)
{
    DayDisk::prepare();
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
