// Two programs that store settings.

#include "app/services/Settings.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/UserPlaces.h"
#include "tests/windows/PeerProgram.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 heldUp = 20'000; ///< in ms; storing itself takes some

class SharedRegistry : public testing::Test
{
protected:
    SharedRegistry()
    {
        UserPlaces::setConfigHome(m_folder.path());
        UserPlaces::setDataHome(m_folder.filePath(u"data"_s));
    }

    static QStringList storing(const QString &beginning, int times)
    {
        return {u"store"_s, beginning, QString::number(times)};
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(SharedRegistry, keepsTheRecentFilesOfBothPrograms)
{
    for (int round = 0; round < 3; ++round) {
        const QString beginnings[] = {uR"(C:\one\%1-)"_s.arg(round), uR"(C:\other\%1-)"_s.arg(round)};
        PeerProgram one(storing(beginnings[0], 1));
        PeerProgram other(storing(beginnings[1], 1));
        EXPECT_EQ(one.finish(), 0);
        EXPECT_EQ(other.finish(), 0);
        const QStringList newest = recentFiles().first(2);
        for (const QString &beginning : beginnings) {
            EXPECT_TRUE(newest.contains(beginning + u'0')) << newest.join(u' ').toStdString();
        }
    }
}

TEST_F(SharedRegistry, survivesADeathWhileItIsWritten)
{
    SaveUserFont(u"Font"_s, 9, true, false);
    for (unsigned long kill = 0; kill < 5; ++kill) {
        PeerProgram dying(storing(uR"(C:\dead\)"_s, 100'000));
        ASSERT_EQ(dying.heard(), "storing");
        QThread::usleep(5'000 * kill);
        dying.kill();
        QElapsedTimer time;
        time.start();
        const QString mine = uR"(C:\alive\%1)"_s.arg(kill);
        StoreRecentFile(mine);
        EXPECT_LT(time.elapsed(), heldUp);
        EXPECT_EQ(recentFiles().value(0), mine);
        UserFontSettings font;
        LoadUserFont(font.FontName, font.FontSize, font.FontItalic, font.FontBold);
        EXPECT_EQ(font, (UserFontSettings{u"Font"_s, 9, true, false}));
    }
}
