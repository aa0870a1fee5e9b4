// Programs that are killed while they are edited in: what the next start brings back.

#include "document/DocumentTables.h"
#include "document/RecoveryCopy.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "storage/RecoveryStore.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"
#include "tests/support/ThisSystem.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int interval = 200; // ms between two looks for changes

} // namespace

class Crash : public FrameTest
{
protected:
    Crash() { QDir(RecoveryStore::defaultRoot()).removeRecursively(); }
    ~Crash() override
    {
        stop();
        m_child.kill();
        m_child.waitForFinished(patience);
        QDir(RecoveryStore::defaultRoot()).removeRecursively();
    }

    static QStringList copies()
    {
        QStringList paths;
        for (QDirIterator files(RecoveryStore::defaultRoot(), {u"*.copy"_s}, QDir::Files, QDirIterator::Subdirectories);
             files.hasNext();) {
            paths << files.next();
        }
        return paths;
    }
    void run(const QString &program, const QStringList &arguments)
    {
        m_child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_child.start(program, arguments);
        ASSERT_TRUE(m_child.waitForStarted(patience));
    }
    void runChild(const QString &action, const QString &file)
    {
        run(QStringLiteral(TABRIX_RECOVERY_CHILD), {QString::number(interval), action, file});
    }
    void killChild()
    {
        m_child.kill(); // SIGKILL
        ASSERT_TRUE(m_child.waitForFinished(patience));
        ASSERT_EQ(m_child.exitStatus(), QProcess::CrashExit);
    }
    /// Waits for the child's next line.
    QString heard()
    {
        while (!m_child.canReadLine()) {
            if (!m_child.waitForReadyRead(patience)) {
                throw std::runtime_error("the other program says nothing");
            }
        }
        return QString::fromLatin1(m_child.readLine().trimmed());
    }
    /// Whether some copy holds that text in the end.
    bool copyHolds(const QString &text)
    {
        const QByteArray wanted(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        return QTest::qWaitFor(
            [&] {
                const QStringList paths = copies();
                return std::ranges::any_of(paths, [&](const QString &path) {
                    QFile file(path);
                    return file.open(QIODevice::ReadOnly) && file.readAll().contains(wanted);
                });
            },
            patience);
    }

    /// The number of the last edit that the copy holds; 0 while there is none.
    static int lastCopied()
    {
        const QStringList paths = copies();
        QFile file(paths.value(0));
        const bool isThere = !paths.isEmpty() && file.open(QIODevice::ReadOnly);
        const auto copy = isThere ? unpackRecoveryCopy(file.readAll()) : std::nullopt;
        const QString name = copy ? copy->rows.value(0).texts.value(1) : QString();
        return name.startsWith(u"edit "_s) ? name.mid(5).toInt() : 0;
    }

    QProcess m_child;
};

TEST_F(Crash, costsNoMoreThanWhatWasDoneSinceTheLastCopy)
{
    const QString file = writeFile(u"a.inv"_s, document(300));
    runChild(u"edit"_s, file);
    int last = 0;
    for (int renewed = 0; renewed < 3; ++renewed) { // the copy follows the edits
        const int before = last;
        ASSERT_TRUE(QTest::qWaitFor([&] { return (last = lastCopied()) > before; }, patience));
    }
    killChild();

    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(editor().windowTitle(), file);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    ASSERT_TRUE(grid().text(2, 1).startsWith(u"edit "_s));
    EXPECT_GE(grid().text(2, 1).mid(5).toInt(), last);
    EXPECT_EQ(readFile(file), document(300));

    const QByteArray recovered = grid().text(2, 1).toLatin1();
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(readFile(file).contains(',' + recovered + ','));
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Crash, doesNotCostWhatWasBeingTyped)
{
    runChild(u"type"_s, {});
    ASSERT_EQ(heard(), u"typed"_s);
    ASSERT_TRUE(copyHolds(u"unfinished"_s));
    killChild();
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
    EXPECT_EQ(grid().text(2, 1), u"unfinished"_s);
}

TEST_F(Crash, isNotTakenForOneWhileTheOtherProgramLives)
{
    runChild(u"type"_s, {});
    ASSERT_EQ(heard(), u"typed"_s);
    ASSERT_TRUE(copyHolds(u"unfinished"_s));
    start();
    EXPECT_EQ(frame().openEditors().size(), 1);
    EXPECT_EQ(copies().size(), 1);
    typeInto(2, 1, u"here"_s);
    frame().recovery().refresh();
    EXPECT_EQ(copies().size(), 2);
    stop();
    EXPECT_EQ(copies().size(), 1);
    killChild();
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"unfinished"_s);
}

TEST_F(Crash, ofTheProgramThatHadRecoveredLosesNothing)
{
    runChild(u"type"_s, {});
    ASSERT_EQ(heard(), u"typed"_s);
    ASSERT_TRUE(copyHolds(u"unfinished"_s));
    killChild();
    const QString left = copies().value(0);
    run(QStringLiteral(TABRIX_PROGRAM), {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !copies().isEmpty() && copies().first() != left; }, patience));
    killChild();
    start();
    ASSERT_EQ(frame().openEditors().size(), 2);
    EXPECT_EQ(grid().text(2, 1), u"unfinished"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

// As the rules for such folders say; a relative one would be another folder wherever the program is started.
TEST_F(Crash, leavesItsTracesInTheUsualPlacesWhereARelativeOneIsAskedFor)
{
    if (!ThisSystem::hasFolderVariables()) {
        GTEST_SKIP() << "no variables name folders on this system";
    }
    ASSERT_TRUE(QDir().mkpath(path(u"home"_s)));
    const QString file = writeFile(u"a.inv"_s, document(2));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, path(u"home"_s));
    environment.insert(u"XDG_CONFIG_HOME"_s, u"relative/config"_s);
    environment.insert(u"XDG_DATA_HOME"_s, u"relative/data"_s);
    m_child.setProcessEnvironment(environment);
    m_child.setWorkingDirectory(path(u"."_s));
    run(QStringLiteral(TABRIX_RECOVERY_CHILD), {QString::number(interval), u"edit"_s, file});
    const QString settings = path(u"home/.config/Tabrix/Tabrix.conf"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(settings); }, patience));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path(u"home/.local/share/Tabrix/recovery"_s)); }, patience));
    killChild();
    EXPECT_FALSE(QFile::exists(path(u"relative"_s)) || QFile::exists(path(u"home/relative"_s)));
}
