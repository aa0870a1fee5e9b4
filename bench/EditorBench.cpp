// What the editor window's commands cost on a table of the greatest size, the paint that follows included, beside
// moving the same texts by one row within memory.

#include "app/services/Settings.h"
#include "bench/Desk.h"
#include "bench/RatioReporter.h"
#include "bench/Stopwatch.h"
#include "document/DocumentTables.h"
#include "editor/GridCommands.h"
#include "editor/GridFinder.h"
#include "editor/GridFont.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>

#include <chrono>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 32767;
constexpr double longestWait = 100; // ms
constexpr int columnCount = ParameterColumn::Count;
constexpr GridBlock allRows{-1, 1, columnCount, rowCount};
constexpr GridBlock firstRow{-1, 1, columnCount, 1};
constexpr GridBlock firstCell{1, 1, 1, 1};

/// Measures work and the paint after it, with prepare before each run.
void measure(benchmark::State &state, const Desk &desk, const auto &prepare, const auto &work)
{
    desk.editor().setFocus();
    for (auto _ : state) {
        prepare();
        QApplication::processEvents();
        state.SetIterationTime(secondsOf([&] {
            work();
            QApplication::processEvents();
        }));
    }
}

} // namespace

static void MoveOfTexts(benchmark::State &state)
{
    const Desk desk(rowCount);
    PlainRows rows = desk.plainRows();
    rows.emplace_back();
    for (auto _ : state) {
        state.SetIterationTime(secondsOf([&] { std::move_backward(rows.begin(), rows.end() - 1, rows.end()); }));
    }
}

static void CopyAllRows(benchmark::State &state)
{
    const Desk desk(rowCount);
    measure(
        state, desk, [&] { desk.grid().selectBlock(allRows); }, [&] { desk.editor().commands().copy(); });
}

static void PasteAllRows(benchmark::State &state)
{
    const Desk desk(rowCount);
    desk.grid().selectBlock(allRows);
    desk.editor().commands().copy();
    measure(
        state, desk, [&] { desk.grid().selectBlock(firstCell); }, [&] { desk.editor().commands().paste(); });
}

static void CutAllRows(benchmark::State &state)
{
    const Desk desk(rowCount);
    const auto prepare = [&] {
        desk.restore();
        desk.grid().selectBlock(allRows);
    };
    measure(state, desk, prepare, [&] { desk.editor().commands().cut(); });
}

static void AddLineAtTheTop(benchmark::State &state)
{
    const Desk desk(rowCount);
    const auto prepare = [&] {
        desk.grid().setRowCount(rowCount - 1);
        desk.grid().selectBlock(firstCell);
    };
    measure(state, desk, prepare, [&] { desk.editor().commands().addLines(); });
}

static void DeleteTheFirstRow(benchmark::State &state)
{
    const Desk desk(rowCount);
    const auto prepare = [&] {
        desk.grid().setRowCount(rowCount);
        desk.grid().selectBlock(firstRow);
    };
    measure(state, desk, prepare, [&] { desk.editor().commands().deleteLines(); });
}

/// Measures taking back, or making again, what act did; act is one step.
static void measureWay(benchmark::State &state, const Desk &desk, bool back, const auto &act)
{
    const auto press = [&desk](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
        QApplication::sendEvent(&desk.grid(), &event);
    };
    act();
    measure(
        state, desk, [&] { press(back ? Qt::Key_Y : Qt::Key_Z); }, [&] { press(back ? Qt::Key_Z : Qt::Key_Y); });
}

template <bool Back>
static void WayOfPasteOfAllRows(benchmark::State &state)
{
    const Desk desk(rowCount);
    desk.grid().selectBlock(allRows);
    desk.editor().commands().copy();
    for (int row = 1; row <= rowCount; ++row) {
        desk.grid().setText(ParameterColumn::Name, row, u"other"_s); // so that every row changes
    }
    measureWay(state, desk, Back, [&] { desk.editor().commands().paste(); });
}

template <bool Back>
static void WayOfAddLineAtTheTop(benchmark::State &state)
{
    const Desk desk(rowCount);
    desk.grid().setRowCount(rowCount - 1);
    desk.grid().selectBlock(firstCell);
    measureWay(state, desk, Back, [&] { desk.editor().commands().addLines(); });
}

template <bool Back>
static void WayOfDeleteOfAllRows(benchmark::State &state)
{
    const Desk desk(rowCount);
    desk.grid().selectBlock(allRows);
    measureWay(state, desk, Back, [&] { desk.editor().commands().deleteLines(); });
}

static void JumpToTheLastRow(benchmark::State &state)
{
    const Desk desk(rowCount);
    measure(
        state, desk, [&] { desk.grid().setActiveCell(1, 1); },
        [&] {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_End, Qt::ControlModifier);
            QApplication::sendEvent(&desk.grid(), &key);
        });
}

static void HideAColumn(benchmark::State &state)
{
    const Desk desk(rowCount);
    const auto show = [&](bool shown) {
        ListVisualState[ParameterColumn::Name - 1] = !shown;
        applyVisibleColumns(desk.grid());
    };
    measure(
        state, desk, [&] { show(true); }, [&] { show(false); });
    show(true);
}

