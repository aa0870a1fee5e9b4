// Programs that save one file at the same moment. Each is a process of its own.

#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "storage/SaveLock.h"
#include "tests/document/DocumentFixture.h"

#include <QElapsedTimer>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int saves = 150; // of each program
constexpr int rows[] = {300, 700}; // of each program's document

class TwoPrograms : public DocumentFixture
{
protected:
    TwoPrograms()
    {
        host.answersYes = true; // each finds what the other did
        for (const int count : rows) {
            makeDocument(count);
            EXPECT_TRUE(save(path(u"document.inv"_s), grid));
            documents << contentOf(path(u"document.inv"_s));
        }
    }
    ~TwoPrograms() override
    {
        for (const pid_t program : m_programs) {
            ::kill(program, SIGKILL);
            ::waitpid(program, nullptr, 0);
        }
    }

    void makeDocument(int count)
    {
        MachineInfos[docNo].Name = u"Machine with %1 rows"_s.arg(count);
        grid.rows.clear();
        for (int row = 1; row <= count; ++row) {
            grid.rows << FakeGrid::emptyRow();
            grid.rows.last()[0] = QString::number(row);
            grid.rows.last()[1] = MachineInfos[docNo].Name;
        }
    }
    /// Starts a program that saves its document so many times and ends with the number of saves that failed.
    void startSaving(int count, int times)
    {
        const pid_t program = ::fork();
        if (program != 0) {
            m_programs << program;
            return;
        }
        makeDocument(count);
        int failures = 0;
        for (int i = 0; i < times; ++i) {
            failures += save(file(), grid) ? 0 : 1;
        }
        ::_exit(std::min(failures, 100));
    }
    /// The exit codes of the programs that have ended.
    QList<int> ended()
    {
        QList<int> codes;
        for (qsizetype i = m_programs.size() - 1; i >= 0; --i) {
            int status = 0;
            if (::waitpid(m_programs[i], &status, WNOHANG) != 0) {
                m_programs.remove(i);
                codes << (WIFEXITED(status) ? WEXITSTATUS(status) : -1);
            }
        }
        return codes;
    }
    void kill()
    {
        ::kill(m_programs.last(), SIGKILL);
        ::waitpid(m_programs.takeLast(), nullptr, 0);
    }
    bool isRunning() const { return !m_programs.isEmpty(); }
    QString file() const { return path(u"document.inv"_s); }
    bool isWhole() const { return documents.contains(contentOf(file())); }

    FakeGrid grid;
    QList<QByteArray> documents;

private:
    QList<pid_t> m_programs;
};

TEST_F(TwoPrograms, thatSaveOneFileWaitForEachOther)
{
    constexpr int enoughLooks = 10;
    int looks = 0;
    QList<int> codes;
    while (isRunning() || looks < enoughLooks) {
        if (!isRunning()) { // at first, and when both were done before there had been enough looks
            for (const int count : rows) {
                startSaving(count, saves);
            }
        }
        {
            const SaveLock lock(file());
            ASSERT_FALSE(lock.isTaken());
            ASSERT_TRUE(isWhole()) << "look " << looks << ": " << contentOf(file()).size() << " bytes";
        }
        ++looks;
        ::usleep(500);
        codes << ended();
    }
    EXPECT_EQ(codes.count(0), codes.size());
    EXPECT_TRUE(isWhole());
}

TEST_F(TwoPrograms, areNotHeldUpByOneThatDiedInASave)
{
    constexpr int deaths = 20;
    makeDocument(rows[0]);
    for (int i = 0; i < deaths; ++i) {
        startSaving(rows[1], saves);
        ::usleep(useconds_t(1'000 + 700 * i));
        kill();
        ASSERT_TRUE(save(file(), grid)) << host.messages.value(0).toStdString();
        ASSERT_TRUE(isWhole());
    }
}

} // namespace
