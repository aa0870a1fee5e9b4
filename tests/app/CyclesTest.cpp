// What users do again and again, each by itself: done so often that a leak of a few bytes each time is noticed.

#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/app/LongUse.h"
#include "tests/support/MemoryInUse.h"

#include <QApplication>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

class Cycles : public LongUse
{
public:
    void openBroken() { expectNoOpen(m_broken); }
    void openMissing() { expectNoOpen(path(u"missing.inv"_s)); }
    void openWithoutSection() { expectNoOpen(m_noSection); }
    /// A number that was in use is lost, and one that was never used comes into use.
    void failBetweenTwoDocuments();
    void editAndUndo();
    void save();

protected:
    void SetUp() override
    {
        LongUse::SetUp();
        m_answers.giveUpChanges();
        m_broken = writeFile(u"broken.inv"_s, document(9).chopped(30));
        m_noSection = writeFile(u"no-section.inv"_s, document(9).replace("[Paramater]", "[Parameter]"));
    }

    void open(const QString &file) { EXPECT_TRUE(frame().documents().OpenPrFile(file)); }
    void expectNoOpen(const QString &file) { EXPECT_FALSE(frame().documents().OpenPrFile(file)); }
    void type() { typeInto(2, 1, u"Renamed"_s); }
    void closeWindow()
    {
        EXPECT_TRUE(editor().parentWidget()->close());
        settle();
    }

private:
    QString m_broken;
    QString m_noSection;
};

void Cycles::failBetweenTwoDocuments()
{
    open(m_small);
    closeWindow();
    openMissing();
}

void Cycles::editAndUndo()
{
    open(m_small);
    type();
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    pressKey(grid(), Qt::Key_Y, Qt::ControlModifier);
    closeWindow();
}

void Cycles::save()
{
    open(m_small);
    type();
    frame().recovery().refresh();
    EXPECT_EQ(frame().documents().SavePrFile(editor(), m_small), SaveOutcome::Saved);
    closeWindow();
}

struct Cycle
{
    const char *name;
    void (Cycles::*once)();
    int times; ///< in each measurement
};

void PrintTo(const Cycle &cycle, std::ostream *out)
{
    *out << cycle.name;
}

class Again : public Cycles, public testing::WithParamInterface<Cycle>
{
};

TEST_P(Again, leavesNothingBehind)
{
    constexpr int warmUps = 3;
    constexpr int measurements = 8;
    constexpr double most = 40; // bytes each time; the flags of a lost number take two
    const Complaints complaints;
    QList<qint64> used;
    for (int i = 0; i < warmUps + measurements && !HasFailure(); ++i) {
        for (int time = 0; time < GetParam().times; ++time) {
            (this->*GetParam().once)();
        }
        settle();
        used << bytesInUse();
    }
    const double left = medianGrowth(used.mid(warmUps)) / GetParam().times;
    std::printf("%s: %.1f bytes each time\n", GetParam().name, left);
    EXPECT_LT(left, most);
    EXPECT_EQ(Complaints::list(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Cycles, Again,
    testing::ValuesIn(std::vector<Cycle>{
        {"openBroken", &Cycles::openBroken, 100},
        {"openMissing", &Cycles::openMissing, 100},
        {"openWithoutSection", &Cycles::openWithoutSection, 100},
        {"failBetweenTwoDocuments", &Cycles::failBetweenTwoDocuments, 20},
        {"editAndUndo", &Cycles::editAndUndo, 20},
        {"save", &Cycles::save, 20},
    }),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