static void ChangeTheFont(benchmark::State &state)
{
    const Desk desk(rowCount);
    const QFont former = desk.grid().gridFont();
    QFont large = former;
    large.setPointSizeF(former.pointSizeF() * 1.5);
    measure(
        state, desk, [&] { applyGridFont(desk.grid(), former); }, [&] { applyGridFont(desk.grid(), large); });
}

// Each time after an edit, so that there is something to write.
static void KeepARecoveryCopy(benchmark::State &state)
{
    Desk desk(rowCount);
    desk.recovery().setInterval(std::chrono::hours(1));
    int edits = 0;
    const auto edit = [&] {
        desk.editor().document().markChanged();
        desk.grid().setText(ParameterColumn::Name, 1, QString::number(++edits));
    };
    measure(state, desk, edit, [&] { desk.recovery().refresh(); });
}

// Nothing was done since the last copy, which is what happens most often.
static void FindARecoveryCopyUpToDate(benchmark::State &state)
{
    Desk desk(rowCount);
    desk.recovery().setInterval(std::chrono::hours(1));
    desk.editor().document().markChanged();
    measure(
        state, desk, [] {}, [&] { desk.recovery().refresh(); });
}

/// Types a text into the open field; the measured key is its last.
static void findLast(benchmark::State &state, const QString &text)
{
    const Desk desk(rowCount);
    desk.editor().finder().open();
    auto *field = desk.editor().findChild<QLineEdit *>(u"txtFind"_s);
    const auto prepare = [&] {
        desk.grid().setActiveCell(1, 1);
        field->setText(text.chopped(1));
    };
    measure(state, desk, prepare, [&] { field->setText(text); });
}

static void FindWhatNoCellHolds(benchmark::State &state)
{
    findLast(state, u"a\u3042\u3044"_s);
}

static void FindACharacterThatNoCellHolds(benchmark::State &state)
{
    findLast(state, u"\u3042"_s);
}

constexpr int repetitions = 7;
static void asMedians(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(0.05);
    benchmark->Repetitions(repetitions)->ReportAggregatesOnly();
}

BENCHMARK(MoveOfTexts)->Apply(asMedians);
BENCHMARK(CopyAllRows)->Apply(asMedians);
BENCHMARK(PasteAllRows)->Apply(asMedians);
BENCHMARK(CutAllRows)->Apply(asMedians);
BENCHMARK(AddLineAtTheTop)->Apply(asMedians);
BENCHMARK(DeleteTheFirstRow)->Apply(asMedians);
BENCHMARK(WayOfPasteOfAllRows<true>)->Name("UndoPasteOfAllRows")->Apply(asMedians);
BENCHMARK(WayOfPasteOfAllRows<false>)->Name("RedoPasteOfAllRows")->Apply(asMedians);
BENCHMARK(WayOfAddLineAtTheTop<true>)->Name("UndoAddLineAtTheTop")->Apply(asMedians);
BENCHMARK(WayOfAddLineAtTheTop<false>)->Name("RedoAddLineAtTheTop")->Apply(asMedians);
BENCHMARK(WayOfDeleteOfAllRows<true>)->Name("UndoDeleteOfAllRows")->Apply(asMedians);
BENCHMARK(WayOfDeleteOfAllRows<false>)->Name("RedoDeleteOfAllRows")->Apply(asMedians);
BENCHMARK(JumpToTheLastRow)->Apply(asMedians);
BENCHMARK(HideAColumn)->Apply(asMedians);
BENCHMARK(ChangeTheFont)->Apply(asMedians);
BENCHMARK(KeepARecoveryCopy)->Apply(asMedians);
BENCHMARK(FindARecoveryCopyUpToDate)->Apply(asMedians);
BENCHMARK(FindWhatNoCellHolds)->Apply(asMedians);
BENCHMARK(FindACharacterThatNoCellHolds)->Apply(asMedians);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.filePath(u"data"_s).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(u"config"_s).toLocal8Bit());
    const QApplication application(argc, argv);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.filePath(u"config"_s));
    benchmark::Initialize(&argc, argv);
    std::vector<Ratio> ratios;
    for (const char *command :
        {"CopyAllRows", "PasteAllRows", "CutAllRows", "AddLineAtTheTop", "DeleteTheFirstRow", "UndoPasteOfAllRows",
            "RedoPasteOfAllRows", "UndoAddLineAtTheTop", "RedoAddLineAtTheTop", "UndoDeleteOfAllRows",
            "RedoDeleteOfAllRows", "JumpToTheLastRow", "HideAColumn", "ChangeTheFont", "KeepARecoveryCopy",
            "FindARecoveryCopyUpToDate", "FindWhatNoCellHolds", "FindACharacterThatNoCellHolds"}) {
        ratios.push_back({command, std::string(command) + '/', "MoveOfTexts/", 0, longestWait});
    }
    RatioReporter reporter(ratios);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
