#include "runtime/WholeFile.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A file of sixteen megabytes whose length another program changes, step by step, for as long as this object lives.
class ChangingFile
{
public:
    explicit ChangingFile(int step) : m_folder(memoryFolder()), m_file(m_folder.filePath(u"a.inv"_s))
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        EXPECT_TRUE(m_file.resize(size));
        m_other = std::thread([this, step] { change(step); });
        while (m_changes < 2) { } // it is at work
    }
    ~ChangingFile()
    {
        m_isOver = true;
        m_other.join();
    }
    Q_DISABLE_COPY_MOVE(ChangingFile)

    QString fileName() const { return m_file.fileName(); }

private:
    /// In memory, where the system has such a place: there a change takes far less time than reading the file.
    static QString memoryFolder()
    {
        const QFileInfo memory(u"/dev/shm"_s);
        return (memory.isWritable() ? memory.filePath() : QDir::tempPath()) + u"/changing-XXXXXX"_s;
    }

    static constexpr qint64 size = 16 * 1024 * 1024;

    void change(int step)
    {
        qint64 now = size;
        while (!m_isOver) {
            now += step;
            EXPECT_EQ(::ftruncate(m_file.handle(), now), 0);
            ++m_changes;
        }
    }

    QTemporaryDir m_folder;
    QFile m_file;
    std::thread m_other;
    std::atomic<bool> m_isOver = false;
    std::atomic<int> m_changes = 0;
};

class ReadingAChangingFile : public testing::TestWithParam<int>
{
};

} // namespace

TEST_P(ReadingAChangingFile, endsAsBusyAndNotWithHalfOfIt)
{
    const ChangingFile file(GetParam());
    Result<QByteArray> bytes = QByteArray();
    // On a machine with much to do the other program may rest for the time of a whole reading.
    for (const QDeadlineTimer end(patience); bytes && !end.hasExpired();) {
        bytes = readWholeFile(file.fileName());
    }
    ASSERT_FALSE(bytes);
    EXPECT_EQ(bytes.failure().code, FailureCode::FileChanging);
}

INSTANTIATE_TEST_SUITE_P(GrowingAndShrinking, ReadingAChangingFile, testing::Values(1, -1));

TEST(WholeFile, isReadOnceNobodyChangesItAnyMore)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"a.inv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    ASSERT_EQ(file.write("whole"), 5);
    EXPECT_EQ(readWholeFile(file.fileName()), QByteArray("whole"));
}
