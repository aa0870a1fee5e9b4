#include "grid/SpreadGrid.h"
#include "print/PdfFile.h"
#include "print/PrintAbortBox.h"
#include "print/PrintJob.h"
#include "tests/support/Controls.h"
#include "tests/support/PrintedGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

PrintAbortBox *shownBox()
{
    return qobject_cast<PrintAbortBox *>(QApplication::activeModalWidget());
}

/// Does something with the abort box once it shows that many pages.
class WhilePrinting
{
public:
    WhilePrinting(int pages, std::function<void(PrintAbortBox &)> action)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, pages, action = std::move(action)] {
            PrintAbortBox *box = shownBox();
            if (box && control<QProgressBar>(*box, u"prgPrint"_s).value() >= pages) {
                m_timer.stop();
                action(*box);
            }
        });
        m_timer.start(0);
    }

    bool happened() const { return !m_timer.isActive(); }

private:
    QTimer m_timer;
};

class PrintAbort : public testing::Test
{
protected:
    PrintAbort() { fillGrid(grid, 2, 1000); }

    SpreadGrid grid;
    PrintedGrid paper;
};

TEST_F(PrintAbort, boxShowsTextButtonAndProgress)
{
    QString title, text, caption;
    int total = 0;
    const WhilePrinting look(3, [&](PrintAbortBox &box) {
        title = box.windowTitle();
        text = control<QLabel>(box, u"lblAbort"_s).text();
        caption = control<QPushButton>(box, u"cmdCancel"_s).text();
        total = control<QProgressBar>(box, u"prgPrint"_s).maximum();
    });
    paper.print(grid);
    EXPECT_TRUE(look.happened());
    EXPECT_EQ(title, u"test job"_s);
    EXPECT_EQ(text, u"Stop?"_s);
    EXPECT_EQ(caption, u"Cancel"_s);
    EXPECT_EQ(total, paper.pageCount());
    EXPECT_EQ(paper.outcome(), PrintOutcome::Done);
    EXPECT_EQ(shownBox(), nullptr);
}

using Stop = void (*)(PrintAbortBox &);

class PrintAbortWays : public PrintAbort, public testing::WithParamInterface<Stop>
{
};

TEST_P(PrintAbortWays, stopInTheMiddle)
{
    const WhilePrinting stop(3, GetParam());
    paper.print(grid);
    EXPECT_TRUE(stop.happened());
    EXPECT_EQ(paper.outcome(), PrintOutcome::Cancelled);
    EXPECT_GE(paper.pageCount(), 3);
    EXPECT_LE(paper.pageCount(), 6);
    EXPECT_EQ(shownBox(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Ways, PrintAbortWays,
    testing::Values(
        [](PrintAbortBox &box) { QTest::mouseClick(&control<QPushButton>(box, u"cmdCancel"_s), Qt::LeftButton); },
        [](PrintAbortBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }, [](PrintAbortBox &box) { box.close(); }));

TEST_F(PrintAbort, leavesTheFileOfThatNameAsItWas)
{
    QFile before(paper.fileName());
    ASSERT_TRUE(before.open(QIODevice::WriteOnly));
    before.write("older print-out");
    before.close();
    {
        PdfFile file(paper.fileName(), QPrinter().pageLayout());
        ASSERT_TRUE(file.open());
        PrintJob job(file.paper(), u"job"_s);
        const WhilePrinting stop(3, [](PrintAbortBox &box) { box.reject(); });
        EXPECT_EQ(printGrid(grid, PrintedGrid::plainOptions(), job, nullptr), PrintOutcome::Cancelled);
        job.cancel();
    }
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    EXPECT_EQ(before.readAll(), "older print-out"_ba);
}

/// In kilobytes.
qint64 residentMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) {
        return -1;
    }
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).simplified().split(' ').first().toLongLong();
        }
    }
    return -1;
}

TEST_F(PrintAbort, aLongPrintOutNeedsNoMoreMemoryThanAShortOne)
{
    if (residentMemory() < 0) {
        GTEST_SKIP() << "the memory in use is not known on this system";
    }
    fillGrid(grid, 13, 32767);
    qint64 early = 0;
    qint64 late = 0;
    const WhilePrinting lookEarly(20, [&](PrintAbortBox &) { early = residentMemory(); });
    const WhilePrinting lookLate(220, [&](PrintAbortBox &box) {
        late = residentMemory();
        box.reject();
    });
    PrintJob job(paper.printer(), u"long"_s);
    EXPECT_EQ(printGrid(grid, PrintedGrid::plainOptions(), job, nullptr), PrintOutcome::Cancelled);
    EXPECT_TRUE(lookLate.happened());
    RecordProperty("growthInKilobytes", std::to_string(late - early));
    EXPECT_LT(late - early, 8 * 1024);
}

} // namespace
